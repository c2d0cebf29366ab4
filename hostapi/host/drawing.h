// Drawings and their sheets.
#pragma once

#include "hostapi/host/geometry.h"
#include "hostapi/host/types.h"

typedef struct VxHostDrawing* ProDrawing;

HOST_API ProError ProDrawingSheetsCount(ProDrawing drawing, int* count);

// Receives the name of a sheet's size ("A3"; the host's own word for a custom size) and the
// transform from the sheet to the screen. Sheets count from 1. PRO_TK_E_NOT_FOUND: no such sheet.
// Assumed (parameters, 70 %): in the order drawing, sheet, size name, transform
HOST_API ProError ProDrawingSheetTrfGet(ProDrawing drawing, int sheet, ProName size,
                                        ProMatrix transform);
