// What filters take, and what lies in a box on the screen.
#include "simhost/model/picking.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <unordered_map>

#include "simhost/core/text.h"
#include "simhost/model/annotations.h"
#include "simhost/model/screen_view.h"
#include "simhost/model/session.h"
#include "simhost/model/shape.h"
#include "simhost/model/shown.h"
#include "simhost/model/view_items.h"

namespace simhost {

namespace {

// The words of filters. Parts here have no quilts, so nothing is a surface of one.
const std::map<std::string, std::vector<ProType>>& FilterWords() {
    static const std::map<std::string, std::vector<ProType>> words = {
        {"part", {PRO_PART}},
        {"prt_or_asm", {PRO_PART, PRO_ASSEMBLY}},
        {"surface", {PRO_SURFACE}},
        {"sldface", {PRO_SURFACE}},
        {"qltface", {}},
        // In drawings. Parts have no curves.
        {"edge", {PRO_EDGE}},
        {"sldedge", {PRO_EDGE}},
        {"qltedge", {}},
        {"edge_end", {kEdgeStart, kEdgeEnd}},
        {"silhedge", {kSilhouette}},
        {"dtl_axis", {kAxis}},
        {"csys", {PRO_CSYS}},
        {"point", {kPoint}},
        {"datum", {kDatumPlane}},
        {"curve", {}},
        {"dimension", {PRO_DIMENSION}},
    };
    return words;
}

std::vector<std::string> WordsOf(const std::string& filter) {
    std::vector<std::string> words;
    std::size_t from = 0;
    for (std::size_t to = 0; to != std::string::npos; from = to + 1) {
        to = filter.find(',', from);
        words.push_back(filter.substr(from, to == std::string::npos ? to : to - from));
    }
    return words;
}

bool IsModel(ProType type) {
    return type == PRO_PART || type == PRO_ASSEMBLY;
}

std::string NameOf(const Session& session, const Selection& selection) {
    const Model* model = session.Find(selection.item.owner);
    const std::string file = model ? model->FileName() : "an erased model";
    if (IsModel(selection.item.type)) return file;
    if (const char* word = ViewItemWord(selection.item.type)) {
        return fmt::format("{} {} of {}", word, selection.item.id, file);
    }
    if (selection.item.type == PRO_DIMENSION) return fmt::format("dimension {}", selection.item.id);
    if (selection.item.type == kNote) return fmt::format("note {}", selection.item.id);
    return fmt::format("{}#{} (an item of type {})", file, selection.item.id,
                       int(selection.item.type));
}

// The corners of a part by its surfaces.
using Corners = std::map<int, std::vector<Vec3>>;

Corners CornersOf(const Model& part) {
    Corners corners;
    for (const ShapeBody& body : part.shape().bodies) {
        for (const SolidFace& face : FacetsOf(body)) {
            std::vector<Vec3>& points = corners[face.surface];
            for (const Facet& facet : face.facets) {
                points.insert(points.end(), facet.corners.begin(), facet.corners.end());
            }
        }
    }
    return corners;
}

// `unit` is that of the screen's matrix, in mm.
bool LiesIn(const ScreenBox& box, const std::vector<Vec3>& points, const Placement& placement,
            const ProMatrix toScreen, double unit) {
    const double left = std::min(box.x0, box.x1), right = std::max(box.x0, box.x1);
    const double low = std::min(box.y0, box.y1), high = std::max(box.y0, box.y1);
    return std::all_of(points.begin(), points.end(), [&](Vec3 point) {
        const Vec3 p = 1 / unit * placement.Point(point);
        const auto along = [&](std::size_t axis) {
            return p.x * toScreen[0][axis] + p.y * toScreen[1][axis] + p.z * toScreen[2][axis] +
                   toScreen[3][axis];
        };
        const double x = along(0), y = along(1);
        return x >= left && x <= right && y >= low && y <= high;
    });
}

}  // namespace

std::string Picking::UnknownWord(const std::string& filter) {
    for (const std::string& word : WordsOf(filter)) {
        if (FilterWords().count(word) == 0) return word.empty() ? "an empty word" : word;
    }
    return {};
}

Picking::Picking(Session& session, const std::string& filter, int most, bool byBox)
    : session_(session), filter_(filter), most_(most), byBox_(byBox) {
    for (const std::string& word : WordsOf(filter)) {
        const auto found = FilterWords().find(word);
        if (found == FilterWords().end()) continue;
        types_.insert(types_.end(), found->second.begin(), found->second.end());
    }
}

bool Picking::Allows(ProType type) const {
    return std::find(types_.begin(), types_.end(), type) != types_.end();
}

std::string Picking::Question() const {
    const std::string number = most_ < 0 ? "any number" : fmt::format("at most {}", most_);
    return fmt::format("{}, {}{}", filter_, number, byBox_ ? ", or a box" : "");
}

std::string Picking::Take(std::vector<Selection> items) {
    for (const Selection& each : items) {
        if (Allows(each.item.type)) continue;
        return fmt::format("{} cannot be picked now, only {}", NameOf(session_, each), filter_);
    }
    if (most_ >= 0 && items.size() > std::size_t(most_)) {
        return fmt::format("{} are too many: at most {} can be picked", items.size(), most_);
    }
    taken_ = std::move(items);
    answered_ = true;
    return {};
}

std::string Picking::TakeBox(const ScreenBox& box) {
    if (!byBox_) return "no box can be drawn now: items are picked one by one";
    std::vector<Selection> inside = OnScreen(&box, std::numeric_limits<std::size_t>::max());
    if (inside.empty()) return "nothing that can be picked lies wholly in this box";
    return Take(std::move(inside));
}

std::vector<Selection> Picking::First() const {
    return OnScreen(nullptr, 1);
}

std::vector<Selection> Picking::OnScreen(const ScreenBox* box, std::size_t most) const {
    std::vector<Selection> found;
    Model* current = session_.CurrentModel();
    if (!current) return found;
    if (current->type == PRO_MDL_DRAWING) return box ? found : OnSheet(*current, most);
    Model& top = ContentsOf(*current);
    const ScreenView& view = ScreenOf(top);
    std::unordered_map<const Model*, Corners> known;
    const auto isIn = [&](const std::vector<Vec3>& points, const Placement& placement) {
        return !box || LiesIn(*box, points, placement, view.matrix, LengthUnit(top));
    };
    VisitShown(top, Sight::Screen, [&](const ShownPart& shown) {
        if (found.size() >= most) return;
        const auto [corners, isNew] = known.try_emplace(shown.part);
        if (isNew) corners->second = CornersOf(*shown.part);
        const auto& surfaces = corners->second;
        const bool whole = std::all_of(surfaces.begin(), surfaces.end(), [&](const auto& each) {
            return isIn(each.second, shown.placement);
        });
        if (Allows(PRO_PART) && whole) {
            found.push_back({{PRO_PART, -1, shown.part->handle}, &top, *shown.path});
        }
        if (!Allows(PRO_SURFACE)) return;
        for (const auto& [id, points] : surfaces) {
            if (found.size() >= most) return;
            if (!isIn(points, shown.placement)) continue;
            found.push_back({{PRO_SURFACE, id, shown.part->handle}, &top, *shown.path});
        }
    });
    return found;
}

std::vector<Selection> Picking::OnSheet(Model& drawing, std::size_t most) const {
    std::vector<Selection> found;
    const auto isFull = [&] { return found.size() >= most; };
    if (Allows(PRO_DIMENSION)) {
        for (const auto& [id, dimension] : AnnotationsOf(drawing).dimensions()) {
            if (isFull()) return found;
            found.push_back({{PRO_DIMENSION, id, drawing.handle}, &drawing, {}});
        }
    }
    const Drawing& all = DrawingOf(drawing);
    for (const auto& view : all.views()) {
        if (view->sheet != all.currentSheet) continue;
        for (const ItemWay& way : ItemsOfView(*view, types_)) {
            if (isFull()) return found;
            found.push_back(SelectionOf(*view, way, UsualPointOf(*SeenIn(*view, way))));
        }
    }
    return found;
}

std::string Picking::TakeAt(double x, double y) {
    constexpr double kReach = 5;         // on the sheet
    constexpr double kPointReach = 1.5;  // of what has no length
    const Vec3 at{x, y, 0};
    Model* drawing = session_.CurrentModel();
    if (!drawing || drawing->type != PRO_MDL_DRAWING) return "a point can be picked on sheets only";
    double nearest = kReach;
    std::optional<Selection> best;
    const Drawing& all = DrawingOf(*drawing);
    for (const auto& view : all.views()) {
        if (view->sheet != all.currentSheet) continue;
        for (const ItemWay& way : ItemsOfView(*view, types_)) {
            const SeenItem item = *SeenIn(*view, way);
            const Vec3 point = NearestOf(item, *view, at), off = OntoSheet(*view, point) - at;
            const double distance = std::hypot(off.x, off.y);
            // A corner is taken before the edges that end there.
            const bool corner = item.kind == SeenItem::Kind::Point;
            if (corner && distance > kPointReach) continue;
            // Of what lies behind one another the foremost.
            constexpr double kForward = 1e-7;
            const double counted = (corner ? distance - kReach : distance) - kForward * point.z;
            if (counted >= nearest) continue;
            nearest = counted;
            best = SelectionOf(*view, way, point);
        }
    }
    if (!best) return fmt::format("nothing that can be picked is near {} {}", x, y);
    return Take({*best});
}

}  // namespace simhost
