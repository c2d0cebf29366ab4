// VxFrmReplace: another format on every sheet of every drawing in the working directory.
#include <optional>

#include "drawing/commands.h"
#include "drawing/folder_drawings.h"
#include "frame/services.h"
#include "hostapi/windows.h"

namespace {

constexpr Dialog kDialog{"VxFrmReplace"};

// The format that the user chooses, null if the host has not got it; nothing if the user leaves the
// dialog. It is copied to where the host looks for formats; one of that name that lies there stays.
std::optional<ProMdl> ChooseFormat() {
    WideText folder = FirstOptionValue(WIDE("pro_format_dir")).value_or(WideText());
    ProPath workFolder = {};
    ProDirectoryCurrentGet(workFolder);
    const auto chosen = ChooseFile(WIDE("请选择需要替换的新图框"), WIDE("*.frm"), folder);
    if (!chosen) return std::nullopt;
    if (folder.empty()) folder = TextIn(workFolder);
    const WideText target = folder + WIDE("\\") + chosen->name + WIDE(".frm");
    CopyFileW(chosen->path.c_str(), target.c_str(), /*failIfExists=*/TRUE);
    ProMdl format = nullptr;
    ProMdlRetrieve(HostText(chosen->name), PRO_MDL_DWGFORM, &format);
    return format;
}

void DeleteFormatTables(ProDrawing drawing, int sheet) {
    ProDwgtable* list = nullptr;
    if (ProDrawingTablesCollect(drawing, &list) != PRO_TK_NO_ERROR) return;
    HostArray<ProDwgtable> tables;
    tables.Adopt(list);
    const int count = tables.Size();
    for (int i = 0; i < count; ++i) {
        ProDwgtable& table = tables.data()[i];
        ProBoolean fromFormat = PRO_B_FALSE;
        int on = 0;
        ProDwgtableIsFromFormat(&table, &fromFormat);
        ProDwgtableSegSheetGet(&table, -1, &on);
        if (fromFormat == PRO_B_TRUE && on == sheet) ProDwgtableDelete(&table, 1);
    }
}

void ReplaceFormats(WideView path, ProMdl format) {
    const DrawingWithViews each = FetchDrawing(path);
    if (each.count == 0) return;
    ProSolid* list = nullptr;
    ProDrawingSolidsCollect(each.drawing, &list);
    HostArray<ProSolid> solids;
    solids.Adopt(list);
    int sheets = 0;
    ProDrawingSheetsCount(each.drawing, &sheets);
    // A first sheet without a view has none before it.
    ProSolid solid = solids.Size() > 0 ? solids.data()[0] : nullptr;
    for (int sheet = 1; sheet <= sheets; ++sheet) {
        ProDrawingCurrentSheetSet(each.drawing, sheet);
        solid = SolidOnSheet(each.drawing, each.views.data(), each.count, sheet, solid);
        if (solid) ProDrawingCurrentsolidSet(each.drawing, solid);
        DeleteFormatTables(each.drawing, sheet);
        ProDrawingFormatAdd(each.drawing, sheet, solid, format, 0);
    }
    ProMdlSave(each.drawing);
}

void OnReplace(char*, char*, ProAppData) {
    const HostArray<ProPath> drawings = DrawingsOfWorkingDirectory();
    const int count = drawings.Size();
    if (count == 0) return;
    const std::optional<ProMdl> format = ChooseFormat();
    if (!format) return;
    for (int i = 0; i < count; ++i) ReplaceFormats(TextIn(drawings.data()[i]), *format);
    ShowNotice(WIDE("当前工作目录中工程图图框已批量替换完毕！"));
}

void Prepare() {
    kDialog.OnPress("VxFrmReplaceAct", Guarded<OnReplace>);
    kDialog.OnClose(EndDialogOnClose);
}

}  // namespace

void VxFrmReplace() {
    RunModalDialog(kDialog, Prepare);
}
