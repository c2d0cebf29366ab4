// Formats, tables and their fields.
#include "simhost/picture/sheet_furniture.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "simhost/core/text.h"
#include "simhost/model/parameters.h"
#include "simhost/model/session.h"

namespace simhost {

namespace {

constexpr double kThin = 0.25, kThick = 0.5;

// "1:2.5", "2:1".
std::string ScaleText(double scale) {
    const auto number = [](double value) {
        return fmt::format("{:g}", std::round(value * 1000) / 1000);
    };
    return scale >= 1 ? number(scale) + ":1" : "1:" + number(1 / scale);
}

std::optional<std::string> FieldOfSheet(const std::string& name, const Model& drawing, int sheet,
                                        const Model* about) {
    const SheetSet& set = drawing.drawingData;
    const Sheet* on = set.Find(sheet);
    if (name == "dwg_name") return Utf8(drawing.name);
    if (name == "current_sheet") return std::to_string(sheet);
    if (name == "total_sheets") return std::to_string(set.sheets.size());
    if (name == "format" && on) return Utf8(on->size);
    if (name == "scale" && on) return ScaleText(about ? on->ScaleOf(about->FileName()) : on->scale);
    return std::nullopt;
}

std::optional<std::string> FieldOfModel(const std::string& name, const Model& about) {
    if (name == "model_name") return Utf8(about.name);
    if (name == "type") return about.type == PRO_MDL_PART ? "PART" : "ASSEM";
    if (name == "ptc_common_name") return about.title.empty() ? Utf8(about.name) : about.title;
    if (name == "ptc_material_name") return Utf8(about.partData.material);
    const Parameter* parameter = ShownParameter(about, Wide(name));
    return parameter ? std::optional(ValueText(*parameter)) : std::nullopt;
}

std::optional<std::string> FieldValue(std::string name, const Model& drawing, int sheet,
                                      const Model* about) {
    name = Lower(name);
    const bool ofDrawing = name.ends_with(":d");
    if (ofDrawing) name.resize(name.size() - 2);
    if (!ofDrawing) {
        if (auto value = FieldOfSheet(name, drawing, sheet, about)) return value;
        if (about) {
            if (auto value = FieldOfModel(name, *about)) return value;
        }
    }
    const Parameter* parameter = drawing.parameters.Find(Wide(name));
    return parameter ? std::optional(ValueText(*parameter)) : std::nullopt;
}

// Letters of any script belong to a name, as the names of parameters are.
bool IsPartOfName(WideChar c) {
    const auto code = unsigned(c);
    if (code >= 0x80) return true;
    return (code >= '0' && code <= '9') || (code >= 'a' && code <= 'z') ||
           (code >= 'A' && code <= 'Z') || code == '_';
}

std::size_t EndOfName(const WideText& text, std::size_t from) {
    std::size_t end = from;
    while (end < text.size() && IsPartOfName(text[end])) ++end;
    const bool ofDrawing = end > from && end + 1 < text.size() && text[end] == WideChar{':'} &&
                           (text[end + 1] == WideChar{'d'} || text[end + 1] == WideChar{'D'});
    return ofDrawing ? end + 2 : end;
}

Model* AboutOf(const Model& drawing, const std::string& file) {
    if (file.empty() || !drawing.session) return nullptr;
    return drawing.session->RetrieveOrTell(file);
}

// A row less wide than a digit and a half stays empty at both sides of a text.
void AddCell(const SheetTable& table, const std::string& text, Vec3 corner, double wide,
             double high, SheetFurniture* all) {
    constexpr double kPad = 1.5, kLetter = 0.62;
    if (text.empty()) return;
    const double columns = double(DisplayWidth(text));
    const double room = std::max(wide - 2 * kPad, 1.0);
    const double fits = room / (kLetter * std::max(columns, 1.0));
    const double height = std::min({table.textHeight, fits, high - 1});
    const double base = corner.y - (high + 0.75 * height) / 2;
    all->words.push_back({{corner.x + wide / 2, base, 0}, height, true, text});
}

void AddTable(const SheetTable& table, const Model& drawing, SheetFurniture* all) {
    const Model* about = AboutOf(drawing, table.about);
    const double right = table.at.x + table.Wide(), low = table.at.y - table.High();
    double y = table.at.y;
    for (std::size_t row = 0; row < table.heights.size(); ++row) {
        double x = table.at.x;
        for (std::size_t column = 0; column < table.columns.size(); ++column) {
            const bool there = row < table.cells.size() && column < table.cells[row].size();
            const std::string text =
                there ? FilledFields(table.cells[row][column], drawing, table.sheet, about) : "";
            AddCell(table, text, {x, y, 0}, table.columns[column], table.heights[row], all);
            x += table.columns[column];
            if (row == 0 && column + 1 < table.columns.size()) {
                all->strokes.push_back({{{x, table.at.y, 0}, {x, low, 0}}, kThin});
            }
        }
        y -= table.heights[row];
        if (row + 1 < table.heights.size()) {
            all->strokes.push_back({{{table.at.x, y, 0}, {right, y, 0}}, kThin});
        }
    }
    all->strokes.push_back({{{table.at.x, table.at.y, 0},
                             {right, table.at.y, 0},
                             {right, low, 0},
                             {table.at.x, low, 0},
                             {table.at.x, table.at.y, 0}},
                            kThick});
}

void AddFormat(const Sheet& sheet, const Model& drawing, int number, SheetFurniture* all) {
    if (sheet.format.empty() || !drawing.session) return;
    const Model* format = drawing.session->RetrieveOrTell(sheet.format);
    const Sheet* pattern = format ? format->drawingData.Find(sheet.formatSheet) : nullptr;
    if (!pattern) {
        all->missing = sheet.format;
        return;
    }
    all->hasFormat = true;
    const Model* about = AboutOf(drawing, sheet.about);
    for (const FormatLine& line : pattern->lines) all->strokes.push_back({line.points, line.width});
    for (const FormatText& text : pattern->texts) {
        all->words.push_back(
            {text.at, text.height, text.centred, FilledFields(text.text, drawing, number, about)});
    }
}

}  // namespace

std::string FilledFields(const WideText& text, const Model& drawing, int sheet,
                         const Model* about) {
    std::string filled;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t field = std::min(text.find(WideChar{'&'}, at), text.size());
        filled += Utf8(text.substr(at, field - at));
        if (field == text.size()) break;
        const std::size_t end = EndOfName(text, field + 1);
        const std::string name = Utf8(text.substr(field + 1, end - field - 1));
        const auto value = FieldValue(name, drawing, sheet, about);
        filled += value ? *value : name.empty() ? "&" : "";
        at = end;
    }
    return filled;
}

