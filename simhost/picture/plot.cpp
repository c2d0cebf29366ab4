// Plotting of drawings: what is on the paper, and nothing that only a picture on the screen tells.
#include "simhost/picture/plot.h"

#include "simhost/core/text.h"
#include "simhost/model/drawing.h"
#include "simhost/model/toml.h"
#include "simhost/picture/cairo_canvas.h"
#include "simhost/picture/sheet_dimensions.h"
#include "simhost/picture/sheet_furniture.h"
#include "simhost/picture/sheet_lines.h"

namespace simhost {

namespace {

constexpr const char* kPlotted = "#000000";
constexpr const char* kHiddenInk = "#5a6672";
constexpr const char* kFrame = "#26323d";
constexpr double kPlottedWidth = 0.5, kHiddenWidth = 0.25;
constexpr double kBorder = 5;
constexpr double kPointsPerMm = 72 / 25.4;

// The frame and the name of a drawing that has no format.
void PaintOwnFrame(const Model& drawing, SheetSize size, Canvas* canvas) {
    const Pen pen{kFrame, kPlottedWidth, {}, 1};
    const Rectangle frame{kBorder, kBorder, size.width - 2 * kBorder, size.height - 2 * kBorder};
    canvas->Box(frame, "", &pen);
    canvas->Text(2 * kBorder, size.height - 2 * kBorder, {7, kFrame}, Utf8(drawing.name));
}

void PaintSheet(Model& drawing, int sheet, SheetSize size, Canvas* canvas) {
    const Vec3 upperLeft{0, size.height, 0};
    const SheetFurniture furniture = FurnitureOf(drawing, sheet);
    if (!furniture.hasFormat) PaintOwnFrame(drawing, size, canvas);
    PaintFurniture(furniture, upperLeft, kFrame, canvas);
    const Pen dashed{kHiddenInk, kHiddenWidth, {3, 1.5}, 1};
    for (const ViewOnSheet& view : ViewsOnSheet(drawing, sheet)) {
        canvas->Stroke(LinesOf(view, /*hidden=*/true, upperLeft), dashed);
        canvas->Stroke(LinesOf(view, /*hidden=*/false, upperLeft),
                       {kPlotted, kPlottedWidth, {}, 1});
    }
    PaintAnnotations(drawing, sheet, upperLeft, canvas);
}

// One row of a profile: its key and the words of its values, in the order of their numbers.
struct ProfileKey {
    const char* key;
    std::vector<const char*> words;
};

// The number of a word of a key; -1, with the mistake told, for a value that it cannot have.
int NumberOf(const ProfileKey& key, const toml::node& value, std::string* mistake) {
    const auto word = value.value<std::string>();
    std::string known;
    for (std::size_t i = 0; i < key.words.size(); ++i) {
        if (word && *word == key.words[i]) return int(i);
        known += (i > 0 ? ", " : "") + std::string(key.words[i]);
    }
    *mistake = std::string(key.key) + " is one of " + known;
    return -1;
}

}  // namespace

Picture SheetPlot(Model& drawing, int sheet) {
    const Sheet* present = drawing.drawingData.Find(sheet);
    const SheetSize size = SizeOfSheet(present ? present->size : WideText());
    return {size.width, size.height, size.width * kPointsPerMm, size.height * kPointsPerMm,
            [&drawing, sheet, size](Canvas& canvas) { PaintSheet(drawing, sheet, size, &canvas); }};
}

PlotFile PlotOf(Model& drawing, const std::vector<int>& sheets, const PlotOptions& options) {
    std::vector<Picture> pages;
    pages.reserve(sheets.size());
    for (const int sheet : sheets) pages.push_back(SheetPlot(drawing, sheet));
    PlotFile file;
    file.bytes = PdfOf(pages, Utf8(drawing.name), options, &file.note);
    return file;
}

std::string ReadPlotProfile(const std::string& text, PlotOptions* options) {
    const ProfileKey sheets{"sheets", {"all", "current"}};
    const ProfileKey colours{"colours", {"full", "grey", "black"}};
    const ProfileKey texts{"texts", {"fonts", "curves"}};
    try {
        const toml::table profile = toml::parse(std::string_view(text));
        std::string mistake;
        for (const auto& [key, value] : profile) {
            if (key == sheets.key) {
                options->sheets = PlotSheets(NumberOf(sheets, value, &mistake));
            } else if (key == colours.key) {
                options->colours = PlotColours(NumberOf(colours, value, &mistake));
            } else if (key == texts.key) {
                options->strokes = NumberOf(texts, value, &mistake) == 1;
            } else {
                mistake = "there is no key " + std::string(key.str());
            }
            if (!mistake.empty()) break;
        }
        return mistake;
    } catch (const toml::parse_error& error) {
        return std::string(error.description());
    }
}

}  // namespace simhost
