// VxExport: the dialog, its settings, and its buttons but those that fill cells and export.
#include <algorithm>
#include <vector>

#include "export/commands.h"
#include "export/export_engine.h"
#include "export/export_table.h"
#include "frame/services.h"

namespace {

constexpr WideView kSettings = WIDE("VXconfig\\VxDrawingsIni.ini");
constexpr const char* kSources = "SelDirRadio";

// --- Settings ---

WideText ReadSetting(const WideChar* section, const WideChar* key) {
    return ReadIniValue(FileBesideModule(kSettings), section, key);
}

std::vector<WideText> ReadParameterNames() {
    return SplitColumnList(ReadSetting(WIDE("tableCols"), WIDE("content")));
}

void FillPanels() {
    const WideText pattern = DeleteBlanks(ReadSetting(WIDE("drwNames"), WIDE("content")));
    kExportDialog.SetInputText(kNamePanel, pattern.c_str());
    const WideText separator = DeleteBlanks(ReadSetting(WIDE("Separator"), WIDE("content")));
    kExportDialog.SetInputText(kSeparatorPanel, separator.c_str());
}

// A check button and its section. That of PDF has had a bracket too many in both from the start:
// what files hold under it is read, and the button itself stays as its resource has it.
struct CheckSetting {
    const WideChar* section;
    const char* button;
};
constexpr CheckSetting kCheckSettings[] = {
    {WIDE("DWGCheck"), "DWGCheck"},           {WIDE("PDFCheck]"), "PDFCheck]"},
    {WIDE("DXFCheck"), "DXFCheck"},           {WIDE("STPCheck"), "STPCheck"},
    {WIDE("IGSCheck"), "IGSCheck"},           {WIDE("PDFOptionCheck"), "PDFOptionCheck"},
    {WIDE("PDFBlackCheck"), "PDFBlackCheck"}, {WIDE("MultiSheetCheck"), "MultiSheetCheck"},
};

void SetCheckButtons() {
    for (const CheckSetting& each : kCheckSettings) {
        const WideText value = ReadSetting(each.section, WIDE("value"));
        if (value == WIDE("1")) kExportDialog.Check(each.button);
        if (value == WIDE("0")) kExportDialog.Uncheck(each.button);
    }
}

// --- Rows ---

// Both listings that the table of a folder needs.
struct Listings {
    FileList drawings, models;
};

// False: the user was told what the working directory has not.
bool ListWorkingDirectory(Listings* listings) {
    listings->drawings = ListFiles(WIDE("*.drw"));
    if (listings->drawings.count == 0) {
        ShowPlainError(WIDE("当前工作目录下无工程图"));
        return false;
    }
    listings->models = ListFiles(WIDE("*.prt,*.asm"));
    if (listings->models.count > 0) return true;
    ShowPlainError(WIDE("当前工作目录下无模型"));
    return false;
}

void FillFromFolder(const FileList& drawings) {
    for (int i = 0; i < drawings.count; ++i) {
        ProPath folder = {};
        ProName name = {}, extension = {};
        int version = 0;
        ProFilenameParse(drawings.files.data()[i], folder, name, extension, &version);
        AddDrawingRow(i + 1, TextIn(name));
    }
}

// The current model and, of an assembly, what lies in it; without the models of deeper levels. The
// assembly of a manufacturing model stands for itself alone. False: the user was told that the
// model is none that has drawings of its parts.
bool ListModels(ModelList* models) {
    const TopModel current = CurrentModel();
    const ProMdlType type = current.type;
    if (type != PRO_MDL_ASSEMBLY && type != PRO_MDL_PART && type != PRO_MDL_MFG) {
        ShowCompletion(WIDE("\t当前模型不是组件/制造或零件，无法获取工程图"));
        return false;
    }
    const ProMdl top = TopModelOf(current).model;
    if (top) models->push_back(top);
    if (type != PRO_MDL_ASSEMBLY) return true;
    ComponentArray components = ComponentCollector(top, VisitDirectComponents);
    const int count = components.Size();
    *models = ReduceToModelList(std::move(components), count, *models);
    return true;
}

void FillFromModels(const ModelList& models) {
    int rows = 0;
    for (ProMdl model : models) {
        const WideText name = ModelName(model);
        ProMdl drawing = nullptr;
        if (ProMdlRetrieve(HostText(name), PRO_MDL_DRAWING, &drawing) != PRO_TK_NO_ERROR) continue;
        AddDrawingRow(++rows, name);
    }
}

void OnSource(char*, char*, ProAppData) {
    const std::string source = kExportDialog.Selected(kSources);
    kExportTable.ColumnLabels();  // asked for at this place, though nothing here needs them
    kExportTable.DeleteAllRows();
    if (source == "workDir") {
        Listings listings;
        if (!ListWorkingDirectory(&listings)) return;
        FillFromFolder(listings.drawings);
    } else if (source == "curMdl") {
        ModelList models;
        if (!ListModels(&models)) return;
        FillFromModels(models);
    } else {
        return;
    }
    AllowSelection();
}

// --- Selection ---

void OnReverse(char*, char*, ProAppData) {
    const std::vector<std::string> rows = kExportTable.RowNames();
    if (rows.empty()) return;
    const std::vector<std::string> selected = kExportTable.SelectedRows();
    for (const std::string& row : rows) kExportTable.SelectRow(row);
    for (const std::string& row : selected) kExportTable.DeselectRow(row);
}

// Of a selection that is not empty nothing is left, so that the next press selects all.
void OnSelectAll(char*, char*, ProAppData) {
    const bool clears = !kExportTable.SelectedRows().empty();
    for (const std::string& row : kExportTable.RowNames()) {
        if (clears) {
            kExportTable.DeselectRow(row);
        } else {
            kExportTable.SelectRow(row);
        }
    }
}

// --- Settings at the user's wish ---

void OnOpenSettings(char*, char*, ProAppData) {
    OpenInNotepad(kSettings);
}

void OnUpdateSettings(char*, char*, ProAppData) {
    const std::vector<WideText> parameters = ReadParameterNames();
    DeleteParameterColumns();
    AddParameterColumns(parameters);
    FillPanels();
}

struct Button {
    const char* name;
    ProUIAction action;
};
const Button kButtons[] = {
    {"reverseSel", Guarded<OnReverse>},
    {"selAll", Guarded<OnSelectAll>},
    {"ApplyBt", Guarded<OnExport>},
    {"VxOpenDrwIni", Guarded<OnOpenSettings>},
    {"VxUpdateIni", Guarded<OnUpdateSettings>},
    {"VxLoadParams", Guarded<OnLoadParameters>},
    {"VxLoadDrwInfo", Guarded<OnLoadDrawingInfo>},
    {"Close", EndDialogOnClose},
};

void AttachActions() {
    kExportDialog.OnSelect(kSources, Guarded<OnSource>);
    for (const Button& button : kButtons) kExportDialog.OnPress(button.name, button.action);
    kExportDialog.OnClose(EndDialogOnClose);
}

}  // namespace

void VxExport() {
    Listings listings;
    if (!ListWorkingDirectory(&listings)) return;
    CreatedDialog created(kExportDialog);
    if (created.Status() != PRO_TK_NO_ERROR) return;
    AttachActions();
    AddParameterColumns(ReadParameterNames());
    FillFromFolder(listings.drawings);
    AllowSelection();
    FillPanels();
    SetCheckButtons();
    created.Show();
}
