// TweViews: a drawing that shows a part or an assembly from all sides, made in one go. The command
// opens the drawing if it is there, and otherwise asks how it should look; the dialog's button
// makes it.
#include <algorithm>
#include <optional>
#include <string>

#include "drawing/commands.h"
#include "drawing/twe_views_layout.h"
#include "drawing/view_matrix.h"
#include "frame/services.h"

namespace {

constexpr Dialog kDialog = "TweViews";

// --- What is to be drawn ---

// The one selected model, or the current one when nothing is selected. Null with a notice for a
// selection that does not fit, and without one where there is no model at all.
ProMdl FindTarget() {
    ProMdl model = nullptr;
    ProSelection* selections = nullptr;
    if (ProSelbufferSelectionsGet(&selections) != PRO_TK_NO_ERROR) {
        ProMdlCurrentGet(&model);
        return model;
    }
    ProArray array = selections;
    int count = 0;
    ProArraySizeGet(array, &count);
    ProModelitem item = {};
    if (count == 1) ProSelectionModelitemGet(selections[0], &item);
    LeaveSelections(selections);
    ProArrayFree(&array);
    if (count != 1) {
        ShowNotice(WIDE("当前模式只能选择1个元件"));
        return nullptr;
    }
    if (item.type != PRO_ASSEMBLY && item.type != PRO_PART) {
        ShowNotice(WIDE("当前模式仅可选择零件或者组件"));
        return nullptr;
    }
    ProModelitemMdlGet(&item, &model);
    return model;
}

// A manufacturing model is drawn as its assembly.
ProMdl SolidOf(ProMdl model) {
    return TopModelOf({model, TypeOf(model)}).model;
}

// A name that would be too long is cut to its first letters, however many would have fitted:
// drawings that exist are found again under that name.
WideText DrawingName(ProMdl model) {
    constexpr WideView kSuffix = WIDE("-12");
    constexpr std::size_t kLettersKept = 8;
    const WideText modelName = ModelName(model);
    if (modelName.size() + kSuffix.size() < PRO_NAME_SIZE) return modelName + WideText(kSuffix);
    return modelName.substr(0, kLettersKept).append(kSuffix);
}

// --- What the dialog says ---

struct Choice {
    TwelveViewsOrder order;
    bool exportIt = false;
};

Choice ReadDialog(Dialog dialog) {
    Choice choice;
    const std::string direction = dialog.Selected("DirectionRadio");
    if (direction == "main-h") choice.order.longSide = LongSide::Across;
    if (direction == "main-v") choice.order.longSide = LongSide::Upright;
    const std::string views = dialog.Selected("ViewsRadio");
    if (views == "six-hidden") choice.order.style = ViewStyle::SixHidden;
    if (views == "six-nohidden") choice.order.style = ViewStyle::SixNoHidden;
    if (views == "twelve") choice.order.style = ViewStyle::Twelve;
    choice.exportIt = dialog.CheckState("ExportCheckButton") == 1;
    return choice;
}

// --- How the main view is turned ---

void SetIdentity(ProMatrix matrix) {
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) matrix[row][column] = row == column ? 1.0 : 0.0;
    }
}

// Lays the model flat, with its longest side to the right.
void OrderAxesByExtent(ProMdl model, ProMatrix matrix) {
    SetIdentity(matrix);
    ProViewMatrixSet(model, nullptr, matrix);
    Pro3dPnt outline[2] = {};
    ProSolidOutlineGet(static_cast<ProSolid>(model), outline);
    const auto extent = [&](int axis) { return WholeExtent(outline[0][axis], outline[1][axis]); };
    const QuarterTurns turns = TurnsByExtent(extent(0), extent(1), extent(2));
    for (int i = 0; i < turns.count; ++i) {
        ProViewRotate(model, nullptr, turns.axes[i], 90.0);
    }
    if (turns.count > 0) ProViewMatrixGet(model, nullptr, matrix);
}

// As the screen shows it, or by the model's extents; the screen then stays as it was.
void ChooseMainView(ProMdl model, ProMatrix matrix) {
    if (ConfigValue(WIDE("TweViewsUseAutoMainView"), Place::TextFolder) == WIDE("1")) {
        VxNormalView();
        ProViewMatrixGet(model, nullptr, matrix);
        NormalizeTransform(matrix);
        return;
    }
    ProMatrix saved = {};
    const ProError known = ProViewMatrixGet(model, nullptr, saved);
    OrderAxesByExtent(model, matrix);
    NormalizeTransform(matrix);
    if (known == PRO_TK_NO_ERROR) ProViewMatrixSet(model, nullptr, saved);
    ProWindowRepaint(PRO_VALUE_UNUSED);
}

