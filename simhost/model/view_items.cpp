// Items of views: where they are in space, and what is seen of them.
#include "simhost/model/view_items.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>

#include "simhost/model/datums.h"
#include "simhost/model/frames.h"
#include "simhost/model/session.h"
#include "simhost/model/shape.h"
#include "simhost/model/shown.h"
#include "simhost/model/units.h"

namespace simhost {

namespace {

struct ViewItemRow {
    ProType type;
    const char* word;
};
constexpr ViewItemRow kViewItemRows[] = {
    {PRO_EDGE, "edge"}, {kEdgeStart, "start"},       {kEdgeEnd, "end"},      {kAxis, "axis"},
    {PRO_CSYS, "csys"}, {kSilhouette, "silhouette"}, {kDatumPlane, "datum"}, {kPoint, "point"},
};

constexpr double kSameInView = 1e-6;

double LengthOf(Vec3 v) {
    return std::sqrt(Dot(v, v));
}

SeenItem PointAt(Vec3 point) {
    SeenItem item;
    item.from = item.to = point;
    return item;
}

SeenItem LineBetween(Vec3 from, Vec3 to) {
    SeenItem item;
    item.kind = SeenItem::Kind::Line;
    item.from = from;
    item.to = to;
    return item;
}

const ShapeEdge* FindEdge(const PartShape& shape, int id) {
    for (const ShapeEdge& edge : shape.edges) {
        if (edge.id == id) return &edge;
    }
    return nullptr;
}

const ShapeFace* FindRound(const PartShape& shape, int id) {
    for (const ShapeFace& face : shape.faces) {
        if (face.id == id && IsRound(face.kind)) return &face;
    }
    return nullptr;
}

// Where a round face begins and ends along its axis: its rims, and the tip of a cone. `radius` is
// that of the face there.
struct AxisEnd {
    Vec3 centre;
    double radius;
};
std::vector<AxisEnd> EndsOf(const PartShape& shape, const ShapeFace& face) {
    std::vector<AxisEnd> ends;
    for (const ShapeEdge& edge : shape.edges) {
        const bool bounds = edge.faces[0] == face.id || edge.faces[1] == face.id;
        if (bounds && edge.kind == EdgeKind::Circle) {
            ends.push_back({edge.frame.origin, edge.radius});
        }
    }
    if (ends.size() == 1 && face.slope != 0) {
        ends.push_back({face.origin + -face.radius / face.slope * face.axis, 0});
    }
    if (ends.size() != 2) ends.clear();
    return ends;
}

// Side 1 or 2 of a round face that is seen from beside.
std::optional<SeenItem> SilhouetteOf(const std::vector<AxisEnd>& ends, int side,
                                     const Placement& placement, double unit) {
    if (ends.size() != 2 || (side != 1 && side != 2)) return std::nullopt;
    const Vec3 from = placement.Point(ends[0].centre), to = placement.Point(ends[1].centre);
    const Vec3 axis = 1 / LengthOf(to - from) * (to - from);
    const bool cone = std::fabs(ends[0].radius - ends[1].radius) > kSameInView;
    if (std::fabs(axis.z) > (cone ? kSameInView : 1 - kSameInView)) return std::nullopt;
    const Vec3 across = Cross(axis, {0, 0, 1});
    const double way = (side == 1 ? unit : -unit) / LengthOf(across);
    return LineBetween(from + way * ends[0].radius * across, to + way * ends[1].radius * across);
}

SeenItem EdgeIn(const ShapeEdge& edge, const Placement& placement, double unit) {
    SeenItem item = LineBetween(placement.Point(edge.from), placement.Point(edge.to));
    if (edge.kind == EdgeKind::Line) return item;
    item.kind = SeenItem::Kind::Circle;
    item.circle = Compose(placement, edge.frame);
    for (Vec3& axis : item.circle.axes) axis = 1 / unit * axis;
    item.radius = unit * edge.radius;
    return item;
}

// The line through a point of it, as long as the part beside it; `way` is of length 1.
SeenItem EndlessLine(const PartShape& shape, const Placement& placement, Vec3 point, Vec3 way) {
    constexpr double kBare = 50;  // mm to both sides where there is no material
    Placement along;
    for (std::size_t i = 0; i < 3; ++i) along.axes[i] = {Dot(placement.axes[i], way), 0, 0};
    along.origin = {Dot(placement.origin - point, way), 0, 0};
    const Extents reach = ExtentsIn(shape, along);
    const double low = reach.empty ? -kBare : reach.low.x;
    const double high = reach.empty ? kBare : reach.high.x;
    SeenItem item = LineBetween(point + low * way, point + high * way);
    item.endless = true;
    return item;
}

// The z axis of a datum's frame is the normal of a plane and the direction of an axis.
std::optional<SeenItem> DatumIn(const PartShape& shape, const Feature& datum,
                                const Placement& placement, double unit) {
    const Vec3 point = placement.Point(datum.placement.origin);
    if (datum.type == kDatumPointFeature || datum.type == PRO_FEAT_CSYS) return PointAt(point);
    const Vec3 z = 1 / unit * placement.Direction(datum.placement.axes[2]);
    if (datum.type == kDatumPlaneFeature) {
        if (std::fabs(z.z) > kSameInView) return std::nullopt;
        return EndlessLine(shape, placement, point, {-z.y, z.x, 0});
    }
    if (std::hypot(z.x, z.y) < kSameInView) return PointAt(point);
    return EndlessLine(shape, placement, point, z);
}

// `placement` takes the owner's points to what is seen.
std::optional<SeenItem> ItemIn(Model& owner, const ItemWay& way, const Placement& placement,
                               double unit) {
    const PartShape& shape = owner.shape();
    const Feature* datum = FindDatum(owner, way.type, way.id);
    if (datum && IsDatumThere(*datum)) return DatumIn(shape, *datum, placement, unit);
    if (owner.type != PRO_MDL_PART) return std::nullopt;
    if (way.type == PRO_EDGE || way.type == kEdgeStart || way.type == kEdgeEnd) {
        const ShapeEdge* edge = FindEdge(shape, way.id);
        if (!edge) return std::nullopt;
        if (way.type == PRO_EDGE) return EdgeIn(*edge, placement, unit);
        return PointAt(placement.Point(way.type == kEdgeStart ? edge->from : edge->to));
    }
    const bool axis = way.type == kAxis;
    if (!axis && way.type != kSilhouette) return std::nullopt;
    const ShapeFace* face = FindRound(shape, axis ? way.id : way.id / 10);
    if (!face) return std::nullopt;
    const std::vector<AxisEnd> ends = EndsOf(shape, *face);
    if (!axis) return SilhouetteOf(ends, way.id % 10, placement, unit);
    if (ends.empty()) return std::nullopt;
    SeenItem line = LineBetween(placement.Point(ends[0].centre), placement.Point(ends[1].centre));
    line.endless = true;
    return line;
}

// The model at the end of a way; `placement` becomes what takes its points, in its unit, to what is
// seen. Null: something on the way is not there.
Model* Follow(const DrawingView& view, const std::vector<int>& path, Placement* placement,
              double* unit) {
    Model* model = ModelOf(view);
    if (!model) return nullptr;
    *placement = DrawingOf(*view.drawing).FrameOf(view);
    for (const int id : path) {
        const Feature* feature = model->FindFeature(id);
        if (!feature || !feature->model) return nullptr;
        *placement = Compose(*placement, PlaceInMm(feature->placement, *model));
        model = feature->model;
    }
    *unit = LengthUnit(*model);
    for (Vec3& axis : placement->axes) axis = *unit * axis;
    return model;
}

void AddItemsOf(const Model& part, const std::vector<int>& path, ProType type,
                std::vector<ItemWay>* ways) {
    const PartShape& shape = part.shape();
    if (type == PRO_EDGE || type == kEdgeStart || type == kEdgeEnd) {
        for (const ShapeEdge& edge : shape.edges) ways->push_back({path, type, edge.id});
    }
    for (const ShapeFace& face : shape.faces) {
        if (!IsRound(face.kind)) continue;
        if (type == kAxis) ways->push_back({path, type, face.id});
        if (type != kSilhouette) continue;
        for (const int side : {1, 2}) ways->push_back({path, type, 10 * face.id + side});
    }
    for (const Feature& feature : part.features()) {
        const DatumKind* kind = DatumKindOf(feature);
        if (!kind || kind->item != type || !IsDatumThere(feature)) continue;
        ways->push_back({path, type, DatumIdOf(feature)});
    }
}

std::optional<int> NumberIn(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) return {};
    return number;
}

}  // namespace

