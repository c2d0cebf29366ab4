// Drawing areas: what was drawn, and how they look.
#include "simhost/ui/drawingarea.h"

#include <fmt/format.h>

#include "simhost/ui/dialogs.h"

namespace simhost {
DrawingArea::DrawingArea(Dialog& dialog, const ResourceComponent& declared,
                         const DialogResource& resource)
    : Component(dialog, declared, resource) {
    width_ = resource.Whole(name(), "Width", width_);
    height_ = resource.Whole(name(), "Height", height_);
}

void DrawingArea::BecomeManaged() {
    dialog().RunAction(manageAction, name());
}

std::vector<std::string> DrawingArea::Picture() const {
    if (drawn.empty()) return {"( no picture )"};
    std::vector<std::string> lines;
    for (const Drawn& one : drawn) lines.push_back("( " + one.image + " )");
    return lines;
}

std::string DrawingArea::State() const {
    std::string text;
    for (const Drawn& one : drawn) {
        text += fmt::format("{}{} at {},{}", text.empty() ? "" : "; ", one.image, one.x, one.y);
    }
    return text.empty() ? "no picture" : text;
}

}  // namespace simhost
