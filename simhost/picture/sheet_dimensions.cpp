// How dimensions are drawn: extension lines from what is measured, a line with arrows between them,
// the text above it, readable from below or from the right; leaders for round ones.
#include "simhost/picture/sheet_dimensions.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "simhost/core/text.h"
#include "simhost/model/dimension_measure.h"
#include "simhost/model/dimension_text.h"

namespace simhost {

namespace {

constexpr double kHeight = 3.5;        // of letters
constexpr double kSmall = 0.6;         // of deviations, as a part of that
constexpr double kAbove = 0.8;         // between a line and the text over it
constexpr double kBeyond = 2;          // of an extension line, after the dimension line
constexpr double kDimensionGap = 0.6;  // before deviations
constexpr double kRowHeight = 1.6 * kHeight;
constexpr double kSame = 1e-6;
const double kRadiansPerDegree = std::acos(-1.0) / 180;

constexpr const char* kColour = "#1d3f72";
constexpr const char* kLostColour = "#c23b22";
constexpr double kLineWidth = 0.18;

// --- Drawing symbols. Hardly a font has them, so they are drawn: a square of the height of
// letters,
// --- x to the right, y up, the foot at 0 ---

struct Stroke {
    double x0, y0, x1, y1;
};
struct Symbol {
    const char* sign;
    bool circle;
    std::vector<Stroke> strokes;
};
const std::vector<Symbol>& Symbols() {
    static const std::vector<Symbol> symbols = {
        {"⌀", true, {{0.1, -0.1, 0.7, 0.9}}},
        {"□",
         false,
         {{0.1, 0, 0.8, 0}, {0.8, 0, 0.8, 0.7}, {0.8, 0.7, 0.1, 0.7}, {0.1, 0.7, 0.1, 0}}},
        {"⌴", false, {{0.1, 0.6, 0.1, 0}, {0.1, 0, 0.9, 0}, {0.9, 0, 0.9, 0.6}}},
        {"⌵", false, {{0.1, 0.7, 0.5, 0}, {0.5, 0, 0.9, 0.7}}},
        {"↧",
         false,
         {{0.1, 0.8, 0.9, 0.8}, {0.5, 0.8, 0.5, 0}, {0.3, 0.3, 0.5, 0}, {0.7, 0.3, 0.5, 0}}},
    };
    return symbols;
}
constexpr double kSymbolWidth = 1.0;  // in heights

// A text in pieces: symbols, and what is between them.
struct Run {
    std::string text;
    const Symbol* symbol = nullptr;
};
std::vector<Run> RunsOf(const std::string& text) {
    std::vector<Run> runs;
    for (std::size_t at = 0; at < text.size();) {
        const auto found =
            std::find_if(Symbols().begin(), Symbols().end(), [&](const Symbol& symbol) {
                return text.compare(at, std::strlen(symbol.sign), symbol.sign) == 0;
            });
        if (found != Symbols().end()) {
            runs.push_back({{}, &*found});
            at += std::strlen(found->sign);
            continue;
        }
        if (runs.empty() || runs.back().symbol) runs.emplace_back();
        runs.back().text += text[at++];
    }
    return runs;
}

double WidthOf(const std::string& text, double height) {
    double width = 0;
    for (const Run& run : RunsOf(text)) {
        width +=
            run.symbol ? kSymbolWidth * height : 0.62 * height * double(DisplayWidth(run.text));
    }
    return width;
}

Vec3 Upright(Vec3 way) {
    return {-way.y, way.x, 0};
}

// The same line, so that its text reads from below or from the right.
Vec3 Readable(Vec3 way) {
    const bool backwards = way.x < -kSame || (std::fabs(way.x) <= kSame && way.y < 0);
    return backwards ? -1 * way : way;
}

double DegreesOf(Vec3 way) {
    return std::atan2(way.y, way.x) / kRadiansPerDegree;
}

// --- Texts ---

double WidthOf(const DimensionLine& line) {
    const double small = kSmall * kHeight;
    const double stack = std::max(WidthOf(line.upper, small), WidthOf(line.lower, small));
    const double gap = line.upper.empty() ? 0 : kDimensionGap;
    return WidthOf(line.before, kHeight) + gap + stack + WidthOf(line.after, kHeight);
}

double WidthOf(const std::vector<DimensionLine>& lines) {
    double width = 0;
    for (const DimensionLine& line : lines) width = std::max(width, WidthOf(line));
    return width;
}

class Sketch {
public:
    explicit Sketch(DrawnAnnotation* drawn) : drawn_(*drawn) {}

