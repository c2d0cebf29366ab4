// Drawings and their sheets at the door.
#include "hostapi/host/drawing.h"

#include "simhost/core/text.h"
#include "simhost/door/door.h"

using namespace simhost;

ProError ProDrawingSheetsCount(ProDrawing drawing, int* count) {
    return Op<"ProDrawingSheetsCount">.Call(
        [&] { *count = int(TheHost().session.RequireDrawing(drawing).drawingData.sheets.size()); },
        ARG(drawing), OUT(count));
}

ProError ProDrawingSheetTrfGet(ProDrawing drawing, int sheet, ProName size, ProMatrix transform) {
    return Op<"ProDrawingSheetTrfGet">.Call(
        [&] {
            const Sheet* found = TheHost().session.RequireDrawing(drawing).drawingData.Find(sheet);
            if (!found) Refuse(PRO_TK_E_NOT_FOUND);
            CopyCut(found->size, size, PRO_NAME_SIZE);
            for (std::size_t row = 0; row < 4; ++row) {
                for (std::size_t column = 0; column < 4; ++column) {
                    transform[row][column] = row == column ? 1 : 0;
                }
            }
        },
        ARG(drawing), ARG(sheet), OUT_NAME(size), OUT(transform));
}
