// SameScale, VxUpdateSheetScale, VxUpdateMainViewScale: one scale for the sheet and for all views
// that have one of their own. They differ in where the scale comes from.
#include <optional>

#include "drawing/commands.h"
#include "frame/services.h"

namespace {

using ViewArray = HostArray<ProView>;

ViewArray CollectViews(ProDrawing drawing) {
    ProView* list = nullptr;
    ViewArray views;
    if (drawing && ProDrawingViewsCollect(drawing, &list) == PRO_TK_NO_ERROR) views.Adopt(list);
    return views;
}

ProSolid SolidOf(ProDrawing drawing, ProView view) {
    ProSolid solid = nullptr;
    if (ProDrawingViewSolidGet(drawing, view, &solid) != PRO_TK_NO_ERROR) return nullptr;
    return solid;
}

// The scale of sheets is always written on the first one, whichever sheet was asked for it.
void SetScales(ProDrawing drawing, const ViewArray& views, int count, double scale) {
    constexpr int kFirstSheet = 1;
    for (int i = 0; i < count; ++i) {
        ProView view = views.data()[i];
        ProBoolean own = PRO_B_FALSE;
        ProDrawingViewScaleIsUserdefined(drawing, view, &own);
        if (own == PRO_B_TRUE) ProDrawingViewScaleSet(drawing, view, scale);
        if (const ProSolid solid = SolidOf(drawing, view)) {
            ProDrawingScaleSet(drawing, solid, kFirstSheet, scale);
        }
    }
}

// The main view: the first general one whose projections the host can list. Null: there is none.
ProView MainView(ProDrawing drawing, const ViewArray& views, int count) {
    for (int i = 0; i < count; ++i) {
        ProView view = views.data()[i];
        ProViewType type = PRO_VIEW_PROJECTION;
        ProDrawingViewTypeGet(drawing, view, &type);
        if (type != PRO_VIEW_GENERAL) continue;
        ProView* list = nullptr;
        const ProError status = ProDrawingViewChildrenGet(drawing, view, &list);
        ViewArray children;
        children.Adopt(list);
        if (status == PRO_TK_NO_ERROR) return view;
    }
    return nullptr;
}

double ScaleOfView(ProDrawing drawing, ProView view) {
    double scale = 0.0;
    ProDrawingViewScaleGet(drawing, view, &scale);
    return scale;
}

// Where the scale comes from; `views` is not empty. Nothing: it cannot be read.
using ScaleSource = std::optional<double> (*)(ProDrawing drawing, int sheet, const ViewArray& views,
                                              int count);

// Scales of sheets are kept for each model; that of the first view's stands for all.
std::optional<double> ScaleOfSheet(ProDrawing drawing, int sheet, const ViewArray& views, int) {
    const ProSolid solid = SolidOf(drawing, views.data()[0]);
    double scale = 0.0;
    if (!solid || ProDrawingScaleGet(drawing, solid, sheet, &scale) != PRO_TK_NO_ERROR) return {};
    return scale;
}

std::optional<double> ScaleOfMainView(ProDrawing drawing, int, const ViewArray& views, int count) {
    double scale = 0.0;
    if (ProView mainView = MainView(drawing, views, count)) scale = ScaleOfView(drawing, mainView);
    return scale == 0.0 ? ScaleOfView(drawing, views.data()[0]) : scale;
}

void UpdateScales(ScaleSource scaleFrom) {
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) != PRO_TK_NO_ERROR) return;
    const auto drawing = static_cast<ProDrawing>(model);
    int sheet = 0;
    ProDrawingCurrentSheetGet(drawing, &sheet);
    const ViewArray views = CollectViews(drawing);
    const int count = views.Size();
    if (count == 0) return;
    const std::optional<double> scale = scaleFrom(drawing, sheet, views, count);
    if (!scale) return;
    SetScales(drawing, views, count, *scale);
    ProDwgSheetRegenerate(drawing, sheet);
}

}  // namespace

void SameScale() {
    ShowMessage("USER Enter any double scale: ");
    double scale = 0.0;
    if (ProMessageDoubleRead(nullptr, &scale) != PRO_TK_NO_ERROR) return;
    ProMdl model = nullptr;
    ProMdlCurrentGet(&model);
    const auto drawing = static_cast<ProDrawing>(model);
    const ViewArray views = CollectViews(drawing);
    const int count = views.Size();
    if (count == 0) return ShowNotice(WIDE("\t当前无视图\t"));
    SetScales(drawing, views, count, scale);
    ProDwgSheetRegenerate(drawing, 1);
}

void VxUpdateSheetScale() {
    UpdateScales(ScaleOfSheet);
}

void VxUpdateMainViewScale() {
    UpdateScales(ScaleOfMainView);
}
