// Views of a drawing. Positions and lengths are those of the sheet; z is always 0.
// All calls refuse a view that is not one of the drawing's with PRO_TK_BAD_INPUTS.
#pragma once

#include "hostapi/host/drawing.h"
#include "hostapi/host/geometry.h"
#include "hostapi/host/selection.h"
#include "hostapi/host/types.h"
#include "hostapi/host/view.h"

// How the edges of a view are shown.
typedef enum : int {
    PRO_DISPSTYLE_DEFAULT = 0,
    PRO_DISPSTYLE_WIREFRAME = 1,
    PRO_DISPSTYLE_HIDDEN_LINE = 2,  // hidden edges in a weaker line
    PRO_DISPSTYLE_NO_HIDDEN = 3     // hidden edges left out
} ProDisplayStyle;

// How edges between surfaces that run into each other without a bend are shown.
// Assumed (codes, 20 %): number or enumeration, 15 is handed over as a cast
enum ProTanedgeDisplay : int {};
// Assumed (codes, 20 %): a code, as of tangent edges
enum ProCableDisplay : int {};

// Assumed (record, 60 %): fields in this order; styles 2 hidden line, 3 no hidden; the tangent edge
//   code 15 is handed on as it is
typedef struct VxDrawingViewDisplay {
    ProDisplayStyle style;
    ProBoolean quilt_hlr;
    ProTanedgeDisplay tangent_edge_display;
    ProCableDisplay cable_display;
    ProBoolean concept_model;
    ProBoolean weld_xsec;
} ProDrawingViewDisplay;

// Puts a view of the solid on a sheet, with the middle of the solid at `position`. The rows 0 to 2
// of `orientation` say where the solid's axes point on the sheet (x right, y up, z to the viewer).
// PRO_TK_BAD_INPUTS: the orientation is no rotation, or the scale is not more than 0.
// PRO_TK_CRE_VIEW_BAD_SHEET, _BAD_MODEL, _BAD_EXPLODE: no such sheet; not a part or an assembly;
// exploded, and the solid has no exploded state.
// Assumed (behaviour, 80 %): the position is where the middle of the model is put; the orientation
//   must be a rotation without a scale
HOST_API ProError ProDrawingGeneralviewCreate(ProDrawing drawing, ProSolid solid, int sheet,
                                              ProBoolean exploded, Pro3dPnt position, double scale,
                                              ProMatrix orientation, ProView* view);

// Puts a projection of the parent view beside it. Which side of the parent `position` lies on says
// what the projection shows, by the drawing's first-angle or third-angle rule; it stays in line
// with its parent. PRO_TK_CRE_VIEW_BAD_PARENT: the position lies on no side of the parent.
// Assumed (behaviour, 85 %): the side of the parent on which the position lies decides what is
//   shown
HOST_API ProError ProDrawingProjectedviewCreate(ProDrawing drawing, ProView parent,
                                                ProBoolean exploded, Pro3dPnt position,
                                                ProView* view);

// Receives the lower left and the upper right corner of the view, as last regenerated.
// Assumed (behaviour, 70 %): follows a move or a turn only when the view was regenerated
HOST_API ProError ProDrawingViewOutlineGet(ProDrawing drawing, ProView view, Pro3dPnt outline[2]);

// Moves the view, with the projections that hang on it. A projection only moves away from its
// parent or towards it. The outline follows when the view is regenerated.
HOST_API ProError ProDrawingViewMove(ProDrawing drawing, ProView view, ProVector by);

HOST_API ProError ProDrawingViewRegenerate(ProDrawing drawing, ProView view);

HOST_API ProError ProDrawingViewDisplaySet(ProDrawing drawing, ProView view,
                                           ProDrawingViewDisplay* display);

// Receives the transform from the solid to the sheet; with PRO_B_FALSE its inverse.
// Assumed (behaviour, 75 %): the flag 1 (true) asks for the transform from the model to the sheet
HOST_API ProError ProDrawingViewTransformGet(ProDrawing drawing, ProView view, ProBoolean toSheet,
                                             ProMatrix transform);

// A new array with all views of the drawing, in the order of their making. The caller frees it.
// PRO_TK_E_NOT_FOUND: the drawing has none.
HOST_API ProError ProDrawingViewsCollect(ProDrawing drawing, ProView** views);

// What a view is made from.
typedef enum : int {
    PRO_VIEW_GENERAL = 0,    // it stands for itself
    PRO_VIEW_PROJECTION = 1  // it hangs on another one
} ProViewType;

HOST_API ProError ProDrawingViewTypeGet(ProDrawing drawing, ProView view, ProViewType* type);

// Receives the sheet that the view is on; sheets count from 1.
HOST_API ProError ProDrawingViewSheetGet(ProDrawing drawing, ProView view, int* sheet);

// Receives the model that the view shows. PRO_TK_E_NOT_FOUND: it is gone.
HOST_API ProError ProDrawingViewSolidGet(ProDrawing drawing, ProView view, ProSolid* solid);

// A new array with the views that hang on this one. The caller frees it.
// PRO_TK_E_NOT_FOUND: none does.
// Assumed (behaviour, 55 %): a view without children is a failure, no empty array
HOST_API ProError ProDrawingViewChildrenGet(ProDrawing drawing, ProView view, ProView** children);

// Whether the view has a scale of its own; if not, its scale is the sheet's for what it shows, and
// a projection's is its parent's.
HOST_API ProError ProDrawingViewScaleIsUserdefined(ProDrawing drawing, ProView view,
                                                   ProBoolean* own);
HOST_API ProError ProDrawingViewScaleGet(ProDrawing drawing, ProView view, double* scale);

// Changes the view's own scale. PRO_TK_BAD_CONTEXT: it has none. PRO_TK_BAD_INPUTS: a scale that is
// not more than 0. The outline follows when the view or its sheet is regenerated.
HOST_API ProError ProDrawingViewScaleSet(ProDrawing drawing, ProView view, double scale);

// Turns a general view by an angle in degrees: "Normal" about the direction to the viewer,
// "Vertical" and "Horizontal" about those of the sheet, "Edge/Axis" about `axis` (else null).
// The outline follows when the view is regenerated.
// PRO_TK_BAD_INPUTS: a projected view, or another reference.
// Assumed (narrow, 50 %): the reference is narrow text: "Normal", "Vertical", "Horizontal"; the
//   null reference is a ProSelection
HOST_API ProError ProDrawingViewOrientationFromAngleSet(ProDrawing drawing, ProView view,
                                                        char* reference, ProSelection axis,
                                                        double angle);
