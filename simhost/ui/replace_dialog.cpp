// Replacing as the designer sees it: how the new model is found, the list of files, and DoneBtn.
#include "simhost/ui/replace_dialog.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <utility>
#include <vector>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/model/model_folder.h"
#include "simhost/model/replacing.h"
#include "simhost/model/session.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/list.h"
#include "simhost/ui/radiogroup.h"
#include "simhost/user/language.h"

namespace simhost {

namespace fs = std::filesystem;

namespace {

constexpr const char* kDefaultVersion = "Creo Parametric 7.0";
constexpr const char* kByName = "ProCmdReplace";
constexpr const char* kByPopup = "ProCmdReplComp@PopupMenuGraphicWinStack";

constexpr const char* kDialog = "gen_repl_dlg";
constexpr const char* kMethod = "ByCompPH.rpl_method_radio";
constexpr const char* kUnrelated = "Unrelated Component";
constexpr const char* kNewModel = "PB_NewComp";
constexpr const char* kDone = "DoneBtn";
constexpr const char* kCancel = "CancelBtn";

constexpr const char* kFileDialog = "file_open";
constexpr const char* kFolder = "Current Dir";
constexpr const char* kFiles = "Ph_list.Filelist";
constexpr const char* kOpen = "Open";

constexpr int kDoneStatus = 1;

// A dialog of the host: what it has, one below the other. Its names are the host's own, which no
// resource file could hold.
DialogResource ResourceOf(const char* name, const char* title,
                          std::vector<ResourceComponent> components) {
    DialogResource resource;
    resource.name = name;
    resource.attributes.push_back({"", "Label", {title}, 0});
    Grid grid;
    for (const ResourceComponent& each : components) {
        Grid cell;
        cell.component = each.name;
        grid.children.push_back(cell);
    }
    grid.rows.assign(components.size(), 1);
    grid.cols = {1};
    resource.layouts[""] = grid;
    resource.components = std::move(components);
    return resource;
}

template <class Kind>
Kind& Get(Dialog& dialog, const char* component) {
    return dynamic_cast<Kind&>(*dialog.Find(component));
}

// The model files of a folder, newest version only, as the file dialog shows them.
std::vector<std::string> FilesIn(const fs::path& folder) {
    std::vector<std::string> files;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const auto utf8 = entry.path().filename().u8string();
        std::string file;
        SplitVersion(std::string(utf8.begin(), utf8.end()), &file);
        const std::size_t dot = file.rfind('.');
        if (dot == std::string::npos) continue;
        const ProMdlType type = TypeOfSuffix(file.substr(dot + 1));
        if (type == PRO_MDL_PART || type == PRO_MDL_ASSEMBLY) files.push_back(file);
    }
    std::sort(files.begin(), files.end());
    files.erase(std::unique(files.begin(), files.end()), files.end());
    return files;
}

class FileOpen {
public:
    explicit FileOpen(fs::path folder)
        : folder_(std::move(folder)),
          dialog_(kFileDialog, ResourceOf(kFileDialog, Either("Open a file", "打开文件"),
                                          {{PushButton::kKind, kFolder, 0},
                                           {List::kKind, kFiles, 0},
                                           {PushButton::kKind, kOpen, 0},
                                           {PushButton::kKind, "Cancel", 0}})) {
        SetButton(kFolder, Either("Working folder", "工作目录"), ShowFiles);
        SetButton(kOpen, Either("Open", "打开"), Take);
        SetButton("Cancel", Either("Cancel", "取消"), Cancel);
        Get<List>(dialog_, kFiles).activateAction = {Take, this};
        dialog_.closeAction = {Cancel, this};
    }

    // The file that the user has chosen; empty: none.
    std::string Ask(Dialogs& dialogs) {
        ShowFiles(nullptr, nullptr, this);
        dialogs.Activate(dialog_);
        return taken_;
    }

private:
    static FileOpen& Self(ProAppData self) { return *static_cast<FileOpen*>(self); }
    void SetButton(const char* name, const char* label, ProUIAction action) {
        PushButton& button = Get<PushButton>(dialog_, name);
        button.label = Wide(label);
        button.activateAction = {action, this};
    }
    // As the folder is now: the file may have been saved a moment ago.
    static void ShowFiles(char*, char*, ProAppData data) {
        FileOpen& self = Self(data);
        Get<List>(self.dialog_, kFiles).SetItems(FilesIn(self.folder_));
    }
    static void Take(char*, char*, ProAppData data) {
        FileOpen& self = Self(data);
        self.taken_ = Get<List>(self.dialog_, kFiles).chosen();
        if (!self.taken_.empty()) self.dialog_.Exit(kDoneStatus);
    }
    static void Cancel(char*, char*, ProAppData data) { Self(data).dialog_.Exit(0); }

