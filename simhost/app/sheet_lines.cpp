// What stands on a sheet of a drawing, as lines.
#include "simhost/app/sheet_lines.h"

#include <algorithm>

namespace simhost {

namespace {

// A general view from which others are projected is the main one of its kind; another one that
// shows the model askew is there to give an impression of it.
std::string RoleOf(const Drawing& drawing, const DrawingView& view) {
    if (view.parent) {
        const bool behind = view.parent->parent && view.parent->side == view.side;
        return behind ? "rear" : SideName(view.side);
    }
    for (const auto& other : drawing.views()) {
        if (other->parent == &view) return "main";
    }
    const auto& axes = view.orientation.axes;
    const bool straight = std::all_of(axes.begin(), axes.end(), [](Vec3 axis) {
        return std::max({axis.x * axis.x, axis.y * axis.y, axis.z * axis.z}) > 0.999;
    });
    return straight ? "general" : "isometric";
}

// From where a view looks, in the words of its main view.
std::string ShowsOf(const Drawing& drawing, const DrawingView& view, const std::string& role) {
    if (role == "main") return "from the front";
    if (role == "rear") return "from behind";
    if (!view.parent || view.parent->parent) return {};
    const bool same = drawing.rule == ProjectionRule::ThirdAngle;
    switch (view.side) {
        case Side::Above: return same ? "from above" : "from below";
        case Side::Below: return same ? "from below" : "from above";
        case Side::Left: return same ? "from the left" : "from the right";
        case Side::Right: return same ? "from the right" : "from the left";
        case Side::None: break;
    }
    return {};
}

std::vector<DrawnLine> LinesOf(const Drawing& drawing, const DrawingView& view) {
    const Model* model = ModelOf(view);
    if (!model) return {};
    const bool withHidden = view.display.style != PRO_DISPSTYLE_NO_HIDDEN;
    std::vector<DrawnLine> lines = ProjectedLines(*model, drawing.FrameOf(view), withHidden);
    for (DrawnLine& line : lines) {
        const Vec3 a = drawing.ToSheet(view, {line.x0, line.y0, 0});
        const Vec3 b = drawing.ToSheet(view, {line.x1, line.y1, 0});
        // A wireframe shows all edges alike.
        const bool hidden = line.hidden && view.display.style != PRO_DISPSTYLE_WIREFRAME;
        line = {a.x, a.y, b.x, b.y, hidden};
    }
    return lines;
}

}  // namespace

std::vector<ViewOnSheet> ViewsOnSheet(Model& drawing, int sheet) {
    Drawing& all = DrawingOf(drawing);
    std::vector<ViewOnSheet> views;
    for (const auto& view : all.views()) {
        if (view->sheet != sheet) continue;
        const std::string role = RoleOf(all, *view);
        views.push_back({view.get(), all.OutlineOf(*view), role, ShowsOf(all, *view, role),
                         LinesOf(all, *view)});
    }
    return views;
}

}  // namespace simhost
