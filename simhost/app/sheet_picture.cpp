// A picture of a sheet of a drawing. Lengths are those of the sheet, y upwards, until they are
// written.
#include "simhost/app/sheet_picture.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "simhost/app/sheet_lines.h"
#include "simhost/app/svg_text.h"
#include "simhost/core/text.h"

namespace simhost {

namespace {

constexpr const char* kVisible = "#16202a";
constexpr const char* kHidden = "#8a97a3";
constexpr const char* kOutline = "#7fb3e6";
constexpr const char* kMeasure = "#b3472f";

// Words that stand in a gap of 50 must not fill it.
constexpr double kTallestWords = 22;

class SheetPicture {
public:
    SheetPicture(Model& drawing, int sheet)
        : model_(drawing), drawing_(DrawingOf(drawing)), views_(ViewsOnSheet(drawing, sheet)) {
        const auto& sizes = drawing.sheets.sizes;
        const bool there = sheet >= 1 && std::size_t(sheet) <= sizes.size();
        sizeName_ = there ? sizes[std::size_t(sheet - 1)] : WideText();
        size_ = SizeOfSheet(sizeName_);
        all_.Add({});
        all_.Add({size_.width, size_.height, 0});
        for (const ViewOnSheet& view : views_) {
            all_.Add(view.outline.low);
            all_.Add(view.outline.high);
        }
        const double wide = all_.high.x - all_.low.x, high = all_.high.y - all_.low.y;
        unit_ = std::max(wide, high) / 160;
        const double margin = 3 * unit_;
        all_.low = all_.low - Vec3{margin, margin + 5 * unit_, 0};
        all_.high = all_.high + Vec3{margin, margin, 0};
    }

    std::string Text(int widthPixels) {
        const double wide = all_.high.x - all_.low.x, high = all_.high.y - all_.low.y;
        const int heightPixels = int(std::ceil(widthPixels * high / wide));
        svg_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        svg_ += fmt::format(
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{}\" height=\"{}\" "
            "viewBox=\"0 0 {} {}\">\n",
            widthPixels, heightPixels, SvgNumber(wide), SvgNumber(high));
        svg_ += fmt::format("<rect width=\"{}\" height=\"{}\" fill=\"#e9edf0\"/>\n",
                            SvgNumber(wide), SvgNumber(high));
        svg_ +=
            "<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\" "
            "font-family=\"Noto Sans CJK SC,WenQuanYi Zen Hei,Liberation Sans,sans-serif\">\n";
        AddFrame();
        for (const ViewOnSheet& view : views_) AddView(view);
        for (const ViewOnSheet& view : views_) AddGap(view);
        AddCaption();
        return svg_ + "</g>\n</svg>\n";
    }

private:
    std::string At(double x, double y) const {
        return SvgNumber(x - all_.low.x) + ' ' + SvgNumber(all_.high.y - y);
    }

    void Path(const std::string& way, const char* colour, double width, double dash = 0) {
        if (way.empty()) return;
        svg_ += fmt::format("<path stroke=\"{}\" stroke-width=\"{}\"", colour, SvgNumber(width));
        if (dash > 0) {
            svg_ +=
                fmt::format(" stroke-dasharray=\"{} {}\"", SvgNumber(dash), SvgNumber(0.6 * dash));
        }
        svg_ += " d=\"" + way + "\"/>\n";
    }

    void Rectangle(double x0, double y0, double x1, double y1, const char* fill, const char* colour,
                   double width, double dash = 0) {
        svg_ += fmt::format(
            "<rect x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\" fill=\"{}\" "
            "stroke=\"{}\" stroke-width=\"{}\"",
            SvgNumber(x0 - all_.low.x), SvgNumber(all_.high.y - y1), SvgNumber(x1 - x0),
            SvgNumber(y1 - y0), fill, colour, SvgNumber(width));
        if (dash > 0) svg_ += fmt::format(" stroke-dasharray=\"{}\"", SvgNumber(dash));
        svg_ += "/>\n";
    }

    void Words(double x, double y, double size, const char* colour, const char* anchor,
               const std::string& text) {
        svg_ += fmt::format(
            "<text x=\"{}\" y=\"{}\" font-size=\"{}\" fill=\"{}\" "
            "text-anchor=\"{}\">{}</text>\n",
            SvgNumber(x - all_.low.x), SvgNumber(all_.high.y - y), SvgNumber(size), colour, anchor,
            SvgText(text));
    }

    // The sheet with its border, and the sign of the projection rule in its lower right corner: a
    // cone and its end, which is on the far side by the first-angle rule.
    void AddFrame() {
        const double border = 10;
        Rectangle(0, 0, size_.width, size_.height, "#ffffff", "#9aa5ae", 0.15 * unit_);
        Rectangle(border, border, size_.width - border, size_.height - border, "none", "#26323d",
                  0.25 * unit_);
        const double r = 1.4 * unit_;
        const double y = border + 2 * unit_ + r;
        const bool first = drawing_.rule == ProjectionRule::FirstAngle;
        const double end = size_.width - border - 2 * unit_ - r;
        const double cone = end - 4.2 * r;
        const double endX = first ? end : cone - r, coneX = first ? cone : end - 2.2 * r;
        for (const double radius : {r, r / 2}) {
            svg_ += fmt::format(
                "<circle cx=\"{}\" cy=\"{}\" r=\"{}\" stroke=\"{}\" "
                "stroke-width=\"{}\"/>\n",
                SvgNumber(endX - all_.low.x), SvgNumber(all_.high.y - y), SvgNumber(radius),
                kVisible, SvgNumber(0.12 * unit_));
        }
        Path("M" + At(coneX - r, y - r / 2) + "L" + At(coneX - r, y + r / 2) + "L" +
                 At(coneX + r, y + r) + "L" + At(coneX + r, y - r) + "Z",
             kVisible, 0.12 * unit_);
    }

