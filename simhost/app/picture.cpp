// Writes pictures as SVG: the frame and its scale, the painted patches gathered by parts, and the
// caption below them.
#include "simhost/app/picture.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <vector>

#include "simhost/app/picture_order.h"
#include "simhost/app/picture_patches.h"
#include "simhost/app/svg_text.h"
#include "simhost/core/text.h"

namespace simhost {

namespace {

// In pixels.
constexpr double kMargin = 24;
constexpr double kCaptionHeight = 64;
constexpr double kTallest = 1.25;  // height of the model's picture to its width, at most

std::string NameAndTitle(const Model& model, const char* between) {
    const std::string name = SvgText(Utf8(model.name));
    return model.title.empty() ? name : name + between + SvgText(model.title);
}

// The scale of a picture: one number of two digits to one.
struct Scale {
    double ratio;
    bool larger;  // than life
    double PixelsPerMm() const { return (larger ? ratio : 1 / ratio) * 96 / 25.4; }
    std::string Text() const {
        return larger ? SvgNumber(ratio) + " : 1" : "1 : " + SvgNumber(ratio);
    }
};

// The largest scale that gives at most so many pixels.
Scale ScaleBelow(double pixelsPerMm) {
    const double scale = pixelsPerMm * 25.4 / 96;
    const bool larger = scale > 1;
    const double ratio = larger ? scale : 1 / scale;
    const double unit = std::pow(10.0, std::floor(std::log10(ratio)) - 1);
    return {unit * (larger ? std::floor(ratio / unit) : std::ceil(ratio / unit)), larger};
}

// The frame of the picture: where the view's coordinates lie in it.
struct Frame {
    Scale scale{1, false};
    double width = 0, height = 0;
    double left = 0, high = 0;  // of the view, at the picture's upper left corner
};

std::string PointText(const Frame& frame, Vec3 p) {
    return SvgNumber(p.x - frame.left) + ' ' + SvgNumber(frame.high - p.y);
}

// The edges of a patch that are drawn, as lines as long as possible.
std::string EdgeText(const Frame& frame, const Patch& patch) {
    const std::size_t n = patch.corners.size();
    std::size_t start = 0;  // after an edge that is not drawn, if there is one
    while (start < n && patch.drawn[(start + n - 1) % n]) ++start;
    if (start == n) start = 0;
    std::string text;
    bool down = false;
    for (std::size_t k = 0; k < n; ++k) {
        const std::size_t i = (start + k) % n;
        if (!patch.drawn[i]) {
            down = false;
            continue;
        }
        if (!down) text += 'M' + PointText(frame, patch.corners[i]);
        text += 'L' + PointText(frame, patch.corners[(i + 1) % n]);
        down = true;
    }
    return text;
}

// Patches of one surface and one colour that follow each other: their areas, then their edges.
void AddFill(const Frame& frame, const std::vector<Patch>& patches, std::size_t from,
             std::size_t to, std::string* svg) {
    const Patch& first = patches[from];
    std::string area, edges;
    for (std::size_t i = from; i < to; ++i) {
        const auto& corners = patches[i].corners;
        for (std::size_t k = 0; k < corners.size(); ++k) {
            area += (k == 0 ? 'M' : 'L') + PointText(frame, corners[k]);
        }
        area += 'Z';
        edges += EdgeText(frame, patches[i]);
    }
    *svg += "<path fill=\"" + first.fill + '"';
    if (first.opacity < 1) {
        *svg += " fill-opacity=\"" + SvgNumber(first.opacity) + '"';
    } else {
        *svg += " stroke=\"" + first.fill + '"';  // closes the hairline between neighbours
    }
    *svg += " d=\"" + area + "\"/>\n";
    if (edges.empty()) return;
    *svg += "<path fill=\"none\" stroke=\"" + first.ink + "\" stroke-width=\".7\"";
    if (first.opacity < 1) *svg += " stroke-opacity=\".6\"";
    *svg += " d=\"" + edges + "\"/>\n";
}

void AddParts(const Frame& frame, const std::vector<Occurrence>& occurrences,
              const std::vector<Patch>& painted, std::string* svg) {
    for (std::size_t i = 0; i < painted.size();) {
        const std::size_t occurrence = painted[i].occurrence;
        *svg += "<g><title>" + NameAndTitle(*occurrences[occurrence].part, " – ") + "</title>\n";
        while (i < painted.size() && painted[i].occurrence == occurrence) {
            std::size_t end = i + 1;
            while (end < painted.size() && painted[end].occurrence == occurrence &&
                   painted[end].surface == painted[i].surface &&
                   painted[end].fill == painted[i].fill) {
                ++end;
            }
            AddFill(frame, painted, i, end, svg);
            i = end;
        }
        *svg += "</g>\n";
    }
}

// The three directions, so that one knows which side is looked at.
void AddAxes(double x, double y, std::string* svg) {
    struct Axis {
        const char* name;
        const char* colour;
        Vec3 way;
    };
    const Axis axes[] = {
        {"x", "#b03a2e", {1, 0, 0}}, {"y", "#2e7d32", {0, 1, 0}}, {"z", "#1f4e9c", {0, 0, 1}}};
    for (const Axis& axis : axes) {
        const Vec3 way = InView(axis.way);
        *svg += std::string("<path stroke=\"") + axis.colour + "\" stroke-width=\"1.4\" d=\"M" +
                SvgNumber(x) + ' ' + SvgNumber(y) + 'L' + SvgNumber(x + 24 * way.x) + ' ' +
                SvgNumber(y - 24 * way.y) + "\"/>";
        *svg += std::string("<text fill=\"") + axis.colour + "\" font-size=\"11\" x=\"" +
                SvgNumber(x + 32 * way.x - 3) + "\" y=\"" + SvgNumber(y - 32 * way.y + 4) + "\">" +
                axis.name + "</text>\n";
    }
}

void AddCaption(const Frame& frame, const Model& top, std::size_t parts, std::string* svg) {
    const double y = frame.height - kCaptionHeight + 28;
    *svg += "<g font-family=\"Noto Sans CJK SC,Microsoft YaHei,Liberation Sans,sans-serif\">\n";
    AddAxes(kMargin + 16, y + 6, svg);
    const std::string at = "<text x=\"" + SvgNumber(kMargin + 64) + "\" y=\"";
    *svg += at + SvgNumber(y) + "\" font-size=\"17\" font-weight=\"bold\" fill=\"#26323d\">" +
            NameAndTitle(top, "  ") + "</text>\n";
    std::string facts = "nothing to show";
    if (parts > 0) {
        facts = std::to_string(parts) + (parts == 1 ? " part" : " parts") + ", scale " +
                frame.scale.Text();
    }
    *svg += at + SvgNumber(y + 20) + "\" font-size=\"13\" fill=\"#5c6873\">" + facts + "</text>\n";
    *svg += "</g>\n";
}

// The largest scale of two digits at which the extents of all parts fit.
Frame FrameFor(const std::vector<Occurrence>& occurrences, double width) {
    Extents all;
    std::unordered_map<const Model*, std::vector<Vec3>> corners;
    for (const Occurrence& one : occurrences) {
        auto& points = corners[one.part];
        if (points.empty()) {
            for (const Solid& solid : one.part->solids) {
                for (const SolidFace& face : Faces(solid)) {
                    for (const Facet& facet : face.facets) {
                        points.insert(points.end(), facet.corners.begin(), facet.corners.end());
                    }
                }
            }
        }
        for (const Vec3& p : points) all.Add(InView(one.placement.Point(p)));
    }
    Frame frame;
    frame.width = width;
    const Vec3 size = all.high - all.low;
    const double room = width - 2 * kMargin;
    if (!all.empty) {
        const double across = room / std::max(size.x, 1e-9);
        frame.scale = ScaleBelow(std::min(across, room * kTallest / std::max(size.y, 1e-9)));
    }
    const double k = frame.scale.PixelsPerMm();
    frame.height = std::ceil(k * size.y + 2 * kMargin + kCaptionHeight);
    frame.left = k * (all.low.x + all.high.x) / 2 - width / 2;
    frame.high = k * all.high.y + kMargin;
    return frame;
}

}  // namespace

std::string IsometricSvg(Session& session, Model& top, int widthPixels) {
    const std::vector<Occurrence> occurrences = VisibleParts(session, top);
    const Frame frame = FrameFor(occurrences, std::max(widthPixels, 160));
    const std::vector<Patch> painted =
        PaintOrder(PatchesOf(occurrences, frame.scale.PixelsPerMm()));

    const std::string width = SvgNumber(frame.width), height = SvgNumber(frame.height);
    const std::string size = "width=\"" + width + "\" height=\"" + height + '"';
    std::string svg = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    svg += "<svg xmlns=\"http://www.w3.org/2000/svg\" " + size + " viewBox=\"0 0 " + width + ' ' +
           height + "\">\n";
    svg += "<rect " + size + " fill=\"#f7f8f9\"/>\n";
    svg += "<g stroke-width=\".5\" stroke-linejoin=\"round\" stroke-linecap=\"round\">\n";
    AddParts(frame, occurrences, painted, &svg);
    svg += "</g>\n";
    AddCaption(frame, top, occurrences.size(), &svg);
    return svg + "</svg>\n";
}

std::string ColourText(const ProdbSurfaceProps& props) {
    std::string text;
    for (const double part : props.colour) {
        if (!text.empty()) text += '.';
        text += std::to_string(std::lround(255 * std::clamp(part, 0.0, 1.0)));
    }
    return text;
}

}  // namespace simhost
