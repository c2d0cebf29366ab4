// Where a file for another program may be written, and how.
#include "simhost/door/output_file.h"

#include <fmt/format.h>

#include <filesystem>

#include "simhost/core/disk.h"
#include "simhost/core/file_names.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/system/windows.h"

namespace simhost {

namespace fs = std::filesystem;

namespace {

bool IsReadOnly(const fs::file_status& status) {
    return (status.permissions() & fs::perms::owner_write) == fs::perms::none;
}

// Empty: it can be written as far as one can tell before.
std::string WhyNot(WideView whole, const fs::path& real) {
    if (!IsFilePath(whole) || real.empty()) return "no file can have this name";
    std::error_code error;
    const fs::file_status folder = fs::status(real.parent_path(), error);
    if (!fs::is_directory(folder)) return "there is no such folder";
    if (IsReadOnly(folder)) return "the folder is read-only";
    const fs::file_status there = fs::status(real, error);
    if (!fs::exists(there)) return {};
    if (!fs::is_regular_file(there)) return "what has this name is no file";
    if (IsReadOnly(there)) return "the file is read-only";
    return TheWindows().MayOpen(real, /*toWrite=*/true) ? "" : "another program has it open";
}

[[noreturn]] void RefuseToWrite(WideView whole, const std::string& why) {
    TheHost().Tell(fmt::format("{} is not written: {}", Utf8(whole), why));
    Refuse(PRO_TK_CANT_WRITE);
}

}  // namespace

WideText WholePath(WideView path) {
    const bool hasDrive = path.size() > 2 && path[1] == WideChar{':'} &&
                          WideView(WIDE("\\/")).find(path[2]) != WideView::npos;
    if (hasDrive) return WideText(path);
    WideText whole = TheHost().session.workingDirectory;
    whole += WIDE("\\");
    whole += path;
    return whole;
}

void WriteOutput(WideView path, const std::function<std::string()>& compose) {
    const WideText whole = WholePath(path);
    const fs::path real = TheHost().disk.Real(whole);
    std::string why = WhyNot(whole, real);
    if (!why.empty()) RefuseToWrite(whole, why);
    if (!TheHost().writesOutput) return;
    if (!WriteFile(real, compose(), &why)) RefuseToWrite(whole, why);
}

}  // namespace simhost
