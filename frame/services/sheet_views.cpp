// How the views of a drawing are found by their sheets.
#include "frame/services/sheet_views.h"

int SheetOf(ProDrawing drawing, ProView view) {
    int sheet = 0;
    ProDrawingViewSheetGet(drawing, view, &sheet);
    return sheet;
}

ProView FirstViewOn(ProDrawing drawing, const ProView* views, int count, int sheet) {
    for (int i = 0; i < count; ++i) {
        if (SheetOf(drawing, views[i]) == sheet) return views[i];
    }
    return nullptr;
}

ProSolid SolidOnSheet(ProDrawing drawing, const ProView* views, int count, int sheet,
                      ProSolid before) {
    ProView view = FirstViewOn(drawing, views, count, sheet);
    if (!view) return before;
    ProSolid solid = nullptr;
    ProDrawingViewSolidGet(drawing, view, &solid);
    return solid ? solid : before;
}
