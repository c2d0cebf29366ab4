// What the table and the names of files tell about a drawing.
#pragma once

#include "hostapi/host.h"

// The name of the size of a sheet, which counts from 1; empty after a failed call.
WideText SheetSizeName(ProDrawing drawing, int sheet);
