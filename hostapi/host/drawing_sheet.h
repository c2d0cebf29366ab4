// The sheets of a drawing: which one is worked on, what they show, and their scales and formats.
// Sheets count from 1. All calls refuse a sheet that is not one of the drawing's with
// PRO_TK_BAD_INPUTS.
#pragma once

#include "hostapi/host/drawing.h"
#include "hostapi/host/model.h"
#include "hostapi/host/types.h"

HOST_API ProError ProDrawingCurrentSheetGet(ProDrawing drawing, int* sheet);
HOST_API ProError ProDrawingCurrentSheetSet(ProDrawing drawing, int sheet);

// Brings what a sheet shows up to date.
HOST_API ProError ProDwgSheetRegenerate(ProDrawing drawing, int sheet);

// A new array with the models that the drawing can show, each once. The caller frees it.
// PRO_TK_E_NOT_FOUND: the drawing has none.
HOST_API ProError ProDrawingSolidsCollect(ProDrawing drawing, ProSolid** solids);

// The model that fields of the format and new views are about. PRO_TK_E_NOT_FOUND: the drawing has
// not this model.
HOST_API ProError ProDrawingCurrentsolidSet(ProDrawing drawing, ProSolid solid);

// The scale that views of this model have on a sheet, where they have none of their own.
// PRO_TK_E_NOT_FOUND: the drawing has not this model. PRO_TK_BAD_INPUTS: a scale that is not more
// than 0.
// Assumed (parameters, 70 %): in the order drawing, model, sheet, scale
HOST_API ProError ProDrawingScaleGet(ProDrawing drawing, ProSolid solid, int sheet, double* scale);
HOST_API ProError ProDrawingScaleSet(ProDrawing drawing, ProSolid solid, int sheet, double scale);

// Puts a format onto a sheet: its border, its tables with their fields about the model, and its
// size. A format that is there goes; its tables stay until they are deleted.
// `formatSheet`: which sheet of the format; 0, the first.
// PRO_TK_BAD_INPUTS: no format. PRO_TK_E_NOT_FOUND: the drawing has not this model.
// Assumed (parameters, 75 %): in the order drawing, sheet, model, format, sheet of the format
// Assumed (behaviour, 60 %): the sheet takes on the format's size
HOST_API ProError ProDrawingFormatAdd(ProDrawing drawing, int sheet, ProSolid solid, ProMdl format,
                                      int formatSheet);
