// VxBom: the dialog, its columns, and its buttons but the one that exports.
#include <utility>
#include <vector>

#include "frame/services.h"
#include "tables/bom_export.h"
#include "tables/bom_table.h"
#include "tables/commands.h"

namespace {

constexpr WideView kSettings = WIDE("VXconfig\\VxBom.ini");
constexpr const char* kModes = "BomRadio";
constexpr const char* kLevels = "LevelOption";

// A mode is an item of the radio group; each has its own list of columns.
struct Mode {
    const char* name;
    const WideChar* columns;  // section of the settings
    bool hasLevels;
};
constexpr Mode kFlat = {"SumBom", WIDE("tableCols_sum"), false};
constexpr Mode kLevelled = {"LevelBom", WIDE("tableCols_level"), true};

const Mode* SelectedMode() {
    const std::string name = kBomDialog.Selected(kModes);
    if (name == kFlat.name) return &kFlat;
    if (name == kLevelled.name) return &kLevelled;
    return nullptr;
}

void EnableLevels(bool enabled) {
    if (enabled) {
        kBomDialog.EnableMenu(kLevels);
    } else {
        kBomDialog.DisableMenu(kLevels);
    }
}

// --- Columns ---

// The items of the mode's list of columns.
std::vector<WideText> ReadColumns(const Mode& mode) {
    return SplitColumnList(
        ReadIniValue(FileBesideModule(kSettings), mode.columns, WIDE("content")));
}

// Adds a column for each item after the running number, and sets all labels.
void AddColumns(const std::vector<WideText>& items) {
    std::vector<std::string> names;
    std::vector<WideText> labels = {WIDE("序号")};
    for (std::size_t i = 0; i < items.size(); ++i) {
        names.push_back(BomColumn(i + 1));
        labels.push_back(items[i]);
    }
    // A label without its column would be one too many for the host.
    if (!names.empty() && !kBomTable.InsertColumns(BomColumn(0).c_str(), names)) labels.resize(1);
    kBomTable.SetColumnLabels(labels);
}

// The rows go with the old columns, when the new ones are known.
void RebuildColumns(const Mode& mode) {
    const std::vector<WideText> items = ReadColumns(mode);
    kBomTable.DeleteAllRows();
    std::vector<std::string> old = kBomTable.ColumnNames();
    if (!old.empty()) old.erase(old.begin());
    if (!old.empty()) kBomTable.DeleteColumns(old);
    AddColumns(items);
}

// --- What the user does ---

// False: the user was told that the model is none to be listed.
bool CanBeListed(const TopModel& current) {
    if (current.type == PRO_MDL_ASSEMBLY || current.type == PRO_MDL_MFG) return true;
    ShowPlainError(WIDE("此功能仅组件/制造环境可用！"));
    return false;
}

void OnLoad(char*, char*, ProAppData) {
    const Mode* mode = SelectedMode();
    const std::vector<WideText> labels = kBomTable.ColumnLabels();
    kBomTable.DeleteAllRows();
    if (!mode) return;
    const int depth = mode->hasLevels ? WholeNumber(kBomDialog.MenuText(kLevels)) : 0;
    const TopModel current = CurrentModel();
    if (!CanBeListed(current)) return;
    const ProMdl assembly = TopModelOf(current).model;
    if (mode->hasLevels) {
        FillLevelBom(assembly, depth, labels);
    } else {
        FillFlatBom(assembly, labels);
    }
}

void OnMode(char*, char*, ProAppData) {
    const Mode* mode = SelectedMode();
    if (!mode) return;
    EnableLevels(mode->hasLevels);
    RebuildColumns(*mode);
}

void OnUpdateSettings(char*, char*, ProAppData) {
    const Mode* mode = SelectedMode();
    if (mode) RebuildColumns(*mode);
}

void OnOpenSettings(char*, char*, ProAppData) {
    OpenInNotepad(kSettings);
}

// The column of the models' names, the last one of several; empty if there is none.
std::string NameColumn() {
    const std::vector<WideText> labels = kBomTable.ColumnLabels();
    std::string column;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        if (labels[i] == kModelNameLabel) column = BomColumn(i);
    }
    return column;
}

// Shows the model of the row; the current model is that one from now on.
void OnDoubleClick(char*, char*, ProAppData) {
    kBomDialog.StayAboveWindow();
    const std::string column = NameColumn();
    if (column.empty()) return;
    const std::string row = kBomTable.FirstSelectedRow();
    if (row.empty()) return;
    const WideText name = kBomTable.CellText(row, column);
    const bool isAssembly = kBomTable.CellColour(row, column) == kAssemblyColour;
    ProMdl model = nullptr;
    ProMdlRetrieve(HostText(name), isAssembly ? PRO_MDL_ASSEMBLY : PRO_MDL_PART, &model);
    if (model) ProMdlDisplay(model);
}

// The list of the one picture is left to the drawing area.
void OnPictureManaged(char*, char*, ProAppData name) {
    ProArray list = nullptr;
    if (ProArrayAlloc(1, int(sizeof(char*)), 1, &list) != PRO_TK_NO_ERROR) return;
    auto** images = static_cast<char**>(list);
    images[0] = HostText("VxQQ2.gif");
    const Dialog dialog(static_cast<const char*>(name));
    ProUIPoint position = {2, 2};
    dialog.SetImages("DrawingArea", 1, images);
    dialog.DrawImages("DrawingArea", 1, images, &position);
}

struct Button {
    const char* name;
    ProUIAction action;
};
const Button kButtons[] = {
    {"VxLoadBom", Guarded<OnLoad>},
    {"VxExportBom", Guarded<OnExportBom>},
    {"VxOpenBomIni", Guarded<OnOpenSettings>},
    {"VxUpdateBomIni", Guarded<OnUpdateSettings>},
    {"Close", EndDialogOnClose},
};

void AttachActions() {
    for (const Button& button : kButtons) kBomDialog.OnPress(button.name, button.action);
    kBomDialog.OnSelect(kModes, Guarded<OnMode>);
    kBomTable.OnActivate(Guarded<OnDoubleClick>);
    kBomDialog.OnClose(EndDialogOnClose);
}

}  // namespace

void VxBom() {
    const TopModel current = CurrentModel();
    CreatedDialog created(kBomDialog);
    if (created.Status() != PRO_TK_NO_ERROR) return;
    AttachActions();
    AddColumns(ReadColumns(kFlat));
    if (!CanBeListed(current)) return;
    const ProMdl assembly = TopModelOf(current).model;
    FillFlatBom(assembly, kBomTable.ColumnLabels());
    if (SelectedMode() == &kFlat) EnableLevels(false);
    kBomDialog.OnManaged("DrawingArea", Guarded<OnPictureManaged>, kBomDialog.Name());
    if (created.Show() != PRO_TK_NO_ERROR) return;
    ProMdlDisplay(current.model);
}
