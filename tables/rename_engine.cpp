// All new names are tried before the first model is renamed. A name that cannot be had ends the
// batch, and then the option that was changed for it stays changed.
#include "tables/rename_engine.h"

#include <string>
#include <vector>

#include "frame/services.h"
#include "hostapi/windows.h"
#include "tables/rename_table.h"

namespace {

constexpr const WideChar* kStoreOption = WIDE("override_store_back");

struct RenameRow {
    WideText oldName, type, newName;
    ProError read = PRO_TK_GENERAL_ERROR;  // the status of the new name's field

    bool IsUntouched() const { return newName == oldName || newName.empty(); }
    bool IsTooLong() const { return newName.size() > kLongestName; }
};

RenameRow ReadRow(const std::string& row) {
    RenameRow read;
    read.oldName = kRenameTable.CellText(row, kOldNameColumn);
    read.type = kRenameTable.CellText(row, kTypeColumn);
    read.read = ReadNewName(row, &read.newName);
    return read;
}

// --- Checking ---

// What the user is told of a name that cannot be had.
WideText Refusal(const WideText& name, const WideChar* reason) {
    return WIDE("无法执行重命名操作！\n新名称“") + name + WIDE("”") + reason;
}

// The model of a row's type that has the name; the status of the field where the type is neither.
ProError Retrieve(const RenameRow& row, const WideText& name, ProMdl* model) {
    if (row.type == kPartText) return ProMdlRetrieve(HostText(name), PRO_MDL_PART, model);
    if (row.type == kAssemblyText) return ProMdlRetrieve(HostText(name), PRO_MDL_ASSEMBLY, model);
    return row.read;
}

// A file that the test of a name may leave behind. One that was there before stays, and none is
// known where the folder is not.
class TestFile {
public:
    explicit TestFile(const WideText& path)
        : path_(path), isOurs_(!path.empty() && PathFileExistsW(path.c_str()) == FALSE) {}
    void Delete() const {
        if (isOurs_) DeleteFileW(path_.c_str());
    }

private:
    WideText path_;
    bool isOurs_;
};

// Makes a part of this name, saves and fetches it, and leaves nothing of it.
bool CanBeHad(const WideText& name, const WideText& directory) {
    WideText path;
    if (!directory.empty()) path = directory + WIDE("\\") + name + WIDE(".prt");
    const TestFile plain(path), first(path.empty() ? path : path + WIDE(".1"));
    ProSolid made = nullptr;
    if (ProSolidCreate(HostText(name), PRO_PART, &made) != PRO_TK_NO_ERROR) return false;
    if (made) ProMdlSave(made);
    ProMdl found = nullptr;
    const ProError status = ProMdlRetrieve(HostText(name), PRO_MDL_PART, &found);
    if (made) ProMdlErase(made);
    plain.Delete();
    first.Delete();
    return status == PRO_TK_NO_ERROR;
}

// Nothing, or what the user is told of the first name that cannot be had.
std::optional<WideText> Check(const RenameRow& row, const WideText& directory) {
    if (row.IsTooLong()) {
        return Refusal(row.newName, WIDE("长度大于32位，名称无效，请修改后再操作"));
    }
    if (row.IsUntouched()) return std::nullopt;
    ProMdl existing = nullptr;
    if (Retrieve(row, row.newName, &existing) == PRO_TK_NO_ERROR) {
        return Refusal(row.newName, WIDE("在当前会话或工作目录中已存在，请修改后再试！"));
    }
    if (!CanBeHad(row.newName, directory)) {
        return Refusal(row.newName, WIDE("非法，请修改后再试！"));
    }
    return std::nullopt;
}

// --- Renaming ---

void Rename(const RenameRow& row) {
    ProMdl model = nullptr;
    Retrieve(row, row.oldName, &model);
    if (row.IsUntouched()) return;
    ProMdl drawing = nullptr;
    ProMdlRetrieve(HostText(row.oldName), PRO_MDL_DRAWING, &drawing);
    // A drawing alone would lose the model that it is called like.
    if (!model) return;
    ProMdlRename(model, HostText(row.newName));
    if (drawing) {
        ProMdlRename(drawing, HostText(row.newName));
        ProMdlSave(drawing);
    }
    ProMdlSave(model);
}

WideText WorkingDirectory() {
    ProPath directory = {};
    ProDirectoryCurrentGet(directory);
    return TextIn(directory);
}

}  // namespace

void OnStartRename(char*, char*, ProAppData) {
    const WideText directory = WorkingDirectory();
    const std::vector<std::string> rows = kRenameTable.RowNames();
    if (rows.empty()) return ShowNotice(WIDE("\t\t重命名表格为空\t\t"));
    ProPath saved = {};
    ProConfigoptGet(HostText(kStoreOption), saved);
    ProConfigoptSet(HostText(kStoreOption), HostText(WIDE("yes")));
    for (const std::string& row : rows) {
        const auto refusal = Check(ReadRow(row), directory);
        if (refusal) return ShowNotice(*refusal);
    }
    for (const std::string& row : rows) {
        const RenameRow read = ReadRow(row);
        if (read.IsTooLong()) {
            return ShowNotice(WIDE("新名称“") + read.newName +
                              WIDE("”长度大于32位，名称无效，请修改后再操作"));
        }
        Rename(read);
    }
    ProConfigoptSet(HostText(kStoreOption), HostText(TextIn(saved)));
    ShowCompletion(WIDE("\t批量重命名操作已完成"));
}
