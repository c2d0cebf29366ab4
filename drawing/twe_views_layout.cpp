// Twelve views: the views of a model on the sheet. The main view is in the middle, projections
// on its four sides, the rear behind the right one, and an isometric view in the lower right
// corner. Each is made where it should about be, and then moved until the gap is right.
#include "drawing/twe_views_layout.h"

#include <algorithm>

#include "drawing/view_matrix.h"
#include "frame/services.h"

namespace {

constexpr double kGap = 50.0;
constexpr double kSetGap = 200.0;
constexpr double kMainX = 200.0, kMainY = 600.0;
constexpr double kSameLength = 0.001;

struct Outline {
    double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
    double Width() const { return x1 - x0; }
    double Height() const { return y1 - y0; }
    double MiddleX() const { return (x0 + x1) * 0.5; }
    double MiddleY() const { return (y0 + y1) * 0.5; }
};

// What all views of a set have in common.
struct Setting {
    ProDrawing drawing;
    ProSolid solid;
    ProMatrix orientation;                     // of the main view as it is
    ProDrawingViewDisplay* display = nullptr;  // of every view; null: set when all are placed
    ProDrawingViewDisplay* isometricDisplay = nullptr;
};

struct View {
    ProView handle = nullptr;
    Outline outline;
};

// The outlines from which the place of a second set follows.
struct SetOutlines {
    Outline left, rear, isometric;
};

ProDrawingViewDisplay DisplayOf(ProDisplayStyle style) {
    ProDrawingViewDisplay display = {};
    display.style = style;
    display.tangent_edge_display = ProTanedgeDisplay(15);
    return display;
}

// --- Calls that do nothing for a view that could not be made ---

Outline OutlineOf(const Setting& set, ProView view) {
    Pro3dPnt corners[2] = {};
    if (view) ProDrawingViewOutlineGet(set.drawing, view, corners);
    return {corners[0][0], corners[0][1], corners[1][0], corners[1][1]};
}

void Move(const Setting& set, ProView view, double x, double y) {
    ProVector by = {x, y, 0};
    if (!view) return;
    ProDrawingViewMove(set.drawing, view, by);
    ProDrawingViewRegenerate(set.drawing, view);
}

void Turn(const Setting& set, ProView view, const char* reference, double degrees) {
    if (!view) return;
    ProDrawingViewOrientationFromAngleSet(set.drawing, view, HostText(reference), nullptr, degrees);
    ProDrawingViewRegenerate(set.drawing, view);
}

void Show(const Setting& set, ProView view, ProDrawingViewDisplay* display) {
    if (view && display) ProDrawingViewDisplaySet(set.drawing, view, display);
}

ProError CreateGeneral(Setting& set, double x, double y, ProMatrix orientation, ProView* view) {
    constexpr int kSheet = 1;
    Pro3dPnt position = {x, y, 0};
    return ProDrawingGeneralviewCreate(set.drawing, set.solid, kSheet, PRO_B_FALSE, position, 1.0,
                                       orientation, view);
}

View CreateProjected(const Setting& set, ProView parent, double x, double y) {
    View view;
    Pro3dPnt position = {x, y, 0};
    if (parent) {
        ProDrawingProjectedviewCreate(set.drawing, parent, PRO_B_FALSE, position, &view.handle);
    }
    view.outline = OutlineOf(set, view.handle);
    return view;
}

void Settle(const Setting& set, View* view, double byX, double byY) {
    Move(set, view->handle, byX, byY);
    view->outline = OutlineOf(set, view->handle);
    Show(set, view->handle, set.display);
}

// --- The places ---

View PutBelow(const Setting& set, const View& main) {
    const Outline& from = main.outline;
    View view = CreateProjected(set, main.handle, from.MiddleX(), from.y0 - from.Height());
    Settle(set, &view, 0, (from.y0 - view.outline.y1) - kGap);
    return view;
}

// Nothing is measured from it, so its outline is not read again.
void PutAbove(const Setting& set, const View& main) {
    const Outline& from = main.outline;
    const View view = CreateProjected(set, main.handle, from.MiddleX(), from.Height() + from.y1);
    Move(set, view.handle, 0, (from.y1 - view.outline.y0) + kGap);
    Show(set, view.handle, set.display);
}

View PutLeft(const Setting& set, const View& main) {
    const Outline& from = main.outline;
    View view = CreateProjected(set, main.handle, from.x0 - from.Width(), from.MiddleY());
    Settle(set, &view, (from.x0 - view.outline.x1) - kGap, 0);
    return view;
}

// To the right of the main view, and of the right one again.
View PutRight(const Setting& set, const View& parent, double y) {
    const Outline& from = parent.outline;
    View view = CreateProjected(set, parent.handle, from.Width() + from.x1, y);
    Settle(set, &view, (from.x1 - view.outline.x0) + kGap, 0);
    return view;
}

// Below and to the right of the view below, measured from that view's far corner.
View PutIsometric(Setting& set, const Outline& below) {
    View view;
    CreateGeneral(set, below.x1, below.y0, set.orientation, &view.handle);
    Turn(set, view.handle, "Vertical", -45.0);
    Turn(set, view.handle, "Horizontal", 35.0);
    const Outline made = OutlineOf(set, view.handle);
    Show(set, view.handle, set.isometricDisplay);
    Settle(set, &view, (made.x1 - below.x0) * 0.5 + kGap, (made.y1 - below.y0) * -0.5 - kGap);
    return view;
}

// Everything around a main view.
SetOutlines LayOutAround(Setting& set, const View& main) {
    const double row = main.outline.MiddleY();
    const View below = PutBelow(set, main);
    PutAbove(set, main);
    const View left = PutLeft(set, main);
    const View right = PutRight(set, main, row);
    const View rear = PutRight(set, right, row);
    const View isometric = PutIsometric(set, below.outline);
    return {left.outline, rear.outline, isometric.outline};
}

// --- The main view ---

// Where both sides are of one length it counts as upright, not as across.
bool NeedsTurn(const Outline& outline, LongSide wanted) {
    const double higher = outline.Height() - outline.Width();
    return (wanted == LongSide::Across && higher > kSameLength) ||
           (wanted == LongSide::Upright && higher < kSameLength);
}

void TurnLongSide(Setting& set, View* main, LongSide wanted) {
    main->outline = OutlineOf(set, main->handle);
    if (NeedsTurn(main->outline, wanted)) Turn(set, main->handle, "Normal", 90.0);
    if (main->handle) {
        ProDrawingViewTransformGet(set.drawing, main->handle, PRO_B_TRUE, set.orientation);
        NormalizeTransform(set.orientation);
    }
    main->outline = OutlineOf(set, main->handle);
}

void ShowAll(const Setting& set, ProDrawingViewDisplay* display) {
    ProView* collected = nullptr;
    if (ProDrawingViewsCollect(set.drawing, &collected) != PRO_TK_NO_ERROR) return;
    ProArray array = collected;
    int size = 0;
    ProArraySizeGet(array, &size);
    for (int i = 0; i < size; ++i) Show(set, collected[i], display);
    ProArrayFree(&array);
}

// The same once more, to the right of everything, with hidden lines.
void LayOutSecondSet(const Setting& first, const View& main, const SetOutlines& around,
                     ProDrawingViewDisplay* hiddenLine) {
    Setting set = first;
    set.display = set.isometricDisplay = hiddenLine;
    const Outline& before = main.outline;
    const double most = std::max(around.rear.x1, around.isometric.x1);
    View second;
    CreateGeneral(set, before.Width() * 0.5 + most + around.left.Width() + kSetGap,
                  before.MiddleY(), set.orientation, &second.handle);
    second.outline = OutlineOf(set, second.handle);
    Show(set, second.handle, set.display);
    LayOutAround(set, second);
}

}  // namespace

