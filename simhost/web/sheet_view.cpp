// A sheet of the current drawing as a picture, with what on it can be selected.
#include <algorithm>
#include <string>

#include "simhost/host.h"
#include "simhost/model/annotations.h"
#include "simhost/model/drawing.h"
#include "simhost/picture/plot.h"
#include "simhost/picture/svg_canvas.h"
#include "simhost/web/answers.h"
#include "simhost/web/json_text.h"

namespace simhost {
namespace {

// In mm of the sheet from its lower left corner, as clicks are.
Json ItemAt(const std::string& path, Vec3 at, const std::string& text) {
    return {{"path", path}, {"x", at.x}, {"y", at.y}, {"text", text}};
}

Json ItemsOn(Model& drawing, int sheet) {
    Json items = Json::array();
    const Annotations& annotations = AnnotationsOf(drawing);
    for (const auto& [id, dimension] : annotations.dimensions()) {
        const DrawingView* view = ViewOf(drawing, dimension);
        if (!dimension.shown || !view || view->sheet != sheet) continue;
        items.push_back(ItemAt("dimension#" + std::to_string(id), PlaceOf(*view, dimension), ""));
    }
    for (const auto& [id, note] : annotations.notes()) {
        if (note.sheet != sheet) continue;
        items.push_back(ItemAt("note#" + std::to_string(id), note.at,
                               note.text.empty() ? std::string() : Text(note.text.front())));
    }
    return items;
}

}  // namespace

Reply SheetNow(const Seat&, const Query&) {
    Model* drawing = TheHost().session.CurrentModel();
    if (!drawing || drawing->type != PRO_MDL_DRAWING) return Refused(404, "no drawing is open");
    const int sheet = DrawingOf(*drawing).currentSheet;
    const Sheet* present = drawing->drawingData.Find(sheet);
    const SheetSize size = SizeOfSheet(present ? present->size : WideText());
    const Json answer = {{"sheet", sheet},
                         {"sheets", std::max<std::size_t>(1, drawing->drawingData.sheets.size())},
                         {"width", size.width},
                         {"height", size.height},
                         {"items", ItemsOn(*drawing, sheet)},
                         {"svg", SvgOf(SheetPlot(*drawing, sheet))}};
    return {200, Reply().type, Dump(answer), {}};
}

}  // namespace simhost
