// Windows of the host.
#pragma once

#include "hostapi/host/types.h"

#define PRO_VALUE_UNUSED (-1)

// Draws a window afresh; PRO_VALUE_UNUSED (-1) is the current window.
HOST_API ProError ProWindowRepaint(int window);
