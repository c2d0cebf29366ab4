// Which version of the host has loaded the plug-in.
#pragma once

#include "hostapi/wide.h"

// As handed to user_initialize; commands choose their macros by it.
extern WideText HostVersionText;