const char* ViewItemWord(ProType type) {
    for (const ViewItemRow& row : kViewItemRows) {
        if (row.type == type) return row.word;
    }
    return nullptr;
}

std::optional<ProType> ViewItemOfWord(const std::string& word) {
    for (const ViewItemRow& row : kViewItemRows) {
        if (word == row.word) return row.type;
    }
    return std::nullopt;
}

std::optional<SeenItem> SeenIn(const DrawingView& view, const ItemWay& way) {
    Placement placement;
    double unit = 1;
    Model* owner = Follow(view, way.path, &placement, &unit);
    if (!owner) return std::nullopt;
    std::optional<SeenItem> item = ItemIn(*owner, way, placement, unit);
    if (item) item->scale = unit;
    return item;
}

Vec3 OntoSheet(const DrawingView& view, Vec3 seen) {
    return DrawingOf(*view.drawing).ToSheet(view, seen);
}

Vec3 UsualPointOf(const SeenItem& item) {
    return item.kind == SeenItem::Kind::Circle ? item.from : 0.5 * (item.from + item.to);
}

Vec3 NearestOf(const SeenItem& item, const DrawingView& view, Vec3 onSheet) {
    const auto offSheet = [&](Vec3 point) {
        const Vec3 off = OntoSheet(view, point) - onSheet;
        return std::hypot(off.x, off.y);
    };
    if (item.kind == SeenItem::Kind::Point) return item.from;
    if (item.kind == SeenItem::Kind::Line) {
        const Vec3 a = OntoSheet(view, item.from), way = OntoSheet(view, item.to) - a;
        const double square = Dot(way, way);
        const double part = square > 0 ? Dot(onSheet - a, way) / square : 0.5;
        return item.from + std::clamp(part, 0.0, 1.0) * (item.to - item.from);
    }
    constexpr int kSteps = 360;
    Vec3 best = item.from;
    for (int i = 0; i < kSteps; ++i) {
        const double angle = 2 * std::acos(-1.0) * i / kSteps;
        const Vec3 point =
            item.circle.Point({item.radius * std::cos(angle), item.radius * std::sin(angle), 0});
        if (offSheet(point) < offSheet(best) - kSameInView) best = point;
    }
    return best;
}

