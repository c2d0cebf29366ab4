// Files of spreadsheets between programs.
#include "simhost/spreadsheet/held_files.h"

#include "simhost/windows/windows.h"

namespace simhost {

namespace {

#ifdef _WIN32
// Windows itself refuses what may not be opened.
bool IsHeld(const std::filesystem::path&) {
    return false;
}
bool MayNotBeWritten(const std::filesystem::path&) {
    return false;
}
#else
bool IsHeld(const std::filesystem::path& real) {
    return TheWindows().IsHeld(real);
}
bool MayNotBeWritten(const std::filesystem::path& real) {
    return IsReadOnly(real);
}
#endif

}  // namespace

std::string ReadablePath(const WideText& windowsPath) {
    const auto real = TheWindows().host().disk.Real(windowsPath);
    return IsHeld(real) ? std::string() : real.string();
}

std::string WritablePath(const WideText& windowsPath) {
    const auto real = TheWindows().host().disk.Real(windowsPath);
    std::error_code error;
    const bool hasFolder = std::filesystem::is_directory(real.parent_path(), error);
    const bool refused = !hasFolder || IsHeld(real) || MayNotBeWritten(real);
    return refused ? std::string() : real.string();
}

void HoldFile(const WideText& windowsPath) {
    TheWindows().Hold(windowsPath);
}

void ReleaseFile(const WideText& windowsPath) {
    TheWindows().Release(windowsPath);
}

}  // namespace simhost