const WideChar* MainViewFailure(ProError status) {
    switch (status) {
        case PRO_TK_BAD_INPUTS: return WIDE("PRO_TK_BAD_INPUTS");
        case PRO_TK_CRE_VIEW_BAD_SHEET: return WIDE("PRO_TK_CRE_VIEW_BAD_SHEET");
        case PRO_TK_CRE_VIEW_BAD_MODEL: return WIDE("PRO_TK_CRE_VIEW_BAD_MODEL");
        case PRO_TK_CRE_VIEW_BAD_EXPLODE: return WIDE("PRO_TK_CRE_VIEW_BAD_EXPLODE");
        case PRO_TK_GENERAL_ERROR: return WIDE("PRO_TK_GENERAL_ERROR");
        default: return nullptr;
    }
}

ProError LayOutTwelveViews(ProDrawing drawing, ProSolid solid, ProMatrix mainView,
                           const TwelveViewsOrder& order) {
    ProDrawingViewDisplay noHidden = DisplayOf(PRO_DISPSTYLE_NO_HIDDEN);
    ProDrawingViewDisplay hiddenLine = DisplayOf(PRO_DISPSTYLE_HIDDEN_LINE);
    Setting set{drawing, solid, {}, nullptr, &noHidden};
    View main;
    const ProError status = CreateGeneral(set, kMainX, kMainY, mainView, &main.handle);
    if (MainViewFailure(status)) return status;
    TurnLongSide(set, &main, order.longSide);
    const SetOutlines around = LayOutAround(set, main);
    switch (order.style) {
        case ViewStyle::AsTheyAre: break;
        case ViewStyle::SixHidden: ShowAll(set, &hiddenLine); break;
        case ViewStyle::SixNoHidden: ShowAll(set, &noHidden); break;
        case ViewStyle::Twelve:
            ShowAll(set, &noHidden);
            LayOutSecondSet(set, main, around, &hiddenLine);
            break;
    }
    return status;
}
