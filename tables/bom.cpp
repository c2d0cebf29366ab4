// VxBom: the dialog, its columns, and its buttons but the one that exports.
#include "tables/bom.h"

#include <utility>
#include <vector>

#include "frame/services.h"
#include "tables/bom_export.h"
#include "tables/bom_table.h"

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
    const std::string name = SelectedName(kBomDialog, kModes);
    if (name == kFlat.name) return &kFlat;
    if (name == kLevelled.name) return &kLevelled;
    return nullptr;
}

void EnableLevels(bool enabled) {
    if (enabled) {
        ProUIOptionmenuEnable(HostText(kBomDialog), HostText(kLevels));
    } else {
        ProUIOptionmenuDisable(HostText(kBomDialog), HostText(kLevels));
    }
}

// --- Columns ---

// Inserts columns of these names behind the running number. False if that failed.
bool InsertColumns(std::vector<std::string> names) {
    if (names.empty()) return true;
    std::vector<char*> texts;
    texts.reserve(names.size());
    for (std::string& name : names) texts.push_back(name.data());
    const std::string number = BomColumn(0);
    return ProUITableColumnsInsert(HostText(kBomDialog), HostText(kBomTable),
                                   HostText(number.c_str()), int(texts.size()),
                                   texts.data()) == PRO_TK_NO_ERROR;
}

// Adds a column for each item of the mode's list behind the running number, and sets all labels.
void AddColumns(const Mode& mode) {
    const auto items =
        SplitColumnList(ReadIniValue(FileBesideModule(kSettings), mode.columns, WIDE("content")));
    std::vector<std::string> names;
    std::vector<WideChar*> labels = {HostText(WIDE("序号"))};
    for (std::size_t i = 0; i < items.size(); ++i) {
        names.push_back(BomColumn(i + 1));
        labels.push_back(HostText(items[i]));
    }
    // A label without its column would be one too many for the host.
    if (!InsertColumns(std::move(names))) labels.resize(1);
    ProUITableColumnlabelsSet(HostText(kBomDialog), HostText(kBomTable), int(labels.size()),
                              labels.data());
}

// The rows go with the old columns.
void RebuildColumns(const Mode& mode) {
    DeleteAllTableRows(kBomDialog, kBomTable);
    std::vector<std::string> names = TableColumnNames(kBomDialog, kBomTable);
    std::vector<char*> old;
    for (std::size_t i = 1; i < names.size(); ++i) old.push_back(names[i].data());
    if (!old.empty()) {
        ProUITableColumnsDelete(HostText(kBomDialog), HostText(kBomTable), int(old.size()),
                                old.data());
    }
    AddColumns(mode);
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
    const std::vector<WideText> labels = TableColumnLabels(kBomDialog, kBomTable);
    DeleteAllTableRows(kBomDialog, kBomTable);
    if (!mode) return;
    const int depth = mode->hasLevels ? WholeNumber(OptionMenuText(kBomDialog, kLevels)) : 0;
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
    const std::vector<WideText> labels = TableColumnLabels(kBomDialog, kBomTable);
    std::string column;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        if (labels[i] == kModelNameLabel) column = BomColumn(i);
    }
    return column;
}

// Shows the model of the row; the current model is that one from now on.
void OnDoubleClick(char*, char*, ProAppData) {
    ProUIDialogAboveactivewindowSet(HostText(kBomDialog), PRO_B_TRUE);
    const std::string column = NameColumn();
    if (column.empty()) return;
    const std::string row = FirstSelectedRow(kBomDialog, kBomTable);
    if (row.empty()) return;
    const WideText name = TableCellText(kBomDialog, kBomTable, row, column);
    const bool isAssembly = TableCellColour(kBomDialog, kBomTable, row, column) == kAssemblyColour;
    ProMdl model = nullptr;
    ProMdlRetrieve(HostText(name), isAssembly ? PRO_MDL_ASSEMBLY : PRO_MDL_PART, &model);
    if (model) ProMdlDisplay(model);
}

// The list of the one picture is left to the drawing area.
void OnPictureManaged(char*, char*, ProAppData dialog) {
    ProArray list = nullptr;
    if (ProArrayAlloc(1, int(sizeof(char*)), 1, &list) != PRO_TK_NO_ERROR) return;
    auto** images = static_cast<char**>(list);
    images[0] = HostText("VxQQ2.gif");
    auto* name = static_cast<char*>(dialog);
    ProUIPoint position = {2, 2};
    ProUIDrawingareaImagesSet(name, HostText("DrawingArea"), 1, images);
    ProUIDrawingareaImagesDraw(name, HostText("DrawingArea"), 1, images, &position);
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
    char* const dialog = HostText(kBomDialog);
    for (const Button& button : kButtons) {
        ProUIPushbuttonActivateActionSet(dialog, HostText(button.name), button.action, nullptr);
    }
    ProUIRadiogroupSelectActionSet(dialog, HostText(kModes), Guarded<OnMode>, nullptr);
    ProUITableActivateActionSet(dialog, HostText(kBomTable), Guarded<OnDoubleClick>, nullptr);
    ProUIDialogCloseActionSet(dialog, EndDialogOnClose, nullptr);
}

}  // namespace

void VxBom() {
    const TopModel current = CurrentModel();
    if (CreateDialog(kBomDialog) != PRO_TK_NO_ERROR) return;
    AttachActions();
    AddColumns(kFlat);
    if (!CanBeListed(current)) {
        ProUIDialogDestroy(HostText(kBomDialog));
        return;
    }
    const ProMdl assembly = TopModelOf(current).model;
    FillFlatBom(assembly, TableColumnLabels(kBomDialog, kBomTable));
    if (SelectedMode() == &kFlat) EnableLevels(false);
    ProUIDrawingareaPostmanagenotifyActionSet(HostText(kBomDialog), HostText("DrawingArea"),
                                              Guarded<OnPictureManaged>, HostText(kBomDialog));
    if (ShowCreatedDialog(kBomDialog) != PRO_TK_NO_ERROR) return;
    ProMdlDisplay(current.model);
}
