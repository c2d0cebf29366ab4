// The @ words about drawings.
#include <fmt/format.h>

#include <charconv>

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
