// What is on a sheet of a drawing, as lines: the common ground of the pictures and the files
// that are made of sheets.
#pragma once

#include <string>
#include <vector>

#include "simhost/model/drawing.h"
#include "simhost/model/projection.h"
#include "simhost/picture/canvas.h"

namespace simhost {

struct ViewOnSheet {
    const DrawingView* view;
    Extents outline;
    std::string role;              // "main", "below", "rear", "isometric" …
    std::string shows;             // "from above"; empty where there is no short word for it
    std::string name;              // as draughtsmen call it: 主视图, 俯视图 …
    std::vector<DrawnLine> lines;  // on the sheet, as the view's display style wants them; each
                                   // once, and as a visible one if it is both
};

// The views of a sheet in the order of their making. A view whose model is gone has no lines.
std::vector<ViewOnSheet> ViewsOnSheet(Model& drawing, int sheet);

// The hidden or the visible lines of a view, joined where one begins at the end of another, in a
// picture whose upper left corner is at this place of the sheet.
Path LinesOf(const ViewOnSheet& view, bool hidden, Vec3 upperLeft);

}  // namespace simhost
