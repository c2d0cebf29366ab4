// The lines of views are kept from one output of a sheet to the next.
#pragma once

#include <functional>
#include <vector>

#include "simhost/model/drawing.h"
#include "simhost/model/projection.h"

namespace simhost {

// The lines of a view: those that `draw` makes, or the kept ones if it was asked before about a
// view and a model that were alike to the last digit. Everything that lines can follow from is
// compared, so nothing has to be told when a model changes: `parts` with their places and solids,
// the view's turn, place, scale and display style. The oldest are dropped when there are too many.
std::vector<DrawnLine> KeptLines(const Drawing& drawing, const DrawingView& view,
                                 const std::vector<ShownPart>& parts,
                                 const std::function<std::vector<DrawnLine>()>& draw);

}  // namespace simhost
