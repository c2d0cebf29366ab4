// Drawings as files of a folder, and as what the host makes of them.
#include "drawing/folder_drawings.h"

#include <utility>

HostArray<ProPath> DrawingsOfWorkingDirectory() {
    FileList list = ListFiles(Widen("*.drw"));
    if (list.count == 0) ShowPlainError(WIDE("当前工作目录下无工程图"));
    return std::move(list.files);
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
