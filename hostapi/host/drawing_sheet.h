// The sheets of a drawing: which one is worked on, and bringing one up to date. Sheets count from
// 1.
#pragma once

#include "hostapi/host/drawing.h"
#include "hostapi/host/types.h"

HOST_API ProError ProDrawingCurrentSheetGet(ProDrawing drawing, int* sheet);

// Brings what a sheet shows up to date. PRO_TK_BAD_INPUTS: the drawing has no such sheet.
HOST_API ProError ProDwgSheetRegenerate(ProDrawing drawing, int sheet);
