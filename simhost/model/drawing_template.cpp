// What a new drawing takes over from its template.
#include "simhost/model/drawing_template.h"

#include <algorithm>
#include <map>

#include "simhost/core/operation.h"
#include "simhost/model/model_file.h"
#include "simhost/model/projection.h"
#include "simhost/model/session.h"

namespace simhost {

namespace {

// Of the national standard for drawings, the smaller ones first.
constexpr double kUsualScales[] = {0.001, 0.002, 0.005,   0.01, 0.02, 0.05,    0.1, 1.0 / 6,
                                   0.2,   0.25,  1 / 3.0, 0.4,  0.5,  1 / 1.5, 1,   2,
                                   2.5,   4,     5,       10,   20,   50};

// The views of the template as the new drawing's own. A projection comes after its parent.
void TakeViews(const Model& pattern, Model& shown, Model* drawing) {
    if (!pattern.drawingData.views) return;
    const Extents box = ExtentsIn(shown, Placement(), Sight::Views);
    std::map<const DrawingView*, DrawingView*> made;
    for (const auto& one : pattern.drawingData.views->views()) {
        DrawingView view = *one;
        if (view.file.empty()) {
            view.file = shown.FileName();
            view.model = shown.handle;
            view.pivot = box.empty ? Vec3() : 0.5 * (box.low + box.high);
        }
        view.handle = nullptr;
        view.outline.reset();
        if (view.parent) view.parent = made[view.parent];
        made[one.get()] = &DrawingOf(*drawing).Add(std::move(view));
    }
}

// Formats bring their tables anew, with fields about the model.
bool TakeFormats(Model& shown, Model* drawing) {
    const std::string about = shown.FileName();
    SheetSet& set = drawing->drawingData;
    std::erase_if(set.tables, [](const SheetTable& table) { return table.fromFormat; });
    for (std::size_t i = 0; i < set.sheets.size(); ++i) {
        const std::string file = set.sheets[i].format;
        if (file.empty()) continue;
        const Model* format = drawing->session->RetrieveOrTell(file);
        const bool fits = format && format->drawingData.Find(set.sheets[i].formatSheet);
        if (!fits) {
            if (drawing->session->tell) {
                drawing->session->tell("the template's format " + file + " is not there");
            }
            return false;
        }
        set.AddFormat(int(i + 1), *format, set.sheets[i].formatSheet, about);
    }
    for (SheetTable& table : set.tables) table.about = about;
    return true;
}

// The scale at which all views of a sheet keep to their room; 0 where none has any.
double FittingScale(Drawing& drawing, int sheet) {
    double most = 0;
    for (const auto& view : drawing.views()) {
        if (view->sheet != sheet || view->room == Vec3{}) continue;
        const Extents& box = drawing.OutlineOf(*view);
        const double now = Drawing::ScaleOf(*view);
        for (const auto& [size, room] : {std::pair{box.high.x - box.low.x, view->room.x},
                                         std::pair{box.high.y - box.low.y, view->room.y}}) {
            if (!(size > 0)) continue;
            const double fits = now * room / size;
            most = most == 0 ? fits : std::min(most, fits);
        }
    }
    return most == 0 ? 0 : UsualScale(most);
}

void FitScales(Model* drawing) {
    Drawing& views = DrawingOf(*drawing);
    for (std::size_t i = 0; i < drawing->drawingData.sheets.size(); ++i) {
        const int sheet = int(i + 1);
        const double scale = FittingScale(views, sheet);
        if (scale > 0) drawing->drawingData.sheets[i].scale = scale;
        views.RegenerateSheet(sheet);
    }
    for (const auto& view : views.views()) view->room = {};
}

}  // namespace

double UsualScale(double most) {
    double usual = kUsualScales[0];
    for (const double scale : kUsualScales) {
        if (scale <= most * (1 + 1e-9)) usual = scale;
    }
    return usual;
}

bool FillFromTemplate(const Model& pattern, Model& shown, Model* drawing) {
    drawing->drawingData.sheets = pattern.drawingData.sheets;
    drawing->drawingData.tables = pattern.drawingData.tables;
    if (pattern.drawingData.views) DrawingOf(*drawing).rule = pattern.drawingData.views->rule;
    DrawingOf(*drawing);
    drawing->drawingData.AddSolid(shown.FileName());
    TakeViews(pattern, shown, drawing);
    if (!TakeFormats(shown, drawing)) return false;
    FitScales(drawing);
    return true;
}

}  // namespace simhost
