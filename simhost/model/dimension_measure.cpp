// Dimensions are measured in the plane of the sheet: what lies behind one another counts as one.
#include "simhost/model/dimension_measure.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "simhost/model/units.h"

namespace simhost {

namespace {

constexpr double kSame = 1e-6;
constexpr double kParallel = 1e-6;  // sine of the angle

// What an attachment is in the plane of the sheet, in mm of the model.
struct Mark {
    enum class Kind { Point, Line, Circle } kind = Kind::Point;
    Vec3 from, to;
    double radius = 0;   // of a circle, whose centre is `from`
    bool round = false;  // a line: a circle that is seen on edge
    bool endless = false;
};

Vec3 Flat(Vec3 v) {
    return {v.x, v.y, 0};
}

double Length(Vec3 v) {
    return std::hypot(v.x, v.y);
}

double Wedge(Vec3 a, Vec3 b) {
    return a.x * b.y - a.y * b.x;
}

Mark PointMark(Vec3 point) {
    return {Mark::Kind::Point, Flat(point), Flat(point)};
}

Mark LineMark(Vec3 from, Vec3 to) {
    // Seen along itself it is a point.
    if (Length(to - from) < kSame) return PointMark(from);
    return {Mark::Kind::Line, Flat(from), Flat(to)};
}

Mark MarkOf(const SeenItem& item) {
    switch (item.kind) {
        case SeenItem::Kind::Point: return PointMark(item.from);
        case SeenItem::Kind::Line: {
            Mark line = LineMark(item.from, item.to);
            line.endless = item.endless;
            return line;
        }
        case SeenItem::Kind::Circle: break;
    }
    const Vec3 centre = item.circle.origin;
    const Vec3 normal = Cross(item.circle.axes[0], item.circle.axes[1]);
    if (std::fabs(normal.z) > kSame) {
        return {Mark::Kind::Circle, Flat(centre), Flat(centre), item.radius};
    }
    const Vec3 across = item.radius / Length(normal) * Vec3{-normal.y, normal.x, 0};
    Mark mark = LineMark(centre - across, centre + across);
    mark.round = true;
    return mark;
}

// The point of an item that a sense names. Nothing, and *status: there is none.
std::optional<Mark> PointBySense(const SeenItem& item, int sense, ProError* status) {
    *status = PRO_TK_BAD_INPUTS;
    if (item.endless) return std::nullopt;
    if (item.kind == SeenItem::Kind::Line && sense == 1) return PointMark(item.from);
    if (item.kind == SeenItem::Kind::Line && sense == 2) return PointMark(item.to);
    if (item.kind != SeenItem::Kind::Circle || sense != 3) return std::nullopt;
    // On edge it is a line, and a line has no centre.
    *status = PRO_TK_GENERAL_ERROR;
    if (MarkOf(item).kind != Mark::Kind::Circle) return std::nullopt;
    return PointMark(item.circle.origin);
}

std::optional<Mark> MarkOf(const DrawingView& view, const Attachment& attachment,
                           ProError* status) {
    *status = PRO_TK_BAD_INPUTS;
    const std::optional<SeenItem> item = SeenIn(view, attachment.way);
    if (!item) return std::nullopt;
    if (attachment.senseType == 0) return MarkOf(*item);
    if (attachment.senseType != 1) return std::nullopt;
    return PointBySense(*item, attachment.sense, status);
}

std::optional<std::vector<Mark>> MarksOf(const DrawingView& view, const std::vector<Attachment>& to,
                                         ProError* status) {
    std::vector<Mark> marks;
    for (const Attachment& each : to) {
        const auto mark = MarkOf(view, each, status);
        if (!mark) return std::nullopt;
        marks.push_back(*mark);
    }
    // Of two, a circle counts by its centre.
    if (marks.size() == 2) {
        for (Mark& mark : marks) {
            if (mark.kind == Mark::Kind::Circle) mark = PointMark(mark.from);
        }
    }
    return marks;
}

bool IsLine(const Mark& mark) {
    return mark.kind == Mark::Kind::Line;
}

Vec3 WayOf(const Mark& line) {
    return 1 / Length(line.to - line.from) * (line.to - line.from);
}

bool AreParallel(const Mark& a, const Mark& b) {
    return std::fabs(Wedge(WayOf(a), WayOf(b))) < kParallel;
}

DimensionKind KindByHint(int hint) {
    if (hint == 1) return DimensionKind::Vertical;
    return hint == 2 ? DimensionKind::Horizontal : DimensionKind::Slanted;
}

std::optional<DimensionKind> KindOfMarks(const std::vector<Mark>& marks, int hint) {
    const Mark& first = marks.front();
    if (marks.size() == 1) {
        if (first.kind == Mark::Kind::Point || first.endless) return std::nullopt;
        if (IsLine(first)) return first.round ? DimensionKind::Slanted : KindByHint(hint);
        return hint == 3 ? DimensionKind::Diameter : DimensionKind::Radius;
    }
    const bool lines = IsLine(first) && IsLine(marks[1]);
    if (lines && !AreParallel(first, marks[1])) return DimensionKind::Angle;
    if (IsLine(first) || IsLine(marks[1])) return DimensionKind::Slanted;
    return KindByHint(hint);
}

// --- Values; `place` is that of the text, in mm of the model ---

// The end of a line that is nearer to the text, looked at along the line.
Vec3 EndNear(const Mark& line, Vec3 place) {
    const Vec3 way = WayOf(line);
    const double at = Dot(place, way);
    const double from = std::fabs(Dot(line.from, way) - at);
    return from < std::fabs(Dot(line.to, way) - at) ? line.from : line.to;
}

struct Stretch {
    Vec3 from, to, along;
};

std::optional<Stretch> StraightStretch(const std::vector<Mark>& marks, Vec3 place) {
    const Mark& a = marks.front();
    const auto between = [](Vec3 from, Vec3 to, Vec3 along) { return Stretch{from, to, along}; };
    if (marks.size() == 1) return between(a.from, a.to, IsLine(a) ? WayOf(a) : Vec3());
    const Mark& b = marks[1];
    if (IsLine(a) && IsLine(b)) {
        if (!AreParallel(a, b)) return std::nullopt;
        const Vec3 way = WayOf(a);
        return between(EndNear(a, place), EndNear(b, place), {-way.y, way.x, 0});
    }
    if (IsLine(a) || IsLine(b)) {
        const Mark& line = IsLine(a) ? a : b;
        const Vec3 way = WayOf(line), point = IsLine(a) ? b.from : a.from;
        return between(EndNear(line, place), point, {-way.y, way.x, 0});
    }
    const double length = Length(b.from - a.from);
    if (length < kSame) return std::nullopt;
    return between(a.from, b.from, 1 / length * (b.from - a.from));
}

std::optional<MeasuredDimension> MeasureLength(DimensionKind kind, const std::vector<Mark>& marks,
                                               Vec3 place) {
    const auto stretch = StraightStretch(marks, place);
    if (!stretch) return std::nullopt;
    MeasuredDimension measured;
    measured.from = stretch->from;
    measured.to = stretch->to;
    measured.along = kind == DimensionKind::Horizontal ? Vec3{1, 0, 0}
                     : kind == DimensionKind::Vertical ? Vec3{0, 1, 0}
                                                       : stretch->along;
    measured.value = std::fabs(Dot(measured.to - measured.from, measured.along));
    if (measured.value < kSame) return std::nullopt;
    return measured;
}

std::optional<MeasuredDimension> MeasureAngle(const Mark& a, const Mark& b, Vec3 place) {
    const Vec3 one = WayOf(a), other = WayOf(b);
    const double sine = Wedge(one, other);
    if (std::fabs(sine) < kParallel) return std::nullopt;
    MeasuredDimension measured;
    measured.vertex = a.from + Wedge(b.from - a.from, other) / sine * one;
    // The text lies between one direction of each line.
    const Vec3 off = place - measured.vertex;
    const double alongOne = Wedge(off, other) / sine, alongOther = Wedge(one, off) / sine;
    std::pair<Vec3, const Mark*> sides[] = {{(alongOne < 0 ? -1 : 1) * one, &a},
                                            {(alongOther < 0 ? -1 : 1) * other, &b}};
    if (Wedge(sides[0].first, sides[1].first) < 0) std::swap(sides[0], sides[1]);
    for (std::size_t i = 0; i < 2; ++i) {
        const auto& [way, line] = sides[i];
        measured.sides[i] = way;
        measured.reach[i] = std::max(
            {0.0, Dot(line->from - measured.vertex, way), Dot(line->to - measured.vertex, way)});
    }
    const double between =
        std::atan2(Wedge(sides[0].first, sides[1].first), Dot(sides[0].first, sides[1].first));
    measured.value = between * 180 / std::acos(-1.0);
    return measured;
}

std::optional<MeasuredDimension> MeasureMarks(DimensionKind kind, const std::vector<Mark>& marks,
                                              Vec3 place) {
    const Mark& first = marks.front();
    const bool round = kind == DimensionKind::Radius || kind == DimensionKind::Diameter;
    if (round) {
        if (marks.size() != 1 || first.kind != Mark::Kind::Circle) return std::nullopt;
        MeasuredDimension measured;
        measured.from = measured.to = first.from;
        measured.radius = first.radius;
        measured.value = (kind == DimensionKind::Diameter ? 2 : 1) * first.radius;
        return measured;
    }
    if (kind != DimensionKind::Angle) return MeasureLength(kind, marks, place);
    if (marks.size() != 2 || !IsLine(first) || !IsLine(marks[1])) return std::nullopt;
    return MeasureAngle(first, marks[1], place);
}

// From mm of the model to the sheet; the value into the unit of the model.
void PutOnSheet(const DrawingView& view, DimensionKind kind, MeasuredDimension* measured) {
    const double scale = Drawing::ScaleOf(view);
    const Model* model = ModelOf(view);
    if (kind != DimensionKind::Angle && model) {
        measured->value = Converted(measured->value, 1, LengthUnit(*model));
    }
    for (Vec3* point : {&measured->from, &measured->to, &measured->vertex}) {
        *point = OntoSheet(view, *point);
    }
    measured->radius *= scale;
    for (double& reach : measured->reach) reach *= scale;
}

}  // namespace

std::optional<MeasuredDimension> Measure(Model& drawing, const Dimension& dimension) {
    const DrawingView* view = ViewOf(drawing, dimension);
    ProError ignored = PRO_TK_NO_ERROR;
    const auto marks =
        view ? MarksOf(*view, dimension.to, &ignored) : std::optional<std::vector<Mark>>();
    if (!marks || marks->empty()) return std::nullopt;
    const Vec3 place = 1 / Drawing::ScaleOf(*view) * dimension.at;
    auto measured = MeasureMarks(dimension.kind, *marks, place);
    if (measured) PutOnSheet(*view, dimension.kind, &*measured);
    return measured;
}

std::optional<DimensionKind> KindOf(const DrawingView& view, const std::vector<Attachment>& to,
                                    int hint, ProError* status) {
    *status = PRO_TK_BAD_INPUTS;
    if (to.empty() || to.size() > 2 || hint < 0 || hint > 3) return std::nullopt;
    const auto marks = MarksOf(view, to, status);
    if (!marks) return std::nullopt;
    *status = PRO_TK_GENERAL_ERROR;
    if (to.size() == 2 && to[0] == to[1]) return std::nullopt;
    const auto kind = KindOfMarks(*marks, hint);
    if (!kind || !MeasureMarks(*kind, *marks, {})) return std::nullopt;
    return kind;
}

void Remeasure(Model& drawing, Dimension* dimension) {
    const auto measured = Measure(drawing, *dimension);
    if (measured) dimension->value = measured->value;
}

void RemeasureSheet(Model& drawing, int sheet) {
    for (const auto& view : DrawingOf(drawing).views()) {
        if (view->sheet != sheet) continue;
        for (auto& [id, dimension] : AnnotationsOf(drawing).dimensions()) {
            if (dimension.view == view->id) Remeasure(drawing, &dimension);
        }
    }
}

}  // namespace simhost
