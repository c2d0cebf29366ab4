// Drawings as files of a folder, and as what the host makes of them.
#include "drawing/folder_drawings.h"

HostArray<ProPath> DrawingsOfWorkingDirectory() {
    ProPath* files = nullptr;
    ProPath* inside = nullptr;
    const WideText filter = Widen("*.drw");
    ProFilesList(nullptr, HostText(filter), PRO_FILE_LIST_LATEST, &files, &inside);
    HostArray<ProPath> drawings, folders;
    drawings.Adopt(files);
    folders.Adopt(inside);
    if (drawings.Size() == 0) ShowPlainError(WIDE("当前工作目录下无工程图"));
    return drawings;
}

WideText ModelNameOf(WideView path) {
    const std::size_t folder = path.find_last_of(WIDE("\\/"));
    if (folder != WideView::npos) path.remove_prefix(folder + 1);
    return WideText(path.substr(0, path.find(WideChar{'.'})));
}

DrawingWithViews FetchDrawing(WideView path) {
    DrawingWithViews fetched;
    ProMdl model = nullptr;
    const WideText name = ModelNameOf(path);
    if (ProMdlRetrieve(HostText(name), PRO_MDL_DRAWING, &model) != PRO_TK_NO_ERROR) return fetched;
    fetched.drawing = static_cast<ProDrawing>(model);
    ProView* views = nullptr;
    if (ProDrawingViewsCollect(fetched.drawing, &views) != PRO_TK_NO_ERROR) return fetched;
    fetched.views.Adopt(views);
    fetched.count = fetched.views.Size();
    return fetched;
}

int SheetOf(ProDrawing drawing, ProView view) {
    int sheet = 0;
    ProDrawingViewSheetGet(drawing, view, &sheet);
    return sheet;
}
