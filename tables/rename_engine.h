// The button of VxRename that renames.
#pragma once

#include "hostapi/host.h"

void OnStartRename(char* dialog, char* component, ProAppData data);