    void Line(Vec3 from, Vec3 to) { drawn_.lines.emplace_back(from, to); }
    void Arrow(Vec3 tip, Vec3 way) { drawn_.arrows.push_back({tip, way}); }

    // The first line is written over the middle of a dimension line, all others below it.
    void Lines(const std::vector<DimensionLine>& lines, Vec3 middle, Vec3 way) {
        const Vec3 up = Upright(way);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const double rise = i == 0 ? kAbove : kAbove - double(i) * kRowHeight;
            Row(lines[i], middle + -0.5 * WidthOf(lines[i]) * way + rise * up, way);
        }
    }

    // A text along a direction.
    void Piece(const std::string& text, double height, Vec3 at, Vec3 way) {
        for (const Run& run : RunsOf(text)) {
            if (run.symbol) {
                Sign(*run.symbol, height, at, way);
                at = at + kSymbolWidth * height * way;
            } else {
                drawn_.texts.push_back({at, DegreesOf(way), height, run.text});
                at = at + WidthOf(run.text, height) * way;
            }
        }
    }

private:
    // Deviations stand one over the other, the lower one level with the foot of the size.
    void Row(const DimensionLine& line, Vec3 at, Vec3 way) {
        const double small = kSmall * kHeight;
        const Vec3 up = Upright(way);
        const auto put = [&](Vec3 where, double height, const std::string& text) {
            Piece(text, height, where, way);
        };
        put(at, kHeight, line.before);
        const double gap = line.upper.empty() ? 0 : kDimensionGap;
        at = at + (WidthOf(line.before, kHeight) + gap) * way;
        put(at + 1.1 * small * up, small, line.upper);
        put(at - 0.1 * small * up, small, line.lower);
        at = at + std::max(WidthOf(line.upper, small), WidthOf(line.lower, small)) * way;
        put(at, kHeight, line.after);
    }

    void Sign(const Symbol& symbol, double height, Vec3 at, Vec3 way) {
        const Vec3 up = Upright(way);
        const auto point = [&](double x, double y) {
            return at + height * x * way + height * y * up;
        };
        for (const Stroke& each : symbol.strokes) {
            Line(point(each.x0, each.y0), point(each.x1, each.y1));
        }
        if (!symbol.circle) return;
        constexpr int kSides = 20;
        constexpr double kRadius = 0.33, kMiddle = 0.4;
        const auto rim = [&](int i) {
            const double angle = 360.0 / kSides * i * kRadiansPerDegree;
            return point(kMiddle + kRadius * std::cos(angle), kMiddle + kRadius * std::sin(angle));
        };
        for (int i = 0; i < kSides; ++i) Line(rim(i), rim(i + 1));
    }