    std::string LinePath(const ViewOnSheet& view, bool hidden) const {
        std::string way;
        const DrawnLine* last = nullptr;
        for (const DrawnLine& line : view.lines) {
            if (line.hidden != hidden) continue;
            const bool goesOn = last && std::hypot(last->x1 - line.x0, last->y1 - line.y0) < 1e-6;
            if (!goesOn) way += "M" + At(line.x0, line.y0);
            way += "L" + At(line.x1, line.y1);
            last = &line;
        }
        return way;
    }

    void AddView(const ViewOnSheet& view) {
        const Vec3 low = view.outline.low, high = view.outline.high;
        Rectangle(low.x, low.y, high.x, high.y, "none", kOutline, 0.12 * unit_, 0.7 * unit_);
        Path(LinePath(view, /*hidden=*/true), kHidden, 0.07 * unit_, 0.5 * unit_);
        Path(LinePath(view, /*hidden=*/false), kVisible, 0.12 * unit_);
        const std::string role = view.shows.empty() ? view.role : view.role + " – " + view.shows;
        const double size = std::min(1.5 * unit_, kTallestWords);
        Words((low.x + high.x) / 2, low.y - 1.25 * size, size, "#1d5fa8", "middle", role);
    }

    const ViewOnSheet* ShownParent(const ViewOnSheet& view) const {
        for (const ViewOnSheet& other : views_) {
            if (other.view == view.view->parent) return &other;
        }
        return nullptr;
    }

    // From edge to edge of the two outlines, in the middle of the smaller one.
    void AddGap(const ViewOnSheet& view) {
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
                Path("M" + At(end, y) + "L" + At(beside + 0.5 * unit_, y), kMeasure, 0.08 * unit_);
            }
            AddMeasure({beside, from, 0}, {beside, to, 0}, to - from);
        } else {
            const bool right = a.low.x >= b.high.x;
            const double y = (std::max(a.low.y, b.low.y) + std::min(a.high.y, b.high.y)) / 2;
            const double from = right ? b.high.x : a.high.x, to = right ? a.low.x : b.low.x;
            AddMeasure({from, y, 0}, {to, y, 0}, to - from);
        }
    }

    void AddMeasure(Vec3 from, Vec3 to, double value) {
        const Vec3 way = to - from;
        const double length = std::hypot(way.x, way.y);
        if (length == 0) return;
        const Vec3 along = 1 / length * way, across{-along.y, along.x, 0};
        const double head = std::min(1.0 * unit_, length / 3);
        std::string path = "M" + At(from.x, from.y) + "L" + At(to.x, to.y);
        for (const auto& [tip, sign] : {std::pair{from, 1.0}, std::pair{to, -1.0}}) {
            const Vec3 back = tip + sign * head * along;
            const Vec3 left = back + 0.3 * head * across, right = back - 0.3 * head * across;
            path += "M" + At(left.x, left.y) + "L" + At(tip.x, tip.y) + "L" + At(right.x, right.y);
        }
        Path(path, kMeasure, 0.12 * unit_);
        const Vec3 middle = 0.5 * (from + to);
        const bool upright = std::fabs(way.y) > std::fabs(way.x);
        const std::string text = fmt::format("{:.1f}", value);
        const double size = std::min(1.3 * unit_, kTallestWords);
        if (upright) {
            Words(middle.x + 0.5 * unit_, middle.y - 0.35 * size, size, kMeasure, "start", text);
        } else {
            Words(middle.x, middle.y + 0.4 * size, size, kMeasure, "middle", text);
        }
    }

    void AddCaption() {
        const bool first = drawing_.rule == ProjectionRule::FirstAngle;
        const std::string text =
            fmt::format("{}   sheet {}, {} views, {}", Utf8(model_.name), Utf8(sizeName_),
                        views_.size(), first ? "first angle" : "third angle");
        Words(all_.low.x + 3 * unit_, all_.low.y + 1.5 * unit_, 2 * unit_, "#26323d", "start",
              text);
    }

    Model& model_;
    Drawing& drawing_;
    std::vector<ViewOnSheet> views_;
    WideText sizeName_;
    SheetSize size_{};
    Extents all_;
    double unit_ = 1;  // a hundredth or so of the picture: what words and lines are measured in
    std::string svg_;
};

}  // namespace

std::string SheetSvg(Model& drawing, int sheet, int widthPixels) {
    return SheetPicture(drawing, sheet).Text(widthPixels);
}

}  // namespace simhost
