// Writes pictures as SVG.
#include "simhost/picture/svg_canvas.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>

namespace simhost {

namespace {

constexpr const char* kFonts =
    "Noto Sans CJK SC,WenQuanYi Zen Hei,Microsoft YaHei,Liberation Sans,sans-serif";

std::string Attribute(const char* name, const std::string& value) {
    return ' ' + std::string(name) + "=\"" + value + '"';
}
std::string Attribute(const char* name, double value) {
    return Attribute(name, SvgNumber(value));
}

std::string WayOf(const Path& path) {
    std::string way;
    for (const Path::Point& point : path.points()) {
        if (point.step == Path::Step::Close) {
            way += 'Z';
            continue;
        }
        way += point.step == Path::Step::Move ? 'M' : 'L';
        way += SvgNumber(point.x) + ' ' + SvgNumber(point.y);
    }
    return way;
}

std::string Strokes(const Pen& pen) {
    std::string text = Attribute("stroke", pen.colour) + Attribute("stroke-width", pen.width);
    if (!pen.dashes.empty()) {
        std::string dashes;
        for (const double dash : pen.dashes)
            dashes += (dashes.empty() ? "" : " ") + SvgNumber(dash);
        text += Attribute("stroke-dasharray", dashes);
    }
    if (pen.opacity < 1) text += Attribute("stroke-opacity", pen.opacity);
    return text;
}

class SvgCanvas : public Canvas {
public:
    explicit SvgCanvas(const Picture& picture) {
        svg_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        svg_ += "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
                Attribute("width", picture.widthPixels) +
                Attribute("height", picture.heightPixels) +
                Attribute("viewBox",
                          "0 0 " + SvgNumber(picture.width) + ' ' + SvgNumber(picture.height)) +
                ">\n";
        svg_ += "<g stroke-width=\".5\" stroke-linejoin=\"round\" stroke-linecap=\"round\"" +
                Attribute("font-family", kFonts) + ">\n";
    }
    std::string Finish() { return svg_ + "</g>\n</svg>\n"; }

    void BeginGroup(const std::string& id, const std::string& title) override {
        svg_ += "<g";
        if (!id.empty()) svg_ += Attribute("id", SvgText(id));
        svg_ += '>';
        if (!title.empty()) svg_ += "<title>" + SvgText(title) + "</title>";
        svg_ += '\n';
    }
    void EndGroup() override { svg_ += "</g>\n"; }

    void Area(const Path& path, const std::string& fill, double opacity) override {
        if (path.empty()) return;
        svg_ += "<path" + Attribute("fill", fill);
        // A thin edge of its own colour closes the hairline between neighbours.
        svg_ += opacity < 1 ? Attribute("fill-opacity", opacity) : Attribute("stroke", fill);
        svg_ += Attribute("d", WayOf(path)) + "/>\n";
    }
    void Stroke(const Path& path, const Pen& pen) override {
        if (path.empty()) return;
        svg_ += "<path" + Attribute("fill", "none") + Strokes(pen) + Attribute("d", WayOf(path)) +
                "/>\n";
    }
    void Circle(double x, double y, double radius, const Pen& pen) override {
        svg_ += "<circle" + Attribute("cx", x) + Attribute("cy", y) + Attribute("r", radius) +
                Attribute("fill", "none") + Strokes(pen) + "/>\n";
    }
    void Box(const Rectangle& box, const std::string& fill, const Pen* pen) override {
        svg_ += "<rect" + Attribute("x", box.x) + Attribute("y", box.y) +
                Attribute("width", box.width) + Attribute("height", box.height) +
                Attribute("fill", fill.empty() ? "none" : fill);
        if (pen) svg_ += Strokes(*pen);
        svg_ += "/>\n";
    }
    void Text(double x, double y, const Letters& letters, const std::string& text) override {
        svg_ += "<text" + Attribute("x", x) + Attribute("y", y) +
                Attribute("font-size", letters.size) + Attribute("fill", letters.colour);
        if (letters.anchor == Letters::Anchor::Middle) svg_ += Attribute("text-anchor", "middle");
        if (letters.anchor == Letters::Anchor::End) svg_ += Attribute("text-anchor", "end");
        if (letters.bold) svg_ += Attribute("font-weight", "bold");
        if (letters.turn != 0) {
            svg_ += Attribute("transform", fmt::format("rotate({} {} {})", SvgNumber(-letters.turn),
                                                       SvgNumber(x), SvgNumber(y)));
        }
        svg_ += '>' + SvgText(text) + "</text>\n";
    }

private:
    std::string svg_;
};

}  // namespace

std::string SvgOf(const Picture& picture) {
    SvgCanvas canvas(picture);
    picture.paint(canvas);
    return canvas.Finish();
}

std::string SvgNumber(double value) {
    if (!std::isfinite(value)) return "0";
    constexpr double kNoHundredths = 1e15;  // nor a whole number that the type below can hold
    if (std::fabs(value) >= kNoHundredths) return fmt::format("{}", value);
    const long long hundredths = std::llround(value * 100);
    if (hundredths == 0) return "0";
    const long long whole = std::llabs(hundredths) / 100, rest = std::llabs(hundredths) % 100;
    std::string text(hundredths < 0 ? "-" : "");
    if (whole > 0) text += std::to_string(whole);
    if (rest > 0) {
        text += '.';
        text += char('0' + rest / 10);
        if (rest % 10 > 0) text += char('0' + rest % 10);
    }
    return text;
}

std::string SvgText(const std::string& text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&': result += "&amp;"; break;
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            case '"': result += "&quot;"; break;
            default: result += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
        }
    }
    return result;
}

}  // namespace simhost
