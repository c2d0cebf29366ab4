// VxFrmReplace: another format on every sheet of every drawing in the working directory.
#include "drawing/commands.h"
#include "drawing/folder_drawings.h"
#include "frame/services.h"
#include "hostapi/windows.h"

namespace {

constexpr Dialog kDialog{"VxFrmReplace"};

// The folder of formats that the host is set to; empty where it has none.
WideText FormatFolder() {
    ProPath* list = nullptr;
    ProConfigoptArrayGet(HostText(WIDE("pro_format_dir")), &list);
    HostArray<ProPath> folders;
    folders.Adopt(list);
    return folders.Size() > 0 ? TextIn(folders.data()[0]) : WideText();
}

// The format that the user chooses, by its name, null if the host has not got it; nothing if the
// user leaves the dialog. It is copied to where the host looks for formats; one of that name that
// lies there stays.
struct Choice {
    bool made = false;
    ProMdl format = nullptr;
};
Choice ChooseFormat() {
    Choice choice;
    WideText folder = FormatFolder();
    ProPath workFolder = {};
    ProDirectoryCurrentGet(workFolder);
    ProPath start = {};
    PutText(start, folder);
    ProPath chosen = {};
    if (ProFileOpen(HostText(WIDE("请选择需要替换的新图框")), HostText(WIDE("*.frm")), nullptr,
                    nullptr, start, nullptr, chosen) != PRO_TK_NO_ERROR) {
        return choice;
    }
    choice.made = true;
    ProPath chosenFolder = {};
    NameForHost name = {};
    ProName extension = {};
    int version = 0;
    ProFilenameParse(chosen, chosenFolder, name, extension, &version);
    if (folder.empty()) folder = TextIn(workFolder);
    const WideText target = folder + WIDE("\\") + name + WIDE(".frm");
    CopyFileW(chosen, target.c_str(), /*failIfThere=*/TRUE);
    ProMdlRetrieve(name, PRO_MDL_DWGFORM, &choice.format);
    return choice;
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

// What the first view on the sheet shows; without one, or where the host does not say, `before`.
ProSolid SolidOnSheet(const DrawingWithViews& each, int sheet, ProSolid before) {
    for (int i = 0; i < each.count; ++i) {
        ProView view = each.views.data()[i];
        if (SheetOf(each.drawing, view) != sheet) continue;
        ProSolid solid = nullptr;
        ProDrawingViewSolidGet(each.drawing, view, &solid);
        return solid ? solid : before;
    }
    return before;
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
        solid = SolidOnSheet(each, sheet, solid);
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
    const Choice choice = ChooseFormat();
    if (!choice.made) return;
    for (int i = 0; i < count; ++i) ReplaceFormats(TextIn(drawings.data()[i]), choice.format);
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
