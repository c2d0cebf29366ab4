// What can be picked and measured in a view of a drawing: edges, their ends, axes, silhouettes,
// datums, each as it is seen on the sheet.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simhost/model/drawing.h"
#include "simhost/model/selections.h"

namespace simhost {

// Kinds of items beside those that the door has names for. A silhouette is no item of a model, and
// a datum plane is a surface of it, so their kinds never leave the host.
inline constexpr ProType kEdgeStart = ProType(71), kEdgeEnd = ProType(72);
inline constexpr ProType kAxis = ProType(23), kPoint = ProType(29), kNote = ProType(32);
inline constexpr ProType kSilhouette = ProType(-100), kDatumPlane = ProType(-101);

// The words of scripts and files for kinds of items in views: "edge", "start", "end", "axis",
// "csys", "silhouette", "datum" (a plane), "point". Null and nothing for all others.
const char* ViewItemWord(ProType type);
std::optional<ProType> ViewItemOfWord(const std::string& word);

// What a view shows of an item, in mm of the model and along the axes of the sheet (x right, y up,
// z to the viewer).
struct SeenItem {
    enum class Kind { Point, Line, Circle } kind = Kind::Point;
    Vec3 from, to;      // a point: both are it; a circle: a point of it
    Placement circle;   // its centre, and its plane by the x and y axes
    double radius = 0;  // of a circle
    double scale = 1;   // mm of one unit of its model

    // A line that ends nowhere: how far it is drawn says nothing.
    bool endless = false;
};

// An item of a view by the way of components to it from the view's model. The ids of axes are those
// of their round faces, or of datums; of silhouettes ten times those of faces, and 1 or 2. Nothing:
// it is not there, or, a silhouette or a datum plane, is not seen as a line from here.
struct ItemWay {
    std::vector<int> path;
    ProType type = PRO_EDGE;
    int id = 0;
    bool operator==(const ItemWay&) const = default;
};
std::optional<SeenItem> SeenIn(const DrawingView& view, const ItemWay& way);

// Between the model's mm along the sheet and the sheet itself; there z is lost.
Vec3 OntoSheet(const DrawingView& view, Vec3 seen);

// The point of an item that is seen nearest to a place on the sheet.
Vec3 NearestOf(const SeenItem& item, const DrawingView& view, Vec3 onSheet);
// Its middle; of a circle the point where it begins.
Vec3 UsualPointOf(const SeenItem& item);

// Everything of these kinds that can be picked in a view, in the order of the tree.
std::vector<ItemWay> ItemsOfView(const DrawingView& view, const std::vector<ProType>& types);

// The item as the user has picked it, at a point given as SeenIn does.
Selection SelectionOf(const DrawingView& view, const ItemWay& way, Vec3 seen);
// The way to what was picked in a view.
ItemWay WayOf(const Selection& selection);

// "2/17", with the kind of what is no edge "2/start#17", with components "2/12/edge#17".
std::string WordsOf(const ItemWay& way);
// Ids of components, / between them, and the item. Nothing: these are no such words.
std::optional<ItemWay> ParseWay(const std::string& words);

}  // namespace simhost