SheetFurniture FurnitureOf(Model& drawing, int sheet) {
    SheetFurniture all;
    const Sheet* on = drawing.drawingData.Find(sheet);
    if (!on) return all;
    AddFormat(*on, drawing, sheet, &all);
    for (const SheetTable& table : drawing.drawingData.tables) {
        if (table.sheet == sheet) AddTable(table, drawing, &all);
    }
    return all;
}

void PaintFurniture(const SheetFurniture& furniture, Vec3 upperLeft, const char* colour,
                    Canvas* canvas) {
    canvas->BeginGroup("format", "");
    for (const SheetStroke& stroke : furniture.strokes) {
        Path path;
        for (const Vec3& point : stroke.points) {
            const double x = point.x - upperLeft.x, y = upperLeft.y - point.y;
            if (path.empty()) {
                path.MoveTo(x, y);
            } else {
                path.LineTo(x, y);
            }
        }
        canvas->Stroke(path, {colour, stroke.width, {}, 1});
    }
    for (const SheetWords& words : furniture.words) {
        const auto anchor = words.centred ? Letters::Anchor::Middle : Letters::Anchor::Start;
        canvas->Text(words.at.x - upperLeft.x, upperLeft.y - words.at.y,
                     {words.height, colour, anchor}, words.text);
    }
    canvas->EndGroup();
}

}  // namespace simhost
