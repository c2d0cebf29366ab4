// Sheets of drawings as drawing-exchange text: pairs of lines, a number that says what the next
// line is, and that value.
#include "simhost/picture/dxf.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/picture/sheet_dimensions.h"
#include "simhost/picture/sheet_furniture.h"
#include "simhost/picture/sheet_lines.h"

namespace simhost {

namespace {

constexpr int kWhite = 7, kGrey = 8, kCyan = 4;  // colours by their number in the format
constexpr unsigned kCodePage = 936;

struct Layer {
    const char* name;
    int colour;
    const char* lineType;
};
constexpr Layer kLayers[] = {
    {"0", kWhite, "CONTINUOUS"}, {"FRAME", kCyan, "CONTINUOUS"}, {"VISIBLE", kWhite, "CONTINUOUS"},
    {"HIDDEN", kGrey, "HIDDEN"}, {"TEXT", kWhite, "CONTINUOUS"}, {"DIMENSION", kCyan, "CONTINUOUS"},
};

class Writer {
public:
    void Pair(int code, const std::string& value) {
        text_ += fmt::format("{:>3}\r\n{}\r\n", code, value);
    }
    void Pair(int code, int value) { Pair(code, std::to_string(value)); }
    void Pair(int code, double value) { Pair(code, fmt::format("{:.4f}", value + 0.0)); }

