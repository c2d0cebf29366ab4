// A picture of a sheet of a drawing. Lengths are those of the sheet, y upwards, until they are
// painted.
#include "simhost/picture/sheet.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "simhost/core/text.h"
#include "simhost/picture/sheet_dimensions.h"
#include "simhost/picture/sheet_furniture.h"
#include "simhost/picture/sheet_lines.h"
#include "simhost/picture/svg_canvas.h"

namespace simhost {

namespace {

constexpr const char* kVisible = "#16202a";
constexpr const char* kHidden = "#8a97a3";
constexpr const char* kOutline = "#7fb3e6";
constexpr const char* kMeasure = "#b3472f";
constexpr const char* kName = "#1d5fa8";
constexpr const char* kDark = "#26323d";

// Words in a gap of 50 must not fill it.
constexpr double kTallestWords = 22;

// A rectangle of the sheet.
struct Place {
    double x0, y0, x1, y1;
    bool Meets(const Place& other) const {
        return x0 < other.x1 && other.x0 < x1 && y0 < other.y1 && other.y0 < y1;
    }
};

Place PlaceOf(const Extents& extents) {
    return {extents.low.x, extents.low.y, extents.high.x, extents.high.y};
}

// A gap between views, from edge to edge.
struct Measured {
    Vec3 from, to;
    std::string text;
};

class SheetPainter {
public:
    SheetPainter(Model& drawing, int sheet)
        : model_(drawing),
          drawing_(DrawingOf(drawing)),
          sheet_(sheet),
          views_(ViewsOnSheet(drawing, sheet)),
          furniture_(FurnitureOf(drawing, sheet)) {
        const Sheet* present = drawing.drawingData.Find(sheet);
        sizeName_ = present ? present->size : WideText();
        size_ = SizeOfSheet(sizeName_);
        all_.Add({});
        all_.Add({size_.width, size_.height, 0});
        for (const ViewOnSheet& view : views_) {
            all_.Add(view.outline.low);
            all_.Add(view.outline.high);
        }
        unit_ = std::max(Wide(), High()) / 160;
        const double margin = 3 * unit_;
        all_.low = all_.low - Vec3{margin, margin + 5 * unit_, 0};
        all_.high = all_.high + Vec3{margin, margin, 0};
    }

    double Wide() const { return all_.high.x - all_.low.x; }
    double High() const { return all_.high.y - all_.low.y; }

    void Paint(Canvas& canvas) {
        canvas_ = &canvas;
        taken_.clear();
        measured_.clear();
        canvas.Box({0, 0, Wide(), High()}, "#e9edf0", nullptr);
        PaintFrame();
        PaintFurniture(furniture_, UpperLeft(), kDark, canvas_);
        for (const ViewOnSheet& view : views_) PaintView(view);
        PaintAnnotations(model_, sheet_, UpperLeft(), canvas_);
        // A sheet with a format is a workshop's, which tells nothing about the making of its views.
        if (furniture_.hasFormat) return PaintCaption();
        // Dimensions and notes stay where the draughtsman has put them. The sizes of gaps have one
        // place; names and the sign move out of their way.
        TakeAnnotations();
        for (const ViewOnSheet& view : views_) PaintGap(view);
        for (const Measured& one : measured_) PaintMeasuredText(one);
        PaintProjectionSign();
        for (const ViewOnSheet& view : views_) PaintName(view);
        PaintCaption();
    }

private:
    // From the sheet to the picture.
    Vec3 UpperLeft() const { return {all_.low.x, all_.high.y, 0}; }
    double X(double x) const { return x - all_.low.x; }
    double Y(double y) const { return all_.high.y - y; }
    void MoveTo(Path* path, double x, double y) const { path->MoveTo(X(x), Y(y)); }
    void LineTo(Path* path, double x, double y) const { path->LineTo(X(x), Y(y)); }
    void Line(double x0, double y0, double x1, double y1, const Pen& pen) {
        Path path;
        MoveTo(&path, x0, y0);
        LineTo(&path, x1, y1);
        canvas_->Stroke(path, pen);
    }
    void Box(const Place& place, const std::string& fill, const Pen& pen) {
        canvas_->Box({X(place.x0), Y(place.y1), place.x1 - place.x0, place.y1 - place.y0}, fill,
                     &pen);
    }
    void Words(double x, double y, const Letters& letters, const std::string& text) {
        canvas_->Text(X(x), Y(y), letters, text);
    }
    Pen Thin(const char* colour, double width) const { return {colour, width * unit_, {}, 1}; }

