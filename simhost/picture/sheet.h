// A picture of a sheet of a drawing, to judge the arrangement of its views by.
#pragma once

#include <string>

#include "simhost/model/model.h"
#include "simhost/picture/canvas.h"

namespace simhost {

// The sheet (from 1) of a drawing, `widthPixels` wide: the frame with the sign of the projection
// rule, each view's edges with hidden ones dashed, its outline and its name in Chinese, and the gap
// between a projection and its parent as a dimension. Each view is a group with the id "view" and
// the view's number. Views beside the sheet are shown, too. Words keep clear of each other, of
// dimensions and of the sign.
Picture SheetPicture(Model& drawing, int sheet, int widthPixels);

// The same as SVG text.
std::string SheetSvg(Model& drawing, int sheet, int widthPixels);

}  // namespace simhost