// --- The drawing ---

void ShowCreationFailure(ProError status) {
    switch (status) {
        case PRO_TK_E_FOUND: return ShowPlainError(WIDE("十二视图已存在"));
        case PRO_TK_E_NOT_FOUND: return ShowPlainError(WIDE("未找到可用模板（vx.drw）"));
        case PRO_TK_DWGCREATE_ERRORS: return ShowPlainError(WIDE("PRO_TK_DWGCREATE_ERRORS"));
        case PRO_TK_NO_PERMISSION: return ShowPlainError(WIDE("PRO_TK_NO_PERMISSION"));
        default: return;
    }
}

// The template is found in the working folder only, so that is changed for the moment. A folder to
// which there would be no way back is not left.
ProError CreateFromTemplate(const WideText& name, ProMdl model, const WideText& workFolder,
                            ProDrawing* drawing) {
    ProMdldata data = {};
    ProMdlDataGet(model, &data);
    ProModel shown = {};
    // Whole, terminated or not; the two records need not be of one size.
    std::copy_n(data.name, std::min(std::size(data.name), std::size(shown.name)), shown.name);
    std::copy_n(data.type, std::min(std::size(data.type), std::size(shown.type)), shown.type);
    const WideText templates = FileBesideModule(WIDE("tp"));
    const bool enters = !workFolder.empty() && !templates.empty();
    if (enters) ProDirectoryChange(HostText(templates));
    ProDwgcreateErrs errors = nullptr;
    const ProError status =
        ProDrawingFromTmpltCreate(HostText(name), HostText(WIDE("vx.drw")), &shown,
                                  PRODWGCREATE_DISPLAY_DRAWING, drawing, &errors);
    LeaveTemplateErrors(errors);
    if (enters) ProDirectoryChange(HostText(workFolder));
    return status;
}

std::optional<int> OpenWindow(const WideText& name) {
    int window = 0;
    if (ProObjectwindowCreate(HostText(name), PRO_DRAWING, &window) != PRO_TK_NO_ERROR) {
        return std::nullopt;
    }
    return window;
}

void ExportToDesktop(ProDrawing drawing, const WideText& name) {
    const WideText folder = DesktopFolder();
    if (!folder.empty()) {
        const WideText path = folder + WIDE("\\") + name;
        Pro2dExport(PRO_DWG_FILE, HostText(path), drawing, nullptr);
    }
    ShowNotice(WIDE("已导出到桌面"));
}

void MakeDrawing(ProMdl model, const WideText& name, const WideText& workFolder,
                 const Choice& choice) {
    ProMatrix mainView = {};
    ChooseMainView(model, mainView);
    ProDrawing drawing = nullptr;
    ProError status = CreateFromTemplate(name, model, workFolder, &drawing);
    if (status != PRO_TK_NO_ERROR) return ShowCreationFailure(status);
    if (const auto window = OpenWindow(name)) {
        ProWindowCurrentSet(*window);
        ProWindowActivate(*window);
    }
    status = LayOutTwelveViews(drawing, static_cast<ProSolid>(model), mainView, choice.order);
    if (const WideChar* failure = MainViewFailure(status)) return ShowPlainError(failure);
    int window = 0;
    if (ProMdlWindowGet(drawing, &window) == PRO_TK_NO_ERROR) ProWindowActivate(window);
    if (choice.exportIt) ExportToDesktop(drawing, name);
}

void Apply(char* dialog, char*, ProAppData) {
    ProPath workFolder = {};
    ProDirectoryCurrentGet(workFolder);
    const ProMdl target = FindTarget();
    const ProMdl model = target ? SolidOf(target) : nullptr;
    if (!model) return;
    const WideText name = DrawingName(model);
    const Choice choice = ReadDialog(dialog);
    Dialog(dialog).End(0);
    MakeDrawing(model, name, workFolder, choice);
}

void PrepareDialog() {
    kDialog.OnPress("ApplyBt", Guarded<Apply>);
    kDialog.OnPress("Close", EndDialogOnClose);
    kDialog.OnClose(EndDialogOnClose);
}

}  // namespace

void TweViews() {
    const ProMdl model = FindTarget();
    if (!model) return;
    const WideText name = DrawingName(model);
    ProMdl drawing = nullptr;
    if (ProMdlRetrieve(HostText(name), PRO_MDL_DRAWING, &drawing) != PRO_TK_NO_ERROR) {
        RunModalDialog(kDialog, PrepareDialog);
        return;
    }
    const auto window = OpenWindow(name);
    ProMdlDisplay(drawing);
    if (window) ProWindowActivate(*window);
}
