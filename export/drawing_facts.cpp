// What the table and the names of files tell about a drawing, as the host is asked for it.
#include "export/drawing_facts.h"

#include "frame/services.h"

WideText SheetSizeName(ProDrawing drawing, int sheet) {
    ProName size = {};
    ProMatrix transform = {};
    ProDrawingSheetTrfGet(drawing, sheet, size, transform);
    return TextIn(size);
}
