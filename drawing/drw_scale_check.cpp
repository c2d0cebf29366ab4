// VxDrwScaleCheck: which sheets of the drawings in the working directory have a main view whose
// scale is not the sheet's.
#include <cmath>

#include "drawing/commands.h"
#include "drawing/folder_drawings.h"
#include "frame/services.h"

namespace {

constexpr const WideChar* kHeader = WIDE("以下工程图中存在主视图比例与页面比例不符，请检查：");

// The result of the last check, a line for each sheet.
WideText scaleCheckText;

// Whether a view disagrees with its sheet. `solid` receives what the view shows.
bool Disagrees(ProDrawing drawing, ProView view, int sheet, ProSolid* solid) {
    constexpr double kTolerance = 1e-07;
    ProSolid shown = nullptr;
    ProDrawingViewSolidGet(drawing, view, &shown);
    double ofSheet = 0.0;
    const bool known =
        shown && ProDrawingScaleGet(drawing, shown, sheet, &ofSheet) == PRO_TK_NO_ERROR;
    if (shown) *solid = shown;
    ProViewType type = PRO_VIEW_PROJECTION;
    ProDrawingViewTypeGet(drawing, view, &type);
    if (type != PRO_VIEW_GENERAL) return false;
    double ofView = 0.0;
    if (ProDrawingViewScaleGet(drawing, view, &ofView) != PRO_TK_NO_ERROR) return false;
    return known && std::fabs(ofView - ofSheet) > kTolerance;
}

void CheckSheet(const DrawingWithViews& each, const WideText& name, int sheet, ProSolid* solid) {
    ProDrawingCurrentSheetSet(each.drawing, sheet);
    for (int i = 0; i < each.count; ++i) {
        ProView view = each.views.data()[i];
        if (SheetOf(each.drawing, view) != sheet) continue;
        if (!Disagrees(each.drawing, view, sheet, solid)) continue;
        scaleCheckText += WIDE("\n图纸'") + name + WIDE("' 第") + Digits(sheet) + WIDE("页");
        break;
    }
    // Left over from the replacement of formats: without a format the host refuses, and nothing
    // changes.
    ProMdl noFormat = nullptr;
    ProDrawingFormatAdd(each.drawing, sheet, *solid, noFormat, 0);
}

void CheckDrawing(WideView path) {
    const DrawingWithViews each = FetchDrawing(path);
    if (each.count == 0) return;
    const WideText name = ModelName(each.drawing);
    int sheets = 0;
    ProDrawingSheetsCount(each.drawing, &sheets);
    ProSolid solid = nullptr;  // the last one that was read
    for (int sheet = 1; sheet <= sheets; ++sheet) CheckSheet(each, name, sheet, &solid);
}

}  // namespace

void VxDrwScaleCheck() {
    const HostArray<ProPath> drawings = DrawingsOfWorkingDirectory();
    const int count = drawings.Size();
    if (count == 0) return;
    scaleCheckText = kHeader;
    for (int i = 0; i < count; ++i) CheckDrawing(TextIn(drawings.data()[i]));
    if (scaleCheckText == kHeader) {
        return ShowNotice(
            WIDE("当前工作目录中工程图已检查完毕，不存在主视图比例与页面比例不符情况。"));
    }
    ShowNotice(scaleCheckText);
}
