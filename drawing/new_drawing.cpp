// Drawings under the names of models: found, shown in windows, made from templates.
#include "drawing/new_drawing.h"

#include <algorithm>

ProMdl RetrieveDrawing(const WideText& name) {
    ProMdl drawing = nullptr;
    if (ProMdlRetrieve(HostText(name), PRO_MDL_DRAWING, &drawing) != PRO_TK_NO_ERROR) {
        return nullptr;
    }
    return drawing;
}

std::optional<int> OpenDrawingWindow(const WideText& name) {
    int window = 0;
    if (ProObjectwindowCreate(HostText(name), PRO_DRAWING, &window) != PRO_TK_NO_ERROR) {
        return std::nullopt;
    }
    return window;
}

void OpenDrawingWindowAndEnter(const WideText& name) {
    const auto window = OpenDrawingWindow(name);
    if (!window) return;
    ProWindowCurrentSet(*window);
    ProWindowActivate(*window);
}

ProModel ShownModel(ProMdl model) {
    ProMdldata data = {};
    ProMdlDataGet(model, &data);
    ProModel shown = {};
    // Whole, terminated or not; the two records need not be of one size.
    std::copy_n(data.name, std::min(std::size(data.name), std::size(shown.name)), shown.name);
    std::copy_n(data.type, std::min(std::size(data.type), std::size(shown.type)), shown.type);
    return shown;
}

ProError CreateDrawing(const WideText& name, const WideText& drawingTemplate, ProModel shown,
                       ProDrawing* drawing) {
    ProDwgcreateErrs errors = nullptr;
    const ProError status =
        ProDrawingFromTmpltCreate(HostText(name), HostText(drawingTemplate), &shown,
                                  PRODWGCREATE_DISPLAY_DRAWING, drawing, &errors);
    LeaveTemplateErrors(errors);
    return status;
}

FolderVisit::FolderVisit(const WideText& folder, const WideText& back) {
    if (folder.empty() || back.empty()) return;
    back_ = back;
    ProDirectoryChange(HostText(folder));
}

FolderVisit::~FolderVisit() {
    if (!back_.empty()) ProDirectoryChange(HostText(back_));
}
