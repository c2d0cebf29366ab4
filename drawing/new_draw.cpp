// NewDraw: the drawing of a model under the model's own name, opened if it is there, else made from
// the plug-in's own template with a format that the user chooses.
#include "drawing/commands.h"
#include "drawing/drawn_model.h"
#include "drawing/new_drawing.h"
#include "frame/services.h"

namespace {

// The plug-in's template lies in a folder beside the module.
ProError CreateFromOwnTemplate(const WideText& name, ProMdl model, const WideText& workFolder,
                               ProDrawing* drawing) {
    const ProModel shown = ShownModel(model);
    const FolderVisit visit(FileBesideModule(WIDE("tp")), workFolder);
    return CreateDrawing(name, WIDE("vx.drw"), shown, drawing);
}

void ShowFailure(ProError status) {
    switch (status) {
        case PRO_TK_E_FOUND: return ShowPlainError(WIDE("PRO_TK_E_FOUND"));
        case PRO_TK_E_NOT_FOUND: return ShowPlainError(WIDE("PRO_TK_E_NOT_FOUND"));
        case PRO_TK_DWGCREATE_ERRORS: return ShowPlainError(WIDE("PRO_TK_DWGCREATE_ERRORS"));
        case PRO_TK_NO_PERMISSION: return ShowPlainError(WIDE("PRO_TK_NO_PERMISSION"));
        default: return;
    }
}

}  // namespace

void NewDraw() {
    ProPath workFolder = {};
    ProDirectoryCurrentGet(workFolder);
    const ProMdl model = DrawnModel().model;
    if (!model) return;
    const WideText name = ModelName(model);
    if (ProMdl present = RetrieveDrawing(name)) {
        const auto window = OpenDrawingWindow(name);
        ProMdlDisplay(present);
        if (window) ProWindowActivate(*window);
        return;
    }
    const WideText formats = FirstOptionValue(WIDE("pro_format_dir")).value_or(WideText());
    const auto format = ChooseFile(WIDE("请选择工程图模板"), WIDE("*.frm"), formats);
    if (!format) return;
    ProDrawing drawing = nullptr;
    const ProError status = CreateFromOwnTemplate(name, model, TextIn(workFolder), &drawing);
    if (status != PRO_TK_NO_ERROR) return ShowFailure(status);
    OpenDrawingWindowAndEnter(name);
    // A format that the host cannot find is handed over all the same, and refused.
    ProMdl found = nullptr;
    ProMdlRetrieve(HostText(format->name), PRO_MDL_DWGFORM, &found);
    ProDrawingFormatAdd(drawing, 1, static_cast<ProSolid>(model), found, 0);
}
