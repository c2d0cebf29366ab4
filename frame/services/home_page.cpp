// The product's home page, opened through the command shell's `start`.
#include "frame/services/home_page.h"

#include <string>

#include "hostapi/windows.h"

namespace {

// The one place of the address; a reserved example until there is a real one.
constexpr const char* kHomePage = "https://vorlatix.example/";

}  // namespace

void OpenHomePage() {
    const std::string command = std::string("cmd /c start ") + kHomePage;
    WinExec(command.c_str(), SW_HIDE);
}
