// What is on a sheet of a drawing, as lines.
#include "simhost/picture/sheet_lines.h"

#include <algorithm>
#include <cmath>

#include "simhost/picture/kept_lines.h"
#include "simhost/picture/lines_once.h"

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

// What draughtsmen call a view: after the side that it shows, whatever side of its parent it is on.
std::string NameOf(const std::string& role, const std::string& shows) {
    struct Row {
        const char* shows;
        const char* name;
    };
    static constexpr Row kNames[] = {{"from the front", "主视图"}, {"from behind", "后视图"},
                                     {"from above", "俯视图"},     {"from below", "仰视图"},
                                     {"from the left", "左视图"},  {"from the right", "右视图"}};
    for (const Row& row : kNames) {
        if (shows == row.shows) return row.name;
    }
    return role == "isometric" ? "轴测图" : role == "general" ? "一般视图" : "投影视图";
}

std::vector<DrawnLine> DrawLines(const Drawing& drawing, const DrawingView& view,
                                 const std::vector<ShownPart>& parts) {
    const bool withHidden = view.display.style != PRO_DISPSTYLE_NO_HIDDEN;
    std::vector<DrawnLine> lines = ProjectedLines(parts, drawing.FrameOf(view), withHidden);
    for (DrawnLine& line : lines) {
        const Vec3 a = drawing.ToSheet(view, {line.x0, line.y0, 0});
        const Vec3 b = drawing.ToSheet(view, {line.x1, line.y1, 0});
        // A wireframe shows all edges alike.
        const bool hidden = line.hidden && view.display.style != PRO_DISPSTYLE_WIREFRAME;
        line = {a.x, a.y, b.x, b.y, hidden};
    }
    KeepEachLineOnce(&lines);
    return lines;
}

std::vector<DrawnLine> LinesOf(const Drawing& drawing, const DrawingView& view) {
    const Model* model = ModelOf(view);
    if (!model) return {};
    const std::vector<ShownPart> parts = ShownParts(*model, Sight::Views);
    return KeptLines(drawing, view, parts, [&] { return DrawLines(drawing, view, parts); });
}

}  // namespace

std::vector<ViewOnSheet> ViewsOnSheet(Model& drawing, int sheet) {
    Drawing& all = DrawingOf(drawing);
    std::vector<ViewOnSheet> views;
    for (const auto& view : all.views()) {
        if (view->sheet != sheet) continue;
        const std::string role = RoleOf(all, *view);
        const std::string shows = ShowsOf(all, *view, role);
        views.push_back({view.get(), all.OutlineOf(*view), role, shows, NameOf(role, shows),
                         LinesOf(all, *view)});
    }
    return views;
}

Path LinesOf(const ViewOnSheet& view, bool hidden, Vec3 upperLeft) {
    Path path;
    const DrawnLine* last = nullptr;
    for (const DrawnLine& line : view.lines) {
        if (line.hidden != hidden) continue;
        const bool goesOn = last && std::hypot(last->x1 - line.x0, last->y1 - line.y0) < 1e-6;
        if (!goesOn) path.MoveTo(line.x0 - upperLeft.x, upperLeft.y - line.y0);
        path.LineTo(line.x1 - upperLeft.x, upperLeft.y - line.y1);
        last = &line;
    }
    return path;
}

}  // namespace simhost