    DrawnAnnotation& drawn_;
};

// --- Kinds ---

void SketchLength(const MeasuredDimension& measured, const std::vector<DimensionLine>& lines,
                  Vec3 place, Sketch* sketch) {
    const Vec3 way = Readable(measured.along), up = Upright(way);
    Vec3 ends[] = {measured.from, measured.to};
    for (Vec3& end : ends) {
        const Vec3 foot = end;
        const double off = Dot(place - foot, up);
        end = foot + off * up;
        if (std::fabs(off) > kSame) sketch->Line(foot, end + (off < 0 ? -kBeyond : kBeyond) * up);
    }
    if (Dot(ends[1] - ends[0], way) < 0) std::swap(ends[0], ends[1]);
    const double length = Dot(ends[1] - ends[0], way);
    const double half = WidthOf(lines) / 2, at = Dot(place - ends[0], way);
    // Where there is no room between the extension lines, the arrows point at them from outside.
    const bool inside = length > 3 * kArrowLength;
    const double outside = inside ? 0 : 2 * kArrowLength;
    double from = -outside, to = length + outside;
    if (at - half < 0 || at + half > length) {
        from = std::min(from, at < length / 2 ? at - half : from);
        to = std::max(to, at >= length / 2 ? at + half : to);
    }
    sketch->Line(ends[0] + from * way, ends[0] + to * way);
    sketch->Arrow(ends[0], inside ? -1 * way : way);
    sketch->Arrow(ends[1], inside ? way : -1 * way);
    sketch->Lines(lines, ends[0] + at * way, way);
}

// A leader through the centre; outside the circle it ends in a level stroke under the text.
void SketchRound(const MeasuredDimension& measured, bool diameter,
                 const std::vector<DimensionLine>& lines, Vec3 place, Sketch* sketch) {
    const Vec3 centre = measured.from, off = place - centre;
    const double distance = std::hypot(off.x, off.y);
    const Vec3 way = distance < kSame ? Vec3{1, 0, 0} : 1 / distance * off;
    const Vec3 front = centre + measured.radius * way, back = centre - measured.radius * way;
    if (diameter) sketch->Arrow(back, -1 * way);
    if (distance <= measured.radius) {
        sketch->Line(diameter ? back : centre, front);
        sketch->Arrow(front, way);
        return sketch->Lines(lines, place, Readable(way));
    }
    const double half = WidthOf(lines) / 2, side = way.x < 0 ? -1 : 1;
    const Vec3 level{side, 0, 0}, knee = place - half * level;
    if (diameter) sketch->Line(back, front);
    sketch->Line(front, knee);
    sketch->Line(knee, place + half * level);
    sketch->Arrow(front, diameter ? way : -1 * way);
    sketch->Lines(lines, place, {1, 0, 0});
}

// Numbers of angles are written level, wherever they are.
void SketchAngle(const MeasuredDimension& measured, const std::vector<DimensionLine>& lines,
                 Vec3 place, Sketch* sketch) {
    constexpr int kPieces = 24;
    const Vec3 off = place - measured.vertex;
    const double radius = std::max(std::hypot(off.x, off.y), kArrowLength);
    const double begin = std::atan2(measured.sides[0].y, measured.sides[0].x);
    const Vec3 &first = measured.sides[0], &second = measured.sides[1];
    const double sweep = std::atan2(first.x * second.y - first.y * second.x, Dot(first, second));
    const auto at = [&](double angle, double r) {
        return measured.vertex + r * Vec3{std::cos(angle), std::sin(angle), 0};
    };
    for (int i = 0; i < kPieces; ++i) {
        sketch->Line(at(begin + sweep * i / kPieces, radius),
                     at(begin + sweep * (i + 1) / kPieces, radius));
    }
    for (std::size_t i = 0; i < 2; ++i) {
        const Vec3 side = measured.sides[i], tip = measured.vertex + radius * side;
        const double reach = measured.reach[i];
        if (reach < radius) sketch->Line(measured.vertex + reach * side, tip + kBeyond * side);
        sketch->Arrow(tip, (i == 0 ? -1 : 1) * Upright(side));
    }
    const double middle = std::atan2(off.y, off.x);
    const Vec3 above = at(middle, radius + kHeight);
    sketch->Lines(lines, above - Vec3{0, kHeight / 2 + kAbove, 0}, {1, 0, 0});
}

DrawnAnnotation DrawnDimension(Model& drawing, const DrawingView& view,
                               const Dimension& dimension) {
    DrawnAnnotation drawn;
    drawn.id = dimension.id;
    Sketch sketch(&drawn);
    const auto measured = Measure(drawing, dimension);
    const double value = measured ? measured->value : dimension.value;
    const std::vector<DimensionLine> lines = LinesOf(dimension, value);
    const Vec3 place = PlaceOf(view, dimension);
    drawn.lost = !measured;
    if (!measured) {
        sketch.Lines(lines, place, {1, 0, 0});
        return drawn;
    }
    switch (dimension.kind) {
        case DimensionKind::Radius:
            SketchRound(*measured, /*diameter=*/false, lines, place, &sketch);
            break;
        case DimensionKind::Diameter:
            SketchRound(*measured, /*diameter=*/true, lines, place, &sketch);
            break;
        case DimensionKind::Angle: SketchAngle(*measured, lines, place, &sketch); break;
        default: SketchLength(*measured, lines, place, &sketch);
    }
    return drawn;
}

DrawnAnnotation DrawnNote(const SheetNote& note) {
    DrawnAnnotation drawn;
    drawn.id = note.id;
    for (std::size_t i = 0; i < note.text.size(); ++i) {
        const Vec3 at = note.at - Vec3{0, double(i) * kRowHeight, 0};
        Sketch(&drawn).Piece(WithSigns(note.text[i]), kHeight, at, {1, 0, 0});
    }
    return drawn;
}

void Paint(const DrawnAnnotation& drawn, Vec3 upperLeft, Canvas* canvas) {
    const char* colour = drawn.lost ? kLostColour : kColour;
    const auto x = [&](Vec3 point) { return point.x - upperLeft.x; };
    const auto y = [&](Vec3 point) { return upperLeft.y - point.y; };
    Path path;
    for (const auto& [from, to] : drawn.lines) {
        path.MoveTo(x(from), y(from));
        path.LineTo(x(to), y(to));
    }
    if (!path.empty()) canvas->Stroke(path, {colour, kLineWidth, {}, 1});
    Path heads;
    for (const DrawnArrow& arrow : drawn.arrows) {
        const Vec3 back = arrow.tip - kArrowLength * arrow.way;
        const Vec3 half = kArrowWidth / 2 * Upright(arrow.way);
        heads.MoveTo(x(arrow.tip), y(arrow.tip));
        heads.LineTo(x(back + half), y(back + half));
        heads.LineTo(x(back - half), y(back - half));
        heads.Close();
    }
    if (!heads.empty()) canvas->Area(heads, colour, 1);
    for (const DrawnText& text : drawn.texts) {
        Letters letters{text.height, colour};
        letters.turn = text.turn;
        canvas->Text(x(text.at), y(text.at), letters, text.text);
    }
}

}  // namespace

std::vector<DrawnAnnotation> AnnotationsOnSheet(Model& drawing, int sheet) {
    std::vector<DrawnAnnotation> drawn;
    const auto& all = drawing.drawingData.annotations;
    if (!all) return drawn;
    for (const auto& [id, dimension] : all->dimensions()) {
        const DrawingView* view = ViewOf(drawing, dimension);
        if (!dimension.shown || !view || view->sheet != sheet) continue;
        drawn.push_back(DrawnDimension(drawing, *view, dimension));
    }
    for (const auto& [id, note] : all->notes()) {
        if (note.sheet == sheet) drawn.push_back(DrawnNote(note));
    }
    return drawn;
}

void PaintAnnotations(Model& drawing, int sheet, Vec3 upperLeft, Canvas* canvas) {
    for (const DrawnAnnotation& each : AnnotationsOnSheet(drawing, sheet)) {
        canvas->BeginGroup(fmt::format("dimension{}", each.id), {});
        Paint(each, upperLeft, canvas);
        canvas->EndGroup();
    }
}

}  // namespace simhost
