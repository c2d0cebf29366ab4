// Views on the screen at the door.
#include "hostapi/host/view.h"

#include <algorithm>

#include "simhost/door/door.h"
#include "simhost/model/screen_view.h"
#include "simhost/model/shown.h"

using namespace simhost;

namespace {

// The model whose view is meant; a null model is the current one, and a manufacturing model has the
// view of the assembly that is seen in it. Saved views there are none.
Model& RequireShown(ProMdl handle, ProView view) {
    const Session& session = TheHost().session;
    if (view) Complain(PRO_TK_BAD_INPUTS, "a model has no such saved view");
    if (handle) return ContentsOf(session.Require(handle));
    Model* current = session.CurrentModel();
    if (!current) Refuse(PRO_TK_BAD_CONTEXT);
    return ContentsOf(*current);
}

void Copy(const ProMatrix from, ProMatrix to) {
    for (std::size_t row = 0; row < 4; ++row) std::copy(from[row], from[row] + 4, to[row]);
}

}  // namespace

ProError ProViewMatrixGet(ProMdl model, ProView view, ProMatrix transform) {
    return Op<"ProViewMatrixGet">.Call(
        [&] { Copy(ScreenOf(RequireShown(model, view)).matrix, transform); }, ARG(model), ARG(view),
        OUT(transform));
}

ProError ProViewMatrixSet(ProMdl model, ProView view, ProMatrix transform) {
    return Op<"ProViewMatrixSet">.Call(
        [&] {
            Model& shown = RequireShown(model, view);
            Placement frame;
            double scale = 0;
            if (!FrameOf(transform, &frame, &scale)) Refuse(PRO_TK_INVALID_MATRIX);
            Copy(transform, ScreenOf(shown).matrix);
        },
        ARG(model), ARG(view), GIVEN(transform));
}

ProError ProViewRotate(ProMdl model, ProView view, ProViewRotationAxis axis, double angle) {
    return Op<"ProViewRotate">.Call(
        [&] {
            if (axis < PRO_VIEW_ROTATE_X || axis > PRO_VIEW_ROTATE_Z) {
                Complain(PRO_TK_BAD_INPUTS, "not an axis of the screen");
            }
            ProMatrix& matrix = ScreenOf(RequireShown(model, view)).matrix;
            const Vec3 place{matrix[3][0], matrix[3][1], matrix[3][2]};
            Placement frame;
            double scale = 0;
            FrameOf(matrix, &frame, &scale);
            SetMatrix(Turned(frame, int(axis) - int(PRO_VIEW_ROTATE_X), angle), scale, place,
                      matrix);
        },
        ARG(model), ARG(view), ARG(axis), ARG(angle));
}
