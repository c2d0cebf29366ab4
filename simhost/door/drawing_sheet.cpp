// The sheets of drawings at the door.
#include "hostapi/host/drawing_sheet.h"

#include "simhost/door/door.h"
#include "simhost/model/dimension_measure.h"

using namespace simhost;

ProError ProDrawingCurrentSheetGet(ProDrawing drawing, int* sheet) {
    return Op<"ProDrawingCurrentSheetGet">.Call(
        [&] { *sheet = DrawingOf(TheHost().session.RequireDrawing(drawing)).currentSheet; },
        ARG(drawing), OUT(sheet));
}

ProError ProDwgSheetRegenerate(ProDrawing drawing, int sheet) {
    return Op<"ProDwgSheetRegenerate">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            if (sheet < 1 || std::size_t(sheet) > model.drawingData.sheetSizes.size()) {
                Refuse(PRO_TK_BAD_INPUTS);
            }
            Drawing& all = DrawingOf(model);
            for (const auto& view : all.views()) {
                if (view->sheet == sheet && view->IsGeneral()) all.Regenerate(*view);
            }
            RemeasureSheet(model, sheet);
        },
        ARG(drawing), ARG(sheet));
}