    void Begin(const char* section) {
        Pair(0, "SECTION");
        Pair(2, section);
    }
    void BeginTable(const char* table, std::size_t entries) {
        Pair(0, "TABLE");
        Pair(2, table);
        Pair(70, int(entries));
    }
    void Point(int code, double x, double y) {
        Pair(code, x);
        Pair(code + 10, y);
    }
    void Line(const char* layer, double x0, double y0, double x1, double y1) {
        Pair(0, "LINE");
        Pair(8, layer);
        Point(10, x0, y0);
        Point(11, x1, y1);
    }
    // Letters that the code page lacks are written by their numbers, as readers of the format know
    // them.
    void Text(const WideText& text) {
        std::string bytes;
        for (const WideChar c : text) {
            const WideText one(1, c);
            const bool there = FromCodePage(kCodePage, ToCodePage(kCodePage, one)) == one;
            bytes += there ? Utf8(one) : fmt::format("\\U+{:04X}", unsigned(c));
        }
        Pair(1, bytes);
    }
    std::string& text() { return text_; }

private:
    std::string text_;
};

void AddHeader(const Extents& all, SheetSize size, Writer* out) {
    out->Begin("HEADER");
    const auto variable = [&](const char* name) { out->Pair(9, name); };
    variable("$ACADVER");
    out->Pair(1, "AC1009");
    variable("$DWGCODEPAGE");
    out->Pair(3, "ANSI_936");
    variable("$EXTMIN");
    out->Point(10, all.low.x, all.low.y);
    variable("$EXTMAX");
    out->Point(10, all.high.x, all.high.y);
    variable("$LIMMIN");
    out->Point(10, 0, 0);
    variable("$LIMMAX");
    out->Point(10, size.width, size.height);
    out->Pair(0, "ENDSEC");
}

// A line type as the lengths of its dashes (more than 0) and gaps.
void AddLineType(const char* name, const char* words, const std::vector<double>& pattern,
                 Writer* out) {
    double length = 0;
    for (const double dash : pattern) length += dash < 0 ? -dash : dash;
    out->Pair(0, "LTYPE");
    out->Pair(2, name);
    out->Pair(70, 0);
    out->Pair(3, words);
    out->Pair(72, 65);
    out->Pair(73, int(pattern.size()));
    out->Pair(40, length);
    for (const double dash : pattern) out->Pair(49, dash);
}

void AddTables(Writer* out) {
    out->Begin("TABLES");
    out->BeginTable("LTYPE", 2);
    AddLineType("CONTINUOUS", "Solid line", {}, out);
    AddLineType("HIDDEN", "__ __ __", {4, -2}, out);
    out->Pair(0, "ENDTAB");
    out->BeginTable("LAYER", std::size(kLayers));
    for (const Layer& layer : kLayers) {
        out->Pair(0, "LAYER");
        out->Pair(2, layer.name);
        out->Pair(70, 0);
        out->Pair(62, layer.colour);
        out->Pair(6, layer.lineType);
    }
    out->Pair(0, "ENDTAB");
    out->BeginTable("STYLE", 1);
    out->Pair(0, "STYLE");
    out->Pair(2, "STANDARD");
    out->Pair(70, 0);
    out->Pair(40, 0.0);
    out->Pair(41, 1.0);
    out->Pair(50, 0.0);
    out->Pair(71, 0);
    out->Pair(42, 2.5);
    out->Pair(3, "txt");
    out->Pair(4, "gbcbig");
    out->Pair(0, "ENDTAB");
    out->Pair(0, "ENDSEC");
}

void AddFrame(const Model& drawing, SheetSize size, Writer* out) {
    const double w = size.width, h = size.height;
    out->Line("FRAME", 0, 0, w, 0);
    out->Line("FRAME", w, 0, w, h);
    out->Line("FRAME", w, h, 0, h);
    out->Line("FRAME", 0, h, 0, 0);
    out->Pair(0, "TEXT");
    out->Pair(8, "TEXT");
    out->Point(10, 20, 20);
    out->Pair(40, 7.0);
    out->Text(drawing.name);
}

// Signs that readers of the format know by codes of their own.
std::string Coded(std::string text) {
    constexpr std::pair<const char*, const char*> kCodes[] = {{"±", "%%p"}, {"°", "%%d"}};
    for (const auto& [sign, code] : kCodes) {
        for (std::size_t at = text.find(sign); at != std::string::npos; at = text.find(sign)) {
            text.replace(at, std::strlen(sign), code);
        }
    }
    return text;
}

void AddAnnotation(const DrawnAnnotation& drawn, Writer* out) {
    constexpr const char* kLayer = "DIMENSION";
    for (const auto& [from, to] : drawn.lines) out->Line(kLayer, from.x, from.y, to.x, to.y);
    for (const DrawnArrow& arrow : drawn.arrows) {
        const Vec3 back = arrow.tip - kArrowLength * arrow.way;
        const Vec3 half = kArrowWidth / 2 * Vec3{-arrow.way.y, arrow.way.x, 0};
        const Vec3 left = back + half, right = back - half;
        out->Pair(0, "SOLID");
        out->Pair(8, kLayer);
        out->Point(10, arrow.tip.x, arrow.tip.y);
        out->Point(11, left.x, left.y);
        out->Point(12, right.x, right.y);
        out->Point(13, right.x, right.y);
    }
    for (const DrawnText& text : drawn.texts) {
        out->Pair(0, "TEXT");
        out->Pair(8, kLayer);
        out->Point(10, text.at.x, text.at.y);
        out->Pair(40, text.height);
        out->Text(Wide(Coded(text.text)));
        if (text.turn != 0) out->Pair(50, text.turn);
    }
}

void AddFurniture(const SheetFurniture& furniture, Writer* out) {
    for (const SheetStroke& stroke : furniture.strokes) {
        for (std::size_t i = 1; i < stroke.points.size(); ++i) {
            const Vec3 &from = stroke.points[i - 1], &to = stroke.points[i];
            out->Line("FRAME", from.x, from.y, to.x, to.y);
        }
    }
    for (const SheetWords& words : furniture.words) {
        out->Pair(0, "TEXT");
        out->Pair(8, "TEXT");
        out->Point(10, words.at.x, words.at.y);
        out->Pair(40, words.height);
        out->Text(Wide(words.text));
        if (!words.centred) continue;
        out->Pair(72, 1);
        out->Point(11, words.at.x, words.at.y);
    }
}

}  // namespace

std::string SheetDxf(Model& drawing, int sheet) {
    const Sheet* present = drawing.drawingData.Find(sheet);
    const SheetSize size = SizeOfSheet(present ? present->size : WideText());
    const std::vector<ViewOnSheet> views = ViewsOnSheet(drawing, sheet);
    Extents all;
    all.Add({});
    all.Add({size.width, size.height, 0});
    for (const ViewOnSheet& view : views) {
        all.Add(view.outline.low);
        all.Add(view.outline.high);
    }
    Writer out;
    out.Pair(999,
             "Drawing exchange text (DXF, release 12), written by the simulated host of Vorlatix");
    AddHeader(all, size, &out);
    AddTables(&out);
    out.Begin("ENTITIES");
    const SheetFurniture furniture = FurnitureOf(drawing, sheet);
    if (!furniture.hasFormat) AddFrame(drawing, size, &out);
    AddFurniture(furniture, &out);
    for (const ViewOnSheet& view : views) {
        for (const DrawnLine& line : view.lines) {
            out.Line(line.hidden ? "HIDDEN" : "VISIBLE", line.x0, line.y0, line.x1, line.y1);
        }
    }
    for (const DrawnAnnotation& each : AnnotationsOnSheet(drawing, sheet)) {
        AddAnnotation(each, &out);
    }
    out.Pair(0, "ENDSEC");
    out.Pair(0, "EOF");
    return ToCodePage(kCodePage, Wide(out.text()));
}

}  // namespace simhost
