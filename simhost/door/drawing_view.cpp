// Views of drawings at the door.
#include "hostapi/host/drawing_view.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "simhost/door/door.h"
#include "simhost/model/drawing.h"
#include "simhost/model/screen_view.h"

using namespace simhost;

namespace {

DrawingView& RequireView(const Model& drawing, ProView handle) {
    if (!handle) Refuse(PRO_TK_BAD_INPUTS);
    DrawingView* view = FindView(handle);
    if (!view) Complain(PRO_TK_BAD_INPUTS, "not a live view");
    if (view->drawing != &drawing) {
        Complain(PRO_TK_BAD_INPUTS, "a view of " + view->drawing->FileName());
    }
    return *view;
}

Vec3 PlaceOf(const double point[3]) {
    if (!std::isfinite(point[0]) || !std::isfinite(point[1]) || point[2] != 0) {
        Complain(PRO_TK_BAD_INPUTS, "not a place on a sheet");
    }
    return {point[0], point[1], 0};
}

// Transforms of views keep angles: the inverse is the transpose, scaled back.
void Invert(const Placement& frame, double scale, Vec3 place, ProMatrix matrix) {
    Placement inverse;
    for (std::size_t i = 0; i < 3; ++i) {
        const auto part = [&](Vec3 v) { return i == 0 ? v.x : i == 1 ? v.y : v.z; };
        inverse.axes[i] = {part(frame.axes[0]), part(frame.axes[1]), part(frame.axes[2])};
    }
    SetMatrix(inverse, 1 / scale, -1 / scale * inverse.Direction(place), matrix);
}

int AxisOf(const char* reference) {
    const std::string_view word = reference;
    if (word == "Horizontal") return 0;
    if (word == "Vertical") return 1;
    if (word == "Normal") return 2;
    return -1;
}

}  // namespace

ProError ProDrawingGeneralviewCreate(ProDrawing drawing, ProSolid solid, int sheet,
                                     ProBoolean exploded, Pro3dPnt position, double scale,
                                     ProMatrix orientation, ProView* view) {
    return Op<"ProDrawingGeneralviewCreate">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            Model& shown = TheHost().session.Require(solid);
            if (shown.type != PRO_MDL_PART && shown.type != PRO_MDL_ASSEMBLY) {
                Refuse(PRO_TK_CRE_VIEW_BAD_MODEL);
            }
            if (!model.drawingData.Find(sheet)) Refuse(PRO_TK_CRE_VIEW_BAD_SHEET);
            // Exploded states are not known here.
            if (exploded) Refuse(PRO_TK_CRE_VIEW_BAD_EXPLODE);
            Placement frame;
            double length = 0;
            if (!FrameOf(orientation, &frame, &length) || !(scale > 0)) Refuse(PRO_TK_BAD_INPUTS);
            if (std::fabs(length - 1) > 1e-6) Refuse(PRO_TK_BAD_INPUTS);
            const Vec3 at = PlaceOf(position);
            *view = DrawingOf(model).AddGeneral(shown, sheet, at, scale, frame).handle;
            model.modified = true;
        },
        ARG(drawing), ARG(solid), ARG(sheet), ARG(exploded), GIVEN(position), ARG(scale),
        GIVEN(orientation), OUT(view));
}

ProError ProDrawingProjectedviewCreate(ProDrawing drawing, ProView parent, ProBoolean exploded,
                                       Pro3dPnt position, ProView* view) {
    return Op<"ProDrawingProjectedviewCreate">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            DrawingView& from = RequireView(model, parent);
            if (exploded) Refuse(PRO_TK_CRE_VIEW_BAD_EXPLODE);
            const DrawingView* made = DrawingOf(model).AddProjected(from, PlaceOf(position));
            if (!made) Refuse(PRO_TK_CRE_VIEW_BAD_PARENT);
            *view = made->handle;
            model.modified = true;
        },
        ARG(drawing), ARG(parent), ARG(exploded), GIVEN(position), OUT(view));
}

ProError ProDrawingViewOutlineGet(ProDrawing drawing, ProView view, Pro3dPnt outline[2]) {
    return Op<"ProDrawingViewOutlineGet">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            const Extents& box = DrawingOf(model).OutlineOf(RequireView(model, view));
            const Vec3 corners[] = {box.low, box.high};
            for (std::size_t i = 0; i < 2; ++i) {
                outline[i][0] = corners[i].x;
                outline[i][1] = corners[i].y;
                outline[i][2] = 0;
            }
        },
        ARG(drawing), ARG(view), OUT(outline));
}

ProError ProDrawingViewMove(ProDrawing drawing, ProView view, ProVector by) {
    return Op<"ProDrawingViewMove">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            DrawingOf(model).Move(RequireView(model, view), PlaceOf(by));
            model.modified = true;
        },
        ARG(drawing), ARG(view), GIVEN(by));
}

ProError ProDrawingViewRegenerate(ProDrawing drawing, ProView view) {
    return Op<"ProDrawingViewRegenerate">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            DrawingOf(model).Regenerate(RequireView(model, view));
        },
        ARG(drawing), ARG(view));
}

ProError ProDrawingViewDisplaySet(ProDrawing drawing, ProView view,
                                  ProDrawingViewDisplay* display) {
    return Op<"ProDrawingViewDisplaySet">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            if (display->style < PRO_DISPSTYLE_DEFAULT ||
                display->style > PRO_DISPSTYLE_NO_HIDDEN) {
                Complain(PRO_TK_BAD_INPUTS, "not a style that is known here");
            }
            RequireView(model, view).display = *display;
            model.modified = true;
        },
        ARG(drawing), ARG(view), GIVEN(display));
}

