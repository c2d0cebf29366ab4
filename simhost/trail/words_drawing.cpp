// The @ words about drawings.
#include <fmt/format.h>

#include <charconv>
#include <sstream>
#include <string>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/drawing.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

Drawing* CurrentDrawing() {
    Model* model = TheHost().session.CurrentModel();
    return model && model->type == PRO_MDL_DRAWING ? &DrawingOf(*model) : nullptr;
}

// A view of the drawing's current solid at the sheet's scale. Comes back with what is wrong.
std::string AddGeneral(Drawing* drawing, Vec3 at, const Placement& orientation) {
    const Model& model = *TheHost().session.CurrentModel();
    const SheetSet& sheets = model.drawingData;
    if (sheets.solids.empty()) return "the drawing shows no model";
    const std::string& file = sheets.currentSolid.empty() ? sheets.solids[0] : sheets.currentSolid;
    Model* shown = TheHost().session.RetrieveOrTell(file);
    if (!shown) return "there is no " + file;
    DrawingView& view =
        drawing->AddGeneral(*shown, drawing->currentSheet, at, /*scale=*/1, orientation);
    view.ownScale = false;
    view.display.style = PRO_DISPSTYLE_NO_HIDDEN;
    drawing->Regenerate(view);
    return {};
}

// A projection of a view, on the side of it that the place lies on.
std::string AddBeside(Drawing* drawing, int parent, Vec3 at) {
    DrawingView* beside = drawing->FindView(parent);
    if (!beside || beside->sheet != drawing->currentSheet) {
        return fmt::format("the sheet has no view {}", parent);
    }
    if (!drawing->AddProjected(*beside, at)) return "the place is that of the other view";
    return {};
}

std::string StyleWord(ProDisplayStyle style) {
    switch (style) {
        case PRO_DISPSTYLE_WIREFRAME: return "wireframe";
        case PRO_DISPSTYLE_HIDDEN_LINE: return "hidden lines";
        case PRO_DISPSTYLE_NO_HIDDEN: return "no hidden lines";
        case PRO_DISPSTYLE_DEFAULT: break;
    }
    return "default";
}

}  // namespace

void ExpectViews(Trail& trail, const std::string& rest) {
    int expected = 0;
    const char* end = rest.data() + rest.size();
    const auto [parsed, error] = std::from_chars(rest.data(), end, expected);
    if (error != std::errc() || parsed != end) {
        return trail.Fail(fmt::format("\"{}\" is no number of views", rest));
    }
    const Drawing* drawing = CurrentDrawing();
    if (!drawing) return trail.Fail("the current window shows no drawing");
    const std::size_t found = drawing->views().size();
    if (found != std::size_t(expected)) trail.Fail(fmt::format("the drawing has {} views", found));
}

void AddView(Trail& trail, const std::string& rest) {
    Drawing* drawing = CurrentDrawing();
    if (!drawing) return trail.Fail("the current window shows no drawing");
    static constexpr const char* kForm = "a view is X Y, X Y turn A B C, or X Y beside VIEW";
    std::istringstream words(rest);
    Vec3 at, turn;
    std::string how, more;
    int beside = 0;
    if (!(words >> at.x >> at.y)) return trail.Fail(kForm);
    if (words >> how) {
        const bool read = how == "turn"     ? bool(words >> turn.x >> turn.y >> turn.z)
                          : how == "beside" ? bool(words >> beside)
                                            : false;
        if (!read || words >> more) return trail.Fail(kForm);
    }
    const std::string failure = how == "beside" ? AddBeside(drawing, beside, at)
                                                : AddGeneral(drawing, at, PlacementFrom({}, turn));
    if (!failure.empty()) return trail.Fail(failure);
    TheHost().session.CurrentModel()->modified = true;
    trail.Say(fmt::format("view {}", drawing->views().back()->id));
}

void ShowViews(Trail& trail) {
    Drawing* drawing = CurrentDrawing();
    if (!drawing) return trail.Say("the current window shows no drawing");
    for (const auto& view : drawing->views()) {
        const Extents& box = drawing->OutlineOf(*view);
        const std::string hangs =
            view->parent ? fmt::format("{} {}", SideName(view->side), view->parent->id) : "general";
        trail.Say(fmt::format("{:>3} {}{} {:>9.1f} {:>9.1f} to {:>9.1f} {:>9.1f}  {}", view->id,
                              Padded(view->file, 24), Padded(hangs, 10), box.low.x, box.low.y,
                              box.high.x, box.high.y, StyleWord(view->display.style)));
    }
    trail.Say(fmt::format("{} views", drawing->views().size()));
}

}  // namespace simhost
