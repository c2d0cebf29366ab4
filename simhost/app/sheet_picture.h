// A picture of a sheet of a drawing, to judge the arrangement of its views by.
#pragma once

#include <string>

#include "simhost/model/model.h"

namespace simhost {

// The sheet (from 1) of a drawing as an SVG text `widthPixels` wide: the frame, each view's edges
// with hidden ones dashed, its outline and its role, and the gap between a projection and its
// parent as a dimension. Views that stand beside the sheet are shown too.
std::string SheetSvg(Model& drawing, int sheet, int widthPixels);

}  // namespace simhost
