// Drawing areas at the door.
#include <algorithm>

#include "hostapi/host.h"
#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/door/dialog_component.h"
#include "simhost/ui/drawingarea.h"

using namespace simhost;

namespace {

std::vector<std::string> Names(int count, char** images) {
    if (count < 1) Complain(PRO_TK_BAD_INPUTS, "no pictures");
    Need(images, "the pictures");
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) {
        Need(images[i], "a picture's name");
        names.push_back(Utf8(FromSystemCodePage(images[i])));
    }
    return names;
}

}  // namespace

ProError ProUIDrawingareaPostmanagenotifyActionSet(char* dialog, char* area, ProUIAction action,
                                                   ProAppData data) {
    return Op<"ProUIDrawingareaPostmanagenotifyActionSet">.Call(
        [&] {
            Required<DrawingArea>(dialog, area).manageAction = {action, data};
        },
        ARG(dialog), ARG(area), ARG(action), ARG(data));
}

ProError ProUIDrawingareaImagesSet(char* dialog, char* area, int count, char** images) {
    return Op<"ProUIDrawingareaImagesSet">.Call(
        [&] {
            DrawingArea& found = Required<DrawingArea>(dialog, area);
            const std::vector<std::string> names = Names(count, images);
            for (const std::string& name : names) {
                const WideText path =
                    TheHost().textFolder + WIDE("\\text\\resource\\") + Wide(name);
                bool there = false;
                ReadFile(TheHost().disk.Real(path), &there);
                if (!there) Refuse(PRO_TK_E_NOT_FOUND);
            }
            found.images = names;
        },
        ARG(dialog), ARG(area), LIST(images, count));
}

ProError ProUIDrawingareaImagesDraw(char* dialog, char* area, int count, char** images,
                                    ProUIPoint* positions) {
    return Op<"ProUIDrawingareaImagesDraw">.Call(
        [&] {
            DrawingArea& found = Required<DrawingArea>(dialog, area);
            const std::vector<std::string> names = Names(count, images);
            Need(positions, "positions");
            for (std::size_t i = 0; i < names.size(); ++i) {
                const auto& known = found.images;
                if (std::find(known.begin(), known.end(), names[i]) == known.end()) {
                    Refuse(PRO_TK_E_NOT_FOUND);
                }
                found.drawn.push_back({names[i], positions[i].x, positions[i].y});
            }
        },
        ARG(dialog), ARG(area), LIST(images, count), LIST(positions, count));
}
