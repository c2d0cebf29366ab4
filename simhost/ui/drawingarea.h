// Drawing areas: places for pictures. Attributes of the resource: (Area.Width 64) (Area.Height 48),
// in pixels.
#pragma once

#include <string>
#include <vector>

#include "simhost/ui/component.h"

namespace simhost {

class DrawingArea : public Component {
public:
    static constexpr const char* kKind = "DrawingArea";
    DrawingArea(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource);

    struct Drawn {
        std::string image;  // a file of text/resource
        int x = 0, y = 0;
    };
    std::vector<std::string> images;  // known to it
    std::vector<Drawn> drawn;         // in the order in which they were drawn
    DialogAction manageAction;
    int width() const { return width_; }
    int height() const { return height_; }

    // The dialog is shown, and the area has its place in it.
    void BecomeManaged();
    std::vector<std::string> Picture() const override;
    std::string State() const override;

private:
    int width_ = 64;
    int height_ = 48;
};

}  // namespace simhost