    bool IsFree(const Place& place) const {
        return std::none_of(taken_.begin(), taken_.end(),
                            [&](const Place& other) { return place.Meets(other); });
    }
    bool MeetsAView(const Place& place) const {
        return std::any_of(views_.begin(), views_.end(), [&](const ViewOnSheet& view) {
            return place.Meets(PlaceOf(view.outline));
        });
    }

    // Half as wide as high for each column of a terminal: as wide as the widest fonts are.
    static double WidthOf(const std::string& text, double size) {
        return 0.55 * size * double(DisplayWidth(text));
    }

    void TakeAnnotations() {
        for (const DrawnAnnotation& each : AnnotationsOnSheet(model_, sheet_)) {
            for (const DrawnText& text : each.texts) TakeText(text);
            for (const auto& [from, to] : each.lines) TakeLine(from, to);
        }
    }

    // The rectangle around a text, turned as it is; its letters reach a little below their line.
    void TakeText(const DrawnText& text) {
        const double wide = 0.62 * text.height * double(DisplayWidth(text.text));
        const Placement turned = PlacementFrom(text.at, {0, 0, text.turn});
        Extents around;
        for (const double x : {0.0, wide}) {
            for (const double y : {-0.25, 1.0}) around.Add(turned.Point({x, y * text.height, 0}));
        }
        taken_.push_back(PlaceOf(around));
    }

    // In short pieces, so that a slanting line does not take the whole rectangle around it.
    void TakeLine(Vec3 from, Vec3 to) {
        const double thick = 0.3 * unit_, length = std::hypot(to.x - from.x, to.y - from.y);
        const int pieces = std::clamp(int(length / (2 * unit_)), 1, 200);
        const Vec3 step = 1.0 / pieces * (to - from);
        for (int i = 0; i < pieces; ++i) {
            Extents around;
            around.Add(from + i * step);
            around.Add(from + (i + 1) * step);
            const Place place = PlaceOf(around);
            taken_.push_back(
                {place.x0 - thick, place.y0 - thick, place.x1 + thick, place.y1 + thick});
        }
    }

    void PaintFrame() {
        Box({0, 0, size_.width, size_.height}, "#ffffff", Thin("#9aa5ae", 0.15));
        if (furniture_.hasFormat) return;
        Box({kBorder, kBorder, size_.width - kBorder, size_.height - kBorder}, "",
            Thin(kDark, 0.25));
    }

    // The sign of the projection rule, a cone and its end, in the first corner of the frame that is
    // free of views and words; the end is on the far side by the first-angle rule.
    void PaintProjectionSign() {
        const double r = 1.4 * unit_, wide = 7.4 * r, high = 2.8 * r, gap = 1.2 * unit_;
        const double left = kBorder + gap, right = size_.width - kBorder - gap - wide;
        const double low = kBorder + gap, top = size_.height - kBorder - gap - high;
        const std::pair<double, double> corners[] = {
            {right, low}, {left, low}, {right, top}, {left, top}};
        for (const auto& [x, y] : corners) {
            const Place place{x, y, x + wide, y + high};
            if (!IsFree(place) || MeetsAView(place)) continue;
            taken_.push_back(place);
            return PaintSignAt(x, y, r);
        }
    }

