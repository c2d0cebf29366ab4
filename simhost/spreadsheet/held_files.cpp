// Files of spreadsheets between programs. On Windows nobody is kept away from them yet.
#include "simhost/spreadsheet/held_files.h"

#include "simhost/host.h"

#ifndef _WIN32
#include "simhost/windows/windows.h"
#endif

namespace simhost {

#ifdef _WIN32

std::string ReadablePath(const WideText& windowsPath) {
    return TheHost().disk.Real(windowsPath).string();
}
void HoldFile(const WideText&) {}
void ReleaseFile(const WideText&) {}

namespace {
bool IsRefused(const std::filesystem::path&) {
    return false;
}
}  // namespace

#else

std::string ReadablePath(const WideText& windowsPath) {
    const auto real = TheHost().disk.Real(windowsPath);
    return TheWindows().IsHeld(real) ? std::string() : real.string();
}
void HoldFile(const WideText& windowsPath) {
    TheWindows().Hold(windowsPath);
}
void ReleaseFile(const WideText& windowsPath) {
    TheWindows().Release(windowsPath);
}

namespace {
bool IsRefused(const std::filesystem::path& real) {
    return TheWindows().IsHeld(real) || IsReadOnly(real);
}
}  // namespace

#endif

std::string WritablePath(const WideText& windowsPath) {
    const auto real = TheHost().disk.Real(windowsPath);
    std::error_code error;
    const bool hasFolder = std::filesystem::is_directory(real.parent_path(), error);
    return hasFolder && !IsRefused(real) ? real.string() : std::string();
}

}  // namespace simhost
