// Drawings and their sheets at the door.
#include "hostapi/host/drawing.h"

#include "simhost/core/text.h"
#include "simhost/host.h"

using namespace simhost;

ProError ProDrawingSheetsCount(ProDrawing drawing, int* count) {
    static Operation op("ProDrawingSheetsCount");
    return op.Call(
        [&] {
            Need(count, "the place for the number");
            *count = int(TheHost().session.RequireDrawing(drawing).sheets.sizes.size());
            return PRO_TK_NO_ERROR;
        },
        "drawing", static_cast<ProMdl>(drawing), "count", Out(count));
}

ProError ProDrawingSheetTrfGet(ProDrawing drawing, int sheet, ProName size, ProMatrix transform) {
    static Operation op("ProDrawingSheetTrfGet");
    return op.Call(
        [&] {
            Need(size, "the place for the size");
            Need(transform, "the place for the transform");
            const auto& sizes = TheHost().session.RequireDrawing(drawing).sheets.sizes;
            if (sheet < 1 || std::size_t(sheet) > sizes.size()) Refuse(PRO_TK_E_NOT_FOUND);
            CopyCut(sizes[std::size_t(sheet - 1)], size, PRO_NAME_SIZE);
            for (std::size_t row = 0; row < 4; ++row) {
                for (std::size_t column = 0; column < 4; ++column) {
                    transform[row][column] = row == column ? 1 : 0;
                }
            }
            return PRO_TK_NO_ERROR;
        },
        "drawing", static_cast<ProMdl>(drawing), "sheet", sheet, "size", Out(size));
}