    void PaintSignAt(double x, double y, double r) {
        const Pen edge = Thin(kVisible, 0.12);
        const Pen centre{kVisible, 0.06 * unit_, {1.2 * r, 0.2 * r, 0.2 * r, 0.2 * r}, 1};
        const double middle = y + 1.4 * r;
        const bool first = drawing_.rule == ProjectionRule::FirstAngle;
        const double ends[] = {x + 1.4 * r, x + 6.0 * r}, cones[] = {x + 5.6 * r, x + 1.4 * r};
        const double endX = ends[first ? 1 : 0], coneX = cones[first ? 1 : 0];
        for (const double radius : {r, r / 2}) {
            canvas_->Circle(X(endX), Y(middle), radius, edge);
        }
        Path cone;
        MoveTo(&cone, coneX - r, middle - r / 2);
        LineTo(&cone, coneX - r, middle + r / 2);
        LineTo(&cone, coneX + r, middle + r);
        LineTo(&cone, coneX + r, middle - r);
        cone.Close();
        canvas_->Stroke(cone, edge);
        Line(coneX - 1.4 * r, middle, coneX + 1.4 * r, middle, centre);
        Line(endX - 1.4 * r, middle, endX + 1.4 * r, middle, centre);
        Line(endX, middle - 1.4 * r, endX, middle + 1.4 * r, centre);
    }

    void PaintView(const ViewOnSheet& view) {
        canvas_->BeginGroup(fmt::format("view{}", view.view->id), view.name);
        if (!furniture_.hasFormat) {
            Pen outline = Thin(kOutline, 0.12);
            outline.dashes = {0.7 * unit_, 0.7 * unit_};
            Box(PlaceOf(view.outline), "", outline);
        }
        Pen dashed = Thin(kHidden, 0.07);
        dashed.dashes = {0.5 * unit_, 0.3 * unit_};
        canvas_->Stroke(LinesOf(view, /*hidden=*/true, UpperLeft()), dashed);
        canvas_->Stroke(LinesOf(view, /*hidden=*/false, UpperLeft()), Thin(kVisible, 0.12));
        canvas_->EndGroup();
    }

    // Below the view, or at the nearest place above or beside it that is free.
    void PaintName(const ViewOnSheet& view) {
        const double size = std::min(1.5 * unit_, kTallestWords);
        const double width = WidthOf(view.name, size);
        const Place box = PlaceOf(view.outline);
        const double middle = (box.x0 + box.x1 - width) / 2, below = box.y0 - 1.25 * size;
        const double above = box.y1 + 0.4 * size, beside = (box.y0 + box.y1) / 2;
        const std::pair<double, double> corners[] = {{middle, below},
                                                     {box.x0, below},
                                                     {box.x1 - width, below},
                                                     {middle, above},
                                                     {box.x0, above},
                                                     {box.x1 - width, above},
                                                     {box.x1 + size, beside},
                                                     {box.x0 - width - size, beside},
                                                     {middle, below - 1.5 * size}};
        for (const auto& [x, y] : corners) {
            const Place place{x, y - 0.25 * size, x + width, y + size};
            if (!IsFree(place) || MeetsAView(place)) continue;
            return NameAt(place, x, y, size, view.name);
        }
        NameAt({middle, below, middle + width, below + size}, middle, below, size, view.name);
    }
    void NameAt(const Place& place, double x, double y, double size, const std::string& name) {
        taken_.push_back(place);
        Words(x, y, {size, kName}, name);
    }

    const ViewOnSheet* ShownParent(const ViewOnSheet& view) const {
        for (const ViewOnSheet& other : views_) {
            if (other.view == view.view->parent) return &other;
        }
        return nullptr;
    }

    // From edge to edge of the two outlines, in the middle of the smaller one.
    void PaintGap(const ViewOnSheet& view) {
        const ViewOnSheet* parent = ShownParent(view);
        if (!parent) return;
        const Extents& a = view.outline;
        const Extents& b = parent->outline;
        const bool above = a.low.y >= b.high.y, below = a.high.y <= b.low.y;
        if (above || below) {
            const double from = above ? b.high.y : a.high.y, to = above ? a.low.y : b.low.y;
            // Beside the views, so that the name of the upper one stays readable.
            const double end = std::min(a.high.x, b.high.x), beside = end + 2 * unit_;
            for (const double y : {from, to}) {
                Line(end, y, beside + 0.5 * unit_, y, Thin(kMeasure, 0.08));
            }
            PaintMeasure({beside, from, 0}, {beside, to, 0}, to - from);
        } else {
            const bool right = a.low.x >= b.high.x;
            const double y = (std::max(a.low.y, b.low.y) + std::min(a.high.y, b.high.y)) / 2;
            const double from = right ? b.high.x : a.high.x, to = right ? a.low.x : b.low.x;
            PaintMeasure({from, y, 0}, {to, y, 0}, to - from);
        }
    }

