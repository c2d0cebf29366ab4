// The two functions through which the host loads and unloads the plug-in.
#pragma once

#include "hostapi/host.h"

// Called once when the host loads the module. Returns 0, or the status of the first-run notice's
// failed dialog call: the plug-in then has no commands.
PLUGIN_ENTRY int user_initialize(int argc, char* argv[], char* version, char* build,
                                 WideChar errorText[80]);

// Called once when the host unloads the module, also after a failed start.
PLUGIN_ENTRY void user_terminate();
