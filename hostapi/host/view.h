// The view of a model on the screen: how it is turned, moved and enlarged.
#pragma once

#include "hostapi/host/geometry.h"
#include "hostapi/host/types.h"

// A saved view, or a view of a drawing. Null: the view that is on the screen.
typedef struct VxHostView* ProView;

// The axis on the screen about which a view is turned: to the right, up, towards the viewer.
// Assumed (codes, 40 %): 101, 102 and 103; the name of the type is ours
typedef enum : int {
    PRO_VIEW_ROTATE_X = 101,
    PRO_VIEW_ROTATE_Y = 102,
    PRO_VIEW_ROTATE_Z = 103
} ProViewRotationAxis;

// Receives the transform from the model to the screen; a null model is the current one. Its rows
// are scaled by the enlargement, and its last row is the place on the screen.
// PRO_TK_BAD_CONTEXT: there is no current model.
// Assumed (behaviour, 75 %): a null view is the view on the screen; with a null model too, that of
//   the current model. A point is a row: point * matrix
HOST_API ProError ProViewMatrixGet(ProMdl model, ProView view, ProMatrix transform);

// Turns, moves and enlarges the view as the transform says; ProWindowRepaint shows it.
// PRO_TK_BAD_CONTEXT as above. PRO_TK_INVALID_MATRIX: rows 0 to 2 are not of one length and square
// to each other.
HOST_API ProError ProViewMatrixSet(ProMdl model, ProView view, ProMatrix transform);

// Turns the view further by this angle (degrees, counter-clockwise against the axis).
// Assumed (behaviour, 60 %): turns about the axes of the screen, counter-clockwise
HOST_API ProError ProViewRotate(ProMdl model, ProView view, ProViewRotationAxis axis, double angle);