    void PaintMeasure(Vec3 from, Vec3 to, double value) {
        const Vec3 way = to - from;
        const double length = std::hypot(way.x, way.y);
        if (length == 0) return;
        const Vec3 along = 1 / length * way, across{-along.y, along.x, 0};
        const double head = std::min(1.0 * unit_, length / 3);
        Path path;
        MoveTo(&path, from.x, from.y);
        LineTo(&path, to.x, to.y);
        for (const auto& [tip, sign] : {std::pair{from, 1.0}, std::pair{to, -1.0}}) {
            const Vec3 back = tip + sign * head * along;
            const Vec3 left = back + 0.3 * head * across, right = back - 0.3 * head * across;
            MoveTo(&path, left.x, left.y);
            LineTo(&path, tip.x, tip.y);
            LineTo(&path, right.x, right.y);
        }
        canvas_->Stroke(path, Thin(kMeasure, 0.12));
        const double thick = 0.3 * unit_;
        taken_.push_back({std::min(from.x, to.x) - thick, std::min(from.y, to.y) - thick,
                          std::max(from.x, to.x) + thick, std::max(from.y, to.y) + thick});
        measured_.push_back({from, to, fmt::format("{:.1f}", value)});
    }

    // Beside or above the line, where no other line or text is.
    void PaintMeasuredText(const Measured& one) {
        const double size = std::min(1.3 * unit_, kTallestWords), width = WidthOf(one.text, size);
        const Vec3 way = one.to - one.from;
        const bool upright = std::fabs(way.y) > std::fabs(way.x);
        const double after = 0.5 * unit_, over = 0.4 * size;
        for (const double part : {0.5, 0.7, 0.3}) {
            const Vec3 at = one.from + part * way;
            const std::pair<double, double> upRight[] = {
                {at.x + after, at.y - 0.35 * size}, {at.x - after - width, at.y - 0.35 * size}};
            const std::pair<double, double> across[] = {{at.x - width / 2, at.y + over},
                                                        {at.x - width / 2, at.y - over - size}};
            for (const auto& [x, y] : upright ? upRight : across) {
                const Place place{x, y, x + width, y + size};
                if (!IsFree(place)) continue;
                taken_.push_back(place);
                return Words(x, y, {size, kMeasure}, one.text);
            }
        }
        const Vec3 at = 0.5 * (one.from + one.to);
        Words(at.x - width / 2, at.y + over, {size, kMeasure}, one.text);
    }

    void PaintCaption() {
        const bool first = drawing_.rule == ProjectionRule::FirstAngle;
        std::string text =
            fmt::format("{}   图幅 {}，{} 个视图，{}", Utf8(model_.name), Utf8(sizeName_),
                        views_.size(), first ? "第一角画法" : "第三角画法");
        if (!furniture_.missing.empty()) text += "，找不到图框 " + furniture_.missing;
        Words(all_.low.x + 3 * unit_, all_.low.y + 1.5 * unit_, {2 * unit_, kDark}, text);
    }

    static constexpr double kBorder = 10;

    Model& model_;
    Drawing& drawing_;
    int sheet_;
    std::vector<ViewOnSheet> views_;
    SheetFurniture furniture_;
    WideText sizeName_;
    SheetSize size_{};
    Extents all_;
    double unit_ = 1;  // a hundredth or so of the picture: what words and lines are measured in
    std::vector<Place> taken_;  // by words, dimensions and the sign
    std::vector<Measured> measured_;
    Canvas* canvas_ = nullptr;
};

}  // namespace

Picture SheetPicture(Model& drawing, int sheet, int widthPixels) {
    SheetPainter painter(drawing, sheet);
    const double wide = painter.Wide(), high = painter.High();
    const double heightPixels = std::ceil(widthPixels * high / wide);
    return {wide, high, double(widthPixels), heightPixels,
            [painter](Canvas& canvas) mutable { painter.Paint(canvas); }};
}

std::string SheetSvg(Model& drawing, int sheet, int widthPixels) {
    return SvgOf(SheetPicture(drawing, sheet, widthPixels));
}

}  // namespace simhost
