// The tables of a drawing.
#pragma once

#include "hostapi/host/drawing.h"
#include "hostapi/host/modelitem.h"
#include "hostapi/host/types.h"

typedef ProModelitem ProDwgtable;

// A new array with the tables of the drawing, in the order of their making. The caller frees it.
// PRO_TK_E_NOT_FOUND: the drawing has none.
HOST_API ProError ProDrawingTablesCollect(ProDrawing drawing, ProDwgtable** tables);

// Whether the table came onto its sheet with a format.
HOST_API ProError ProDwgtableIsFromFormat(ProDwgtable* table, ProBoolean* fromFormat);

// Receives the sheet that a segment of the table is on; -1: its only one.
HOST_API ProError ProDwgtableSegSheetGet(ProDwgtable* table, int segment, int* sheet);

// Deletes the table; with `repaint` it goes from the screen at once.
// Assumed (parameters, 75 %): takes the table and whether it goes from the screen
HOST_API ProError ProDwgtableDelete(ProDwgtable* table, int repaint);
