// Files of spreadsheets between programs.
#include "simhost/spreadsheet/held_files.h"

#include "simhost/system/windows.h"

namespace simhost {

std::string ReadablePath(const WideText& windowsPath) {
    const auto real = TheWindows().host().disk.Real(windowsPath);
    return TheWindows().MayOpen(real, /*toWrite=*/false) ? real.string() : std::string();
}

std::string WritablePath(const WideText& windowsPath) {
    const auto real = TheWindows().host().disk.Real(windowsPath);
    std::error_code error;
    const bool hasFolder = std::filesystem::is_directory(real.parent_path(), error);
    const bool may = hasFolder && TheWindows().MayOpen(real, /*toWrite=*/true);
    return may ? real.string() : std::string();
}

void HoldFile(const WideText& windowsPath) {
    TheWindows().Hold(windowsPath);
}

void ReleaseFile(const WideText& windowsPath) {
    TheWindows().Release(windowsPath);
}

}  // namespace simhost