std::vector<ItemWay> ItemsOfView(const DrawingView& view, const std::vector<ProType>& types) {
    std::vector<ItemWay> ways;
    const Model* model = ModelOf(view);
    if (!model) return ways;
    VisitShown(*model, Sight::Views, [&](const ShownPart& shown) {
        for (const ProType type : types) AddItemsOf(*shown.part, *shown.path, type, &ways);
    });
    std::erase_if(ways, [&](const ItemWay& way) { return !SeenIn(view, way); });
    return ways;
}

Selection SelectionOf(const DrawingView& view, const ItemWay& way, Vec3 seen) {
    Placement placement;
    double unit = 1;
    Model* owner = Follow(view, way.path, &placement, &unit);
    Selection selection;
    selection.item = {way.type, way.id, owner ? owner->handle : nullptr};
    selection.top = ModelOf(view);
    selection.path = way.path;
    selection.view = view.handle;
    for (Vec3& axis : placement.axes) axis = 1 / unit * axis;
    selection.point = 1 / unit * Inverse(placement).Point(seen);
    return selection;
}

ItemWay WayOf(const Selection& selection) {
    return {selection.path, selection.item.type, selection.item.id};
}

std::string WordsOf(const ItemWay& way) {
    std::string words;
    for (const int id : way.path) words += fmt::format("{}/", id);
    const char* word = ViewItemWord(way.type);
    return words + fmt::format("{}#{}", word ? word : "item", way.id);
}

std::optional<ItemWay> ParseWay(const std::string& words) {
    ItemWay way;
    std::string_view rest = words;
    for (std::size_t slash = rest.find('/'); slash != std::string_view::npos;
         slash = rest.find('/')) {
        const auto id = NumberIn(rest.substr(0, slash));
        if (!id) return std::nullopt;
        way.path.push_back(*id);
        rest.remove_prefix(slash + 1);
    }
    const std::size_t hash = rest.find('#');
    if (hash != std::string_view::npos) {
        const auto type = ViewItemOfWord(std::string(rest.substr(0, hash)));
        if (!type) return std::nullopt;
        way.type = *type;
        rest.remove_prefix(hash + 1);
    }
    const auto id = NumberIn(rest);
    if (!id) return std::nullopt;
    way.id = *id;
    return way;
}

}  // namespace simhost
