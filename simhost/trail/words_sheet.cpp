// The @ words about the sheets of the drawing in the current window.
#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/drawing.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

// The drawing in the current window; null where it shows none.
Model* ShownDrawing() {
    Model* model = TheHost().session.CurrentModel();
    return model && model->type == PRO_MDL_DRAWING ? model : nullptr;
}

template <class Number>
std::optional<Number> WholeNumber(const std::string& text) {
    Number number = {};
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || parsed != end) return std::nullopt;
    return number;
}

// "2 rest" as a sheet of the shown drawing, and the rest; null where the reason was told.
const Sheet* SheetAndRest(Trail& trail, const std::string& text, std::string* rest) {
    const Model* drawing = ShownDrawing();
    if (!drawing) {
        trail.Fail("the current window shows no drawing");
        return nullptr;
    }
    const std::size_t blank = std::min(text.find(' '), text.size());
    const std::string number = text.substr(0, blank);
    *rest = text.substr(std::min(text.find_first_not_of(' ', blank), text.size()));
    const auto sheet = WholeNumber<int>(number);
    const Sheet* found = sheet ? drawing->drawingData.Find(*sheet) : nullptr;
    if (!found) trail.Fail(fmt::format("there is no sheet \"{}\"", number));
    return found;
}

// The scale of what the sheet shows first, as VxUpdateSheetScale reads it.
double ScaleOfSheet(Model& drawing, int number) {
    const Sheet& sheet = *drawing.drawingData.Find(number);
    for (const auto& view : DrawingOf(drawing).views()) {
        if (view->sheet == number) return sheet.ScaleOf(view->file);
    }
    return sheet.scale;
}

std::string FormatWord(const Sheet& sheet) {
    return sheet.format.empty() ? "none" : sheet.format;
}

}  // namespace

void TurnToSheet(Trail& trail, const std::string& rest) {
    std::string more;
    if (!SheetAndRest(trail, rest, &more)) return;
    if (!more.empty()) return trail.Fail("sheet takes one number");
    DrawingOf(*ShownDrawing()).currentSheet = *WholeNumber<int>(rest);
}

void ExpectScale(Trail& trail, const std::string& rest) {
    std::string value;
    if (!SheetAndRest(trail, rest, &value)) return;
    const auto expected = WholeNumber<double>(value);
    if (!expected) return trail.Fail(fmt::format("\"{}\" is no scale", value));
    const double scale = ScaleOfSheet(*ShownDrawing(), std::stoi(rest));
    if (std::fabs(scale - *expected) > 1e-6) trail.Fail(fmt::format("the scale is {}", scale));
}

void ExpectFormat(Trail& trail, const std::string& rest) {
    std::string name;
    const Sheet* sheet = SheetAndRest(trail, rest, &name);
    if (!sheet) return;
    if (name.empty()) return trail.Fail("a format's file, or none, belongs after the sheet");
    const std::string found = FormatWord(*sheet);
    if (found != name) trail.Fail(fmt::format("the format is {}", found));
}

void ShowSheets(Trail& trail) {
    Model* model = ShownDrawing();
    if (!model) return trail.Say("the current window shows no drawing");
    const Drawing& drawing = DrawingOf(*model);
    int number = 0;
    for (const Sheet& sheet : model->drawingData.sheets) {
        ++number;
        const auto views = std::count_if(drawing.views().begin(), drawing.views().end(),
                                         [&](const auto& view) { return view->sheet == number; });
        trail.Say(fmt::format("{:>3} {}scale {}{}{} views{}", number, Padded(Utf8(sheet.size), 6),
                              Padded(fmt::format("{:g}", ScaleOfSheet(*model, number)), 8),
                              Padded(FormatWord(sheet), 20), views,
                              number == drawing.currentSheet ? ", the current one" : ""));
    }
}

}  // namespace simhost
