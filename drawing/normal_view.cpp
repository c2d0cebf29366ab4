// VxNormalView: turns what is on the screen to the nearest view straight along the axes.
#include "drawing/commands.h"
#include "drawing/view_matrix.h"
#include "frame/services.h"

void VxNormalView() {
    ProMatrix matrix = {};
    if (ProViewMatrixGet(nullptr, nullptr, matrix) != PRO_TK_NO_ERROR) return;
    SnapToAxes(matrix);
    ProViewMatrixSet(nullptr, nullptr, matrix);
    ProWindowRepaint(PRO_VALUE_UNUSED);
}
