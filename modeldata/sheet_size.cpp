// VxSheetSize: the sizes of the sheets of the drawing that bears a model's name.
#include "modeldata/sheet_size.h"

#include <utility>

#include "frame/services.h"
#include "modeldata/batch_targets.h"
#include "modeldata/params_buttons.h"
#include "modeldata/params_settings.h"

namespace {

std::vector<WideText> SheetSizes(ProMdl model) {
    const auto drawing = static_cast<ProDrawing>(model);
    int count = 0;
    ProDrawingSheetsCount(drawing, &count);
    std::vector<WideText> sizes;
    for (int sheet = 1; sheet <= count; ++sheet) {
        ProName size = {};
        ProMatrix transform = {};
        ProDrawingSheetTrfGet(drawing, sheet, size, transform);
        sizes.push_back(TextIn(size));
    }
    return sizes;
}

// The drawing stays in memory.
void WriteSheetSizes(ProMdl model, const WideText& modelName, const WideText& parameterName) {
    ProMdl drawing = nullptr;
    if (ProMdlRetrieve(HostText(modelName), PRO_MDL_DRAWING, &drawing) != PRO_TK_NO_ERROR) return;
    const WideText text = SheetSizeText(SheetSizes(drawing));
    FindAndWriteParameter(model, parameterName, TextValue(text));
}

}  // namespace

WideText SheetSizeText(const std::vector<WideText>& sizes) {
    WideText text;
    for (const WideText& size : sizes) text += size + WIDE(",");
    if (!text.empty()) text.pop_back();
    return text;
}

void OnSheetSize(char*, char*, ProAppData) {
    SaveParamsSettings();
    const TopModel top = CurrentModel();
    // The assembly of a manufacturing model is left alone, without a word.
    if (top.type != PRO_MDL_ASSEMBLY) return;
    const std::string scope = kParamsDialog.Selected("TypeRadio2");
    const WideText parameterName = kParamsDialog.InputText("shSizePname");
    ComponentArray components = CollectByScope(top, scope);
    const auto write = [&](ProMdl model, const WideText& name) {
        WriteSheetSizes(model, name, parameterName);
    };
    if (!ForEachTarget(top, scope, std::move(components), kParamsDialog, "InputKeyWords2", write)) {
        return;
    }
    ShowCompletion(WIDE("\t图幅大小参数批量创建/更新完成"));
    RefreshCurrentTree();
}
