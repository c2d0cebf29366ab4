// VxRename: the dialog, its filter, and its buttons but those that exchange tables and rename.
#include <unordered_set>
#include <vector>

#include "frame/services.h"
#include "tables/commands.h"
#include "tables/rename_engine.h"
#include "tables/rename_exchange.h"
#include "tables/rename_table.h"

namespace {

constexpr WideView kSettings = WIDE("VXconfig\\VxRename.ini");
constexpr const char* kFilterPanel = "RenameFilter";

// The filter of the settings; the panel shows what stands before a terminator.
WideText ReadFilter() {
    const WideText filter = StoredRenameFilter(
        ReadIniValue(FileBesideModule(kSettings), WIDE("RenameFilter"), WIDE("content")));
    kRenameDialog.SetInputText(kFilterPanel, filter.c_str());
    return filter;
}

// False: the user was told that the model is none to be renamed like this.
bool CanBeRenamed(ProMdlType type) {
    if (type == PRO_MDL_ASSEMBLY || type == PRO_MDL_MFG) return true;
    ShowPlainError(WIDE("此功能仅组件/制造环境可用！"));
    return false;
}

// The assembly and the models below it, each once, in the order in which they are first met.
std::vector<ProMdl> ModelsToRename(const TopModel& current) {
    const ProMdl assembly = TopModelOf(current).model;
    if (!assembly) return {};
    std::vector<ProMdl> models = {assembly};
    std::unordered_set<ProMdl> known = {assembly};
    const ComponentArray components = ComponentCollector(assembly, VisitAllComponents);
    const int size = components.Size();
    for (int i = 0; i < size; ++i) {
        ProMdl model = nullptr;
        if (ProAsmcompMdlGet(&components.data()[i], &model) != PRO_TK_NO_ERROR) continue;
        if (known.insert(model).second) models.push_back(model);
    }
    return models;
}

// --- What the user does ---

void OnUpdateFilter(char*, char*, ProAppData) {
    const TopModel current = CurrentModel();
    if (!CanBeRenamed(current.type)) return;
    ReadFilter();
    kRenameTable.DeleteAllRows();
    const WideText filter = StoredRenameFilter(kRenameDialog.InputText(kFilterPanel));
    FillRenameTable(ModelsToRename(current), SplitRenameFilter(filter), NewNames::Missing);
}

void OnOpenSettings(char*, char*, ProAppData) {
    OpenInNotepad(kSettings);
}

struct Button {
    const char* name;
    ProUIAction action;
};
const Button kButtons[] = {
    {"VxExportTab", Guarded<OnExportRename>},     {"VxLoadTab", Guarded<OnLoadRename>},
    {"StartRename", Guarded<OnStartRename>},      {"OpenRenameIni", Guarded<OnOpenSettings>},
    {"UpdateRenameIni", Guarded<OnUpdateFilter>},
};

void AttachActions() {
    for (const Button& button : kButtons) kRenameDialog.OnPress(button.name, button.action);
    kRenameDialog.OnClose(EndDialogOnClose);
    kRenameTable.SetSelectionPolicy(PROUISELPOLICY_BROWSE);
    kRenameTable.OnPick(Guarded<OnPickRow>);
}

}  // namespace

void VxRename() {
    TopModel current;
    if (ProMdlCurrentGet(&current.model) != PRO_TK_NO_ERROR) return;
    current.type = TypeOf(current.model);
    CreatedDialog created(kRenameDialog);
    if (created.Status() != PRO_TK_NO_ERROR) return;
    AttachActions();
    if (!CanBeRenamed(current.type)) return created.Leave();
    const std::vector<WideText> filter = SplitRenameFilter(ReadFilter());
    const std::vector<ProMdl> models = ModelsToRename(current);
    if (models.size() < 2) return;
    FillRenameTable(models, filter, NewNames::InPanels);
    if (created.Show() != PRO_TK_NO_ERROR) return;
    ProMdlDisplay(current.model);
}