ProError ProDrawingViewTransformGet(ProDrawing drawing, ProView view, ProBoolean toSheet,
                                    ProMatrix transform) {
    return Op<"ProDrawingViewTransformGet">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            const DrawingView& one = RequireView(model, view);
            const Drawing& all = DrawingOf(model);
            const Placement frame = all.FrameOf(one);
            const Vec3 place = one.at + Drawing::ScaleOf(one) * frame.origin;
            const Model* shown = ModelOf(one);
            const double scale = Drawing::ScaleOf(one) * (shown ? LengthUnit(*shown) : 1);
            if (toSheet) {
                SetMatrix(frame, scale, place, transform);
            } else {
                Invert(frame, scale, place, transform);
            }
        },
        ARG(drawing), ARG(view), ARG(toSheet), OUT(transform));
}

ProError ProDrawingViewsCollect(ProDrawing drawing, ProView** views) {
    Operation& op = Op<"ProDrawingViewsCollect">;
    return op.Call(
        [&] {
            std::vector<ProView> handles;
            for (const auto& view : DrawingOf(TheHost().session.RequireDrawing(drawing)).views()) {
                handles.push_back(view->handle);
            }
            if (handles.empty()) Refuse(PRO_TK_E_NOT_FOUND);
            *views = TheHost().arrays.Make(handles, op.name());
        },
        ARG(drawing), OUT_ARRAY(views));
}

ProError ProDrawingViewTypeGet(ProDrawing drawing, ProView view, ProViewType* type) {
    return Op<"ProDrawingViewTypeGet">.Call(
        [&] {
            const Model& model = TheHost().session.RequireDrawing(drawing);
            *type = RequireView(model, view).IsGeneral() ? PRO_VIEW_GENERAL : PRO_VIEW_PROJECTION;
        },
        ARG(drawing), ARG(view), OUT(type));
}

ProError ProDrawingViewSheetGet(ProDrawing drawing, ProView view, int* sheet) {
    return Op<"ProDrawingViewSheetGet">.Call(
        [&] {
            const Model& model = TheHost().session.RequireDrawing(drawing);
            *sheet = RequireView(model, view).sheet;
        },
        ARG(drawing), ARG(view), OUT(sheet));
}

ProError ProDrawingViewSolidGet(ProDrawing drawing, ProView view, ProSolid* solid) {
    return Op<"ProDrawingViewSolidGet">.Call(
        [&] {
            const Model& model = TheHost().session.RequireDrawing(drawing);
            const Model* shown = ModelOf(RequireView(model, view));
            if (!shown) Refuse(PRO_TK_E_NOT_FOUND);
            *solid = static_cast<ProSolid>(shown->handle);
        },
        ARG(drawing), ARG(view), OUT(solid));
}

ProError ProDrawingViewChildrenGet(ProDrawing drawing, ProView view, ProView** children) {
    Operation& op = Op<"ProDrawingViewChildrenGet">;
    return op.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            const DrawingView& parent = RequireView(model, view);
            std::vector<ProView> handles;
            for (const auto& one : DrawingOf(model).views()) {
                if (one->parent == &parent) handles.push_back(one->handle);
            }
            if (handles.empty()) Refuse(PRO_TK_E_NOT_FOUND);
            *children = TheHost().arrays.Make(handles, op.name());
        },
        ARG(drawing), ARG(view), OUT_ARRAY(children));
}

ProError ProDrawingViewScaleIsUserdefined(ProDrawing drawing, ProView view, ProBoolean* own) {
    return Op<"ProDrawingViewScaleIsUserdefined">.Call(
        [&] {
            const Model& model = TheHost().session.RequireDrawing(drawing);
            *own = RequireView(model, view).ownScale ? PRO_B_TRUE : PRO_B_FALSE;
        },
        ARG(drawing), ARG(view), OUT(own));
}

ProError ProDrawingViewScaleGet(ProDrawing drawing, ProView view, double* scale) {
    return Op<"ProDrawingViewScaleGet">.Call(
        [&] {
            const Model& model = TheHost().session.RequireDrawing(drawing);
            *scale = Drawing::ScaleOf(RequireView(model, view));
        },
        ARG(drawing), ARG(view), OUT_NUMBER(scale));
}

ProError ProDrawingViewScaleSet(ProDrawing drawing, ProView view, double scale) {
    return Op<"ProDrawingViewScaleSet">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            DrawingView& changed = RequireView(model, view);
            if (!(scale > 0) || !std::isfinite(scale)) Refuse(PRO_TK_BAD_INPUTS);
            if (!changed.ownScale) Refuse(PRO_TK_BAD_CONTEXT);
            changed.scale = scale;
            model.modified = true;
        },
        ARG(drawing), ARG(view), ARG(scale));
}

ProError ProDrawingViewOrientationFromAngleSet(ProDrawing drawing, ProView view, char* reference,
                                               ProSelection axis, double angle) {
    return Op<"ProDrawingViewOrientationFromAngleSet">.Call(
        [&] {
            Model& model = TheHost().session.RequireDrawing(drawing);
            DrawingView& turned = RequireView(model, view);
            const int about = AxisOf(reference);
            if (about < 0 || axis || !turned.IsGeneral()) Refuse(PRO_TK_BAD_INPUTS);
            turned.orientation = Turned(turned.orientation, about, angle);
            model.modified = true;
        },
        ARG(drawing), ARG(view), GIVEN(reference), ARG(axis), ARG(angle));
}
