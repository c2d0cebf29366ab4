// Loading and unloading of the plug-in's module.
#include "simhost/app/plugin.h"

#include <stdexcept>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/system/windows.h"

namespace simhost {

namespace {

using InitializeFunction = int (*)(int, char*[], char*, char*, WideChar[80]);
using TerminateFunction = void (*)();

std::runtime_error Failure(const std::filesystem::path& file, const std::string& reason) {
    const std::u8string name = file.u8string();
    return std::runtime_error("the module " + std::string(name.begin(), name.end()) +
                              " cannot be loaded: " + reason);
}

std::unique_ptr<ModuleFile> Load(const std::filesystem::path& file, const WideText& windowsPath) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        throw Failure(file, "there is no such file; build it, or name another");
    }
    try {
        return std::make_unique<ModuleFile>(file, windowsPath);
    } catch (const std::runtime_error& reason) {
        throw Failure(file, reason.what());
    }
}

}  // namespace

Plugin::Plugin(const std::filesystem::path& file, const WideText& windowsPath)
    : name_(windowsPath.substr(windowsPath.find_last_of(WIDE("\\/")) + 1)),
      module_(Load(file, windowsPath)) {}

Plugin::~Plugin() {
    TheHost().commands.Clear();
    StopTimers();
}

// A real Windows would go on calling a procedure whose memory is gone.
void Plugin::StopTimers() {
    const auto calls = [this](TIMERPROC procedure) {
        return procedure && module_->Holds(reinterpret_cast<const void*>(procedure));
    };
    for (int left = TheWindows().StopTimers(calls); left > 0; --left) {
        TheHost().Complain("a timer is still set whose procedure lies in " + Utf8(name_) +
                           ", which leaves memory");
    }
}

void* Plugin::Symbol(const char* name) const {
    void* symbol = module_->Symbol(name);
    if (!symbol) throw std::runtime_error(std::string("the module has no ") + name);
    return symbol;
}

int Plugin::Initialize(std::string version) {
    std::string build = "simulated";
    WideChar errorText[80] = {};
    const auto initialize = reinterpret_cast<InitializeFunction>(Symbol("user_initialize"));
    return initialize(0, nullptr, version.data(), build.data(), errorText);
}

void Plugin::Terminate() {
    reinterpret_cast<TerminateFunction>(Symbol("user_terminate"))();
}

}  // namespace simhost
