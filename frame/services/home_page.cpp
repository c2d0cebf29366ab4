// The product's home page, opened through the command shell's `start`.
#include "frame/services/home_page.h"

#include <string>

#include "hostapi/windows.h"

namespace {

// The one place of the address; a reserved example until there is a real one.
constexpr const char* kHomePage = "https://vorlatix.example/";

// Of a program without its folder Windows would take one of that name in the working folder first,
// which other people may write to.
std::string SystemFolder() {
    WideChar folder[MAX_PATH] = {};
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return {};
    char narrow[MAX_PATH * 4] = {};
    const int bytes = WideCharToMultiByte(CP_ACP, 0, folder, int(length), narrow, sizeof narrow,
                                          nullptr, nullptr);
    return std::string(narrow, std::size_t(bytes));
}

}  // namespace

void OpenHomePage() {
    const std::string folder = SystemFolder();
    if (folder.empty()) return;
    const std::string command = '"' + folder + "\\cmd.exe\" /c start " + kHomePage;
    WinExec(command.c_str(), SW_HIDE);
}
