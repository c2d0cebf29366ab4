// Which view of a drawing is the first on a sheet, and what it shows.
#pragma once

#include "hostapi/host.h"

// The sheet that a view is on; 0 where the host does not say.
int SheetOf(ProDrawing drawing, ProView view);

// The first of these views that is on the sheet; null if none is.
ProView FirstViewOn(ProDrawing drawing, const ProView* views, int count, int sheet);

// What the first view on the sheet shows; without one, or where the host does not say, `before`.
ProSolid SolidOnSheet(ProDrawing drawing, const ProView* views, int count, int sheet,
                      ProSolid before);
