// VxOpenDrw: the drawing that bears the selected model's name.
#include "drawing/commands.h"
#include "drawing/drawn_model.h"
#include "drawing/new_drawing.h"
#include "frame/services.h"

// Without exactly one selected item nothing is done and nothing said.
void VxOpenDrw() {
    const DrawnSelection selection = ReadDrawnSelection();
    if (selection.count != 1 || !selection.model) return;
    const WideText name = ModelName(selection.model);
    ProMdl drawing = RetrieveDrawing(name);
    if (!drawing) {
        return ShowNotice(WIDE("同名工程图打开失败，请确认该模型工程图在当前工作目录是否存在。"));
    }
    const auto window = OpenDrawingWindow(name);
    ProMdlDisplay(drawing);
    if (window) ProWindowActivate(*window);
}
