// How large a part or an assembly is.
#pragma once

#include "hostapi/host/geometry.h"
#include "hostapi/host/types.h"

// Receives the lower and the upper corner of the box around the solid, along its own axes.
// PRO_TK_E_NOT_FOUND: the solid has no geometry.
HOST_API ProError ProSolidOutlineGet(ProSolid solid, Pro3dPnt outline[2]);
