// Paints a model in an isometric view: the frame and its scale, the patches gathered by parts, and
// the caption below them.
#include "simhost/picture/isometric.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/model/screen_view.h"
#include "simhost/model/shape.h"
#include "simhost/picture/paint_order.h"
#include "simhost/picture/patches.h"
#include "simhost/picture/svg_canvas.h"

namespace simhost {

namespace {

// In pixels.
constexpr double kMargin = 24;
constexpr double kCaptionHeight = 64;
constexpr double kRuler = 40;
constexpr double kTallest = 1.25;  // height of the model's picture to its width, at most

std::string NameAndTitle(const Model& model, const char* between) {
    const std::string name = Utf8(model.name);
    return model.title.empty() ? name : name + between + model.title;
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

// Paths in the picture's own coordinates.
struct FramedPath {
    const Frame& frame;
    Path path;
    void MoveTo(Vec3 p) { path.MoveTo(p.x - frame.left, frame.high - p.y); }
    void LineTo(Vec3 p) { path.LineTo(p.x - frame.left, frame.high - p.y); }
};

// The edges of a patch that are drawn, as lines as long as possible.
void AddEdges(const Patch& patch, FramedPath* edges) {
    const std::size_t n = patch.corners.size();
    std::size_t start = 0;  // after an edge that is not drawn, if there is one
    while (start < n && patch.drawn[(start + n - 1) % n]) ++start;
    if (start == n) start = 0;
    bool down = false;
    for (std::size_t k = 0; k < n; ++k) {
        const std::size_t i = (start + k) % n;
        if (!patch.drawn[i]) {
            down = false;
            continue;
        }
        if (!down) edges->MoveTo(patch.corners[i]);
        edges->LineTo(patch.corners[(i + 1) % n]);
        down = true;
    }
}

// Patches of one surface and one colour that follow each other: their areas, then their edges.
void PaintPatches(const Frame& frame, const std::vector<Patch>& patches, std::size_t from,
                  std::size_t to, Canvas& canvas) {
    const Patch& first = patches[from];
    FramedPath area{frame, {}}, edges{frame, {}};
    for (std::size_t i = from; i < to; ++i) {
        const auto& corners = patches[i].corners;
        for (std::size_t k = 0; k < corners.size(); ++k) {
            k == 0 ? area.MoveTo(corners[k]) : area.LineTo(corners[k]);
        }
        area.path.Close();
        AddEdges(patches[i], &edges);
    }
    canvas.Area(area.path, first.fill, first.opacity);
    canvas.Stroke(edges.path, {first.ink, 0.7, {}, first.opacity < 1 ? 0.6 : 1});
}

void PaintParts(const Frame& frame, const std::vector<ShownPart>& occurrences,
                const std::vector<Patch>& painted, Canvas& canvas) {
    for (std::size_t i = 0; i < painted.size();) {
        const std::size_t occurrence = painted[i].occurrence;
        canvas.BeginGroup("", NameAndTitle(*occurrences[occurrence].part, " – "));
        while (i < painted.size() && painted[i].occurrence == occurrence) {
            std::size_t end = i + 1;
            while (end < painted.size() && painted[end].occurrence == occurrence &&
                   painted[end].surface == painted[i].surface &&
                   painted[end].fill == painted[i].fill) {
                ++end;
            }
            PaintPatches(frame, painted, i, end, canvas);
            i = end;
        }
        canvas.EndGroup();
    }
}

// The three directions, so that one knows which side is looked at.
void PaintAxes(double x, double y, Canvas& canvas) {
    struct Axis {
        const char* name;
        const char* colour;
        Vec3 way;
    };
    const Axis axes[] = {
        {"x", "#b03a2e", {1, 0, 0}}, {"y", "#2e7d32", {0, 1, 0}}, {"z", "#1f4e9c", {0, 0, 1}}};
    for (const Axis& axis : axes) {
        const Vec3 way = IsometricView().Direction(axis.way);
        Path line;
        line.MoveTo(x, y);
        line.LineTo(x + 24 * way.x, y - 24 * way.y);
        canvas.Stroke(line, {axis.colour, 1.4, {}, 1});
        canvas.Text(x + 32 * way.x - 3, y - 32 * way.y + 4, {11, axis.colour}, axis.name);
    }
}

void PaintCaption(const Frame& frame, const Model& top, std::size_t parts, Canvas& canvas) {
    const double y = frame.height - kCaptionHeight + 28;
    PaintAxes(kMargin + 16, y + 6, canvas);
    canvas.Text(kMargin + 64, y, {17, "#26323d", Letters::Anchor::Start, true},
                NameAndTitle(top, "  "));
    const std::string facts = parts > 0
                                  ? fmt::format("{} 个零件，比例 {}", parts, frame.scale.Text())
                                  : "没有可显示的零件";
    canvas.Text(kMargin + 64, y + 20, {13, "#5c6873"}, facts);
}

// The largest scale of two digits at which the extents of all parts fit.
Frame FrameFor(const std::vector<ShownPart>& occurrences, double width) {
    const Placement view = IsometricView();
    Extents all;
    for (const ShownPart& one : occurrences) {
        const Extents part = ExtentsIn(one.part->shape(), Compose(view, one.placement));
        all.Add(part.low);
        all.Add(part.high);
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

// The margins of a picture of the screen, with a mark at every 50 and a number at every 100.
void PaintRuler(const Frame& frame, Canvas& canvas) {
    constexpr double kStep = 50;
    const double right = frame.width - kRuler, bottom = frame.height - kRuler;
    const Rectangle margins[] = {{0, 0, frame.width, kRuler},
                                 {0, bottom, frame.width, kRuler},
                                 {0, 0, kRuler, frame.height},
                                 {right, 0, kRuler, frame.height}};
    for (const Rectangle& margin : margins) canvas.Box(margin, "#e3e7ea", nullptr);
    Path marks;
    const Letters letters{11, "#26323d", Letters::Anchor::Middle};
    for (double at = 0; at <= kScreenWidth; at += kStep) {
        const bool whole = std::fmod(at, 2 * kStep) == 0;
        const double x = kRuler + at;
        for (const double y : {kRuler, bottom}) {
            marks.MoveTo(x, y);
            marks.LineTo(x, y + (y == bottom ? 1 : -1) * (whole ? 10 : 5));
        }
        if (!whole) continue;
        canvas.Text(x, kRuler - 14, letters, SvgNumber(at));
        canvas.Text(x, bottom + 22, letters, SvgNumber(at));
    }
    for (double at = 0; at <= kScreenHeight; at += kStep) {
        const bool whole = std::fmod(at, 2 * kStep) == 0;
        const double y = bottom - at;
        for (const double x : {kRuler, right}) {
            marks.MoveTo(x, y);
            marks.LineTo(x + (x == right ? 1 : -1) * (whole ? 10 : 5), y);
        }
        if (!whole) continue;
        canvas.Text(kRuler - 24, y + 4, letters, SvgNumber(at));
        canvas.Text(right + 24, y + 4, letters, SvgNumber(at));
    }
    canvas.Stroke(marks, {"#26323d", 1, {}, 1});
    const Pen border{"#26323d", 1, {}, 1};
    canvas.Box({kRuler, kRuler, kScreenWidth, kScreenHeight}, "", &border);
}

}  // namespace

Picture IsometricPicture(const Model& top, int widthPixels) {
    std::vector<ShownPart> occurrences = ShownParts(top, Sight::Screen);
    const Frame frame = FrameFor(occurrences, std::max(widthPixels, 160));
    std::vector<Patch> painted =
        PaintOrder(PatchesOf(occurrences, IsometricView(), frame.scale.PixelsPerMm()));
    Picture picture{frame.width, frame.height, frame.width, frame.height, {}};
    picture.paint = [frame, &top, occurrences = std::move(occurrences),
                     painted = std::move(painted)](Canvas& canvas) {
        canvas.Box({0, 0, frame.width, frame.height}, "#f7f8f9", nullptr);
        PaintParts(frame, occurrences, painted, canvas);
        PaintCaption(frame, top, occurrences.size(), canvas);
    };
    return picture;
}

Picture ScreenPicture(Model& model) {
    Model& top = ContentsOf(model);
    const ProMatrix& matrix = ScreenOf(top).matrix;
    Placement view;
    double scale = 1;
    FrameOf(matrix, &view, &scale);
    scale /= LengthUnit(top);
    view.origin = 1 / scale * Vec3{matrix[3][0], matrix[3][1], matrix[3][2]};
    Frame frame;
    frame.width = kScreenWidth + 2 * kRuler;
    frame.height = kScreenHeight + 2 * kRuler;
    frame.left = -kRuler;
    frame.high = kScreenHeight + kRuler;
    std::vector<ShownPart> parts = ShownParts(top, Sight::Screen);
    std::vector<Patch> painted = PaintOrder(PatchesOf(parts, view, scale));
    Picture picture{frame.width, frame.height, frame.width, frame.height, {}};
    picture.paint = [frame, parts = std::move(parts),
                     painted = std::move(painted)](Canvas& canvas) {
        canvas.Box({0, 0, frame.width, frame.height}, "#f7f8f9", nullptr);
        PaintParts(frame, parts, painted, canvas);
        PaintRuler(frame, canvas);
    };
    return picture;
}

std::string IsometricSvg(const Model& top, int widthPixels) {
    return SvgOf(IsometricPicture(top, widthPixels));
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
