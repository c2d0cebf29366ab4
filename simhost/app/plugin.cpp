// Loading and unloading of the plug-in's module.
#include "simhost/app/plugin.h"

#include <stdexcept>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/windows/windows.h"

#ifndef _WIN32
#include <dlfcn.h>
#endif

namespace simhost {

namespace {

using InitializeFunction = int (*)(int, char*[], char*, char*, WideChar[80]);
using TerminateFunction = void (*)();

constexpr const char* kTerminate = "user_terminate";

WideText FileNameOf(const WideText& path) {
    return path.substr(path.find_last_of(WIDE("\\/")) + 1);
}

std::runtime_error Failure(const std::filesystem::path& file, const std::string& reason) {
    const std::u8string name = file.u8string();
    return std::runtime_error("the module " + std::string(name.begin(), name.end()) +
                              " cannot be loaded: " + reason);
}

const std::filesystem::path& Existing(const std::filesystem::path& file) {
    std::error_code error;
    if (std::filesystem::is_regular_file(file, error)) return file;
    throw Failure(file, "there is no such file; build it, or name another");
}

#ifdef _WIN32
// The errors that somebody can do something about.
std::string ReasonOf(DWORD error) {
    switch (error) {
        case ERROR_MOD_NOT_FOUND:
            return "a library that it needs is missing; put it beside simhost";
        case ERROR_PROC_NOT_FOUND: return "it calls an operation that is not here; build both anew";
        case ERROR_BAD_EXE_FORMAT: return "it is no module for 64-bit Windows; build it for that";
        default: return "Windows error " + std::to_string(error);
    }
}

// The path of the copy if one was made.
std::filesystem::path Install(const std::filesystem::path& file, const WideText& windowsPath) {
    const std::filesystem::path place = windowsPath;
    std::error_code error;
    if (std::filesystem::equivalent(file, place, error)) return {};
    std::filesystem::create_directories(place.parent_path());
    std::filesystem::copy_file(file, place, std::filesystem::copy_options::update_existing);
    return place;
}

void* Open(const std::filesystem::path& file) {
    HMODULE module = LoadLibraryW(file.c_str());
    const DWORD error = GetLastError();
    if (!module) throw Failure(file, ReasonOf(error));
    WatchCalls(module);
    return reinterpret_cast<void*>(module);
}
void Close(void* module) {
    FreeLibrary(reinterpret_cast<HMODULE>(module));
}
bool LiesIn(void* module, const void* address) {
    HMODULE holder = nullptr;
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                  GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              static_cast<const WideChar*>(address), &holder) &&
           holder == reinterpret_cast<HMODULE>(module);
}
void* Find(void* module, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(reinterpret_cast<HMODULE>(module), name));
}
void Announce(const WideText&, const WideText&) {}
void Withdraw(const WideText&) {}
#else
std::filesystem::path Install(const std::filesystem::path&, const WideText&) {
    return {};
}
void* Open(const std::filesystem::path& file) {
    void* module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module) return module;
    throw Failure(file, dlerror());
}
void Close(void* module) {
    dlclose(module);
}
void* Find(void* module, const char* name) {
    return dlsym(module, name);
}
bool LiesIn(void* module, const void* address) {
    Dl_info place = {}, own = {};
    return dladdr(address, &place) != 0 && dladdr(Find(module, kTerminate), &own) != 0 &&
           place.dli_fbase == own.dli_fbase;
}
void Announce(const WideText& name, const WideText& path) {
    TheWindows().AddModule(name, path);
}
void Withdraw(const WideText& name) {
    TheWindows().RemoveModule(name);
}
#endif

}  // namespace

Plugin::Plugin(const std::filesystem::path& file, const WideText& windowsPath)
    : name_(FileNameOf(windowsPath)),
      copy_(Install(Existing(file), windowsPath)),
      module_(Open(copy_.empty() ? file : copy_)) {
    Announce(name_, windowsPath);
}

Plugin::~Plugin() {
    TheHost().commands.Clear();
    StopTimers();
    Withdraw(name_);
    Close(module_);
    std::error_code ignored;
    if (!copy_.empty()) std::filesystem::remove(copy_, ignored);
}

// A real Windows would go on calling a procedure whose memory is gone.
void Plugin::StopTimers() {
    const auto calls = [this](TIMERPROC procedure) {
        return procedure && LiesIn(module_, reinterpret_cast<const void*>(procedure));
    };
    for (int left = TheWindows().StopTimers(calls); left > 0; --left) {
        TheHost().Complain("a timer is still set whose procedure lies in " + Utf8(name_) +
                           ", which leaves memory");
    }
}

void* Plugin::Symbol(const char* name) const {
    void* symbol = Find(module_, name);
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
    reinterpret_cast<TerminateFunction>(Symbol(kTerminate))();
}

}  // namespace simhost