    fs::path folder_;
    Dialog dialog_;
    std::string taken_;
};

class Replace {
public:
    Replace(Dialogs& dialogs, Session& session, const Disk& disk, Selection selection)
        : dialogs_(dialogs),
          session_(session),
          disk_(disk),
          selection_(std::move(selection)),
          dialog_(kDialog,
                  WithMethods(ResourceOf(kDialog, Either("Replace a component", "替换元件"),
                                         {{RadioGroup::kKind, kMethod, 0},
                                          {PushButton::kKind, kNewModel, 0},
                                          {PushButton::kKind, kDone, 0},
                                          {PushButton::kKind, kCancel, 0}}))) {
        Button(kNewModel, Either("New component…", "新元件…"), Choose).enabled = false;
        Button(kDone, Either("OK", "确定"), Done).enabled = false;
        Button(kCancel, Either("Cancel", "取消"), Cancel);
        Get<RadioGroup>(dialog_, kMethod).selectAction = {MethodChosen, this};
        dialog_.closeAction = {Cancel, this};
    }
    void Ask() { dialogs_.Activate(dialog_); }

private:
    static DialogResource WithMethods(DialogResource resource) {
        resource.attributes.push_back(
            {kMethod, "Names", {"Family Table", "Interchange", kUnrelated}, 0});
        resource.attributes.push_back(
            {kMethod,
             "Labels",
             {Either("Family table", "族表"), Either("Interchange", "互换"),
              Either("Unrelated component", "不相关元件")},
             0});
        resource.attributes.push_back({kMethod, "SelectedNames", {"Family Table"}, 0});
        return resource;
    }
    static Replace& Self(ProAppData self) { return *static_cast<Replace*>(self); }
    PushButton& Button(const char* name, const char* label, ProUIAction action) {
        PushButton& button = Get<PushButton>(dialog_, name);
        button.label = Wide(label);
        button.activateAction = {action, this};
        return button;
    }
    // Only an unrelated model is chosen from the files.
    static void MethodChosen(char*, char*, ProAppData data) {
        Replace& self = Self(data);
        const RadioGroup& methods = Get<RadioGroup>(self.dialog_, kMethod);
        const bool unrelated = methods.names()[methods.selected().value_or(0)] == kUnrelated;
        Get<PushButton>(self.dialog_, kNewModel).enabled = unrelated;
    }
    static void Choose(char*, char*, ProAppData data) {
        Replace& self = Self(data);
        const std::string file =
            FileOpen(self.disk_.Real(self.session_.workingDirectory)).Ask(self.dialogs_);
        if (file.empty()) return;
        self.file_ = file;
        Get<PushButton>(self.dialog_, kDone).enabled = true;
    }
    // A refused replacement leaves the dialog open, so that another model can be chosen.
    static void Done(char*, char*, ProAppData data) {
        Replace& self = Self(data);
        const std::string problem = ReplaceComponent(self.session_, self.selection_, self.file_);
        if (problem.empty()) return self.dialog_.Exit(kDoneStatus);
        if (self.session_.tell) self.session_.tell(problem);
    }
    static void Cancel(char*, char*, ProAppData data) { Self(data).dialog_.Exit(0); }

    Dialogs& dialogs_;
    Session& session_;
    const Disk& disk_;
    Selection selection_;
    Dialog dialog_;
    std::string file_;
};

bool IsOlder() {
    const std::string& version = HostVersion();
    return version == "5.0" || version == "Creo 1.0" || version == "Creo 2.0";
}

}  // namespace

std::string& HostVersion() {
    static std::string version = kDefaultVersion;
    return version;
}

void ResetHostVersion() {
    HostVersion() = kDefaultVersion;
}

bool IsReplaceCommand(const std::string& name) {
    return name == (IsOlder() ? kByName : kByPopup);
}

bool IsInPopup(const std::string& replaceCommand) {
    return replaceCommand == kByPopup;
}

std::string ReplaceSelected(Dialogs& dialogs, Session& session, const Disk& disk) {
    const std::vector<Selection>& selected = session.selections.buffer();
    const bool component =
        selected.size() == 1 && !selected[0].path.empty() && selected[0].item.id < 0;
    if (!component) return "one component must be selected that is replaced";
    Replace(dialogs, session, disk, selected[0]).Ask();
    return {};
}

}  // namespace simhost
