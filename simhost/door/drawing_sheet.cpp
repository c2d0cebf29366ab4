// Sheets of drawings at the door: the current one, their models, scales and formats.
#include "hostapi/host/drawing_sheet.h"

#include <cmath>

#include "simhost/door/door.h"
#include "simhost/model/dimension_measure.h"
#include "simhost/model/drawing.h"

using namespace simhost;

namespace {

Sheet& RequireSheet(Model& drawing, int sheet) {
    Sheet* found = drawing.drawingData.Find(sheet);
    if (!found) Refuse(PRO_TK_BAD_INPUTS);
    return *found;
}

// The file of a model that the drawing has.
std::string RequireShown(const Model& drawing, ProSolid solid) {
    const std::string file = TheHost().session.RequireSolid(solid).FileName();
    if (!drawing.drawingData.Shows(file)) Refuse(PRO_TK_E_NOT_FOUND);
    return file;
}

}  // namespace

ProError ProDrawingCurrentSheetGet(ProDrawing drawing, int* sheet) {
    return Op<"ProDrawingCurrentSheetGet">.Call(
        [&] { *sheet = DrawingOf(TheHost().session.RequireDrawing(drawing)).currentSheet; },
        ARG(drawing), OUT(sheet));
}

ProError ProDrawingCurrentSheetSet(ProDrawing drawing, int sheet) {
    return Op<"ProDrawingCurrentSheetSet">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            RequireSheet(model, sheet);
            DrawingOf(model).currentSheet = sheet;
        },
        ARG(drawing), ARG(sheet));
}

ProError ProDwgSheetRegenerate(ProDrawing drawing, int sheet) {
    return Op<"ProDwgSheetRegenerate">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            RequireSheet(model, sheet);
            DrawingOf(model).RegenerateSheet(sheet);
            RemeasureSheet(model, sheet);
        },
        ARG(drawing), ARG(sheet));
}

ProError ProDrawingSolidsCollect(ProDrawing drawing, ProSolid** solids) {
    Operation& op = Op<"ProDrawingSolidsCollect">;
    return op.Call(
        [&] {
            Session& session = TheHost().session;
            std::vector<ProSolid> handles;
            for (const std::string& file : session.RequireDrawing(drawing).drawingData.solids) {
                const Model* solid = session.RetrieveOrTell(file);
                if (solid) handles.push_back(static_cast<ProSolid>(solid->handle));
            }
            if (handles.empty()) Refuse(PRO_TK_E_NOT_FOUND);
            *solids = TheHost().arrays.Make(handles, op.name());
        },
        ARG(drawing), OUT_ARRAY(solids));
}

ProError ProDrawingCurrentsolidSet(ProDrawing drawing, ProSolid solid) {
    return Op<"ProDrawingCurrentsolidSet">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            model.drawingData.currentSolid = RequireShown(model, solid);
            model.modified = true;
        },
        ARG(drawing), ARG(solid));
}

ProError ProDrawingScaleGet(ProDrawing drawing, ProSolid solid, int sheet, double* scale) {
    return Op<"ProDrawingScaleGet">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            const Sheet& of = RequireSheet(model, sheet);
            *scale = of.ScaleOf(RequireShown(model, solid));
        },
        ARG(drawing), ARG(solid), ARG(sheet), OUT_NUMBER(scale));
}

ProError ProDrawingScaleSet(ProDrawing drawing, ProSolid solid, int sheet, double scale) {
    return Op<"ProDrawingScaleSet">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            Sheet& of = RequireSheet(model, sheet);
            const std::string file = RequireShown(model, solid);
            if (!(scale > 0) || !std::isfinite(scale)) Refuse(PRO_TK_BAD_INPUTS);
            of.SetScale(file, scale);
            model.modified = true;
        },
        ARG(drawing), ARG(solid), ARG(sheet), ARG(scale));
}

ProError ProDrawingFormatAdd(ProDrawing drawing, int sheet, ProSolid solid, ProMdl format,
                             int formatSheet) {
    return Op<"ProDrawingFormatAdd">.Call(
        [&] {
            Session& session = TheHost().session;
            Model& model = session.RequireDrawing(drawing);
            const Model& added = session.Require(format);
            if (added.type != PRO_MDL_DWGFORM) Refuse(PRO_TK_BAD_INPUTS);
            RequireSheet(model, sheet);
            const int from = formatSheet == 0 ? 1 : formatSheet;
            if (!added.drawingData.Find(from)) Refuse(PRO_TK_BAD_INPUTS);
            model.drawingData.AddFormat(sheet, added, from, RequireShown(model, solid));
            model.modified = true;
        },
        ARG(drawing), ARG(sheet), ARG(solid), ARG(format), ARG(formatSheet));
}
