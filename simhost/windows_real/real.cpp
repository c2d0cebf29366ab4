// The user's side of a real Windows: its registry, its clock, and what the plug-in left open.
#include "simhost/windows_real/real.h"

#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>

#include "simhost/core/text.h"
#include "simhost/system/clock.h"

namespace simhost {

namespace {

std::unique_ptr<RealWindows>& Instance() {
    static std::unique_ptr<RealWindows> windows;
    return windows;
}

WideText PathOf(HMODULE module) {
    WideText path(0x8000, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), 0x8000));
    return path;
}

}  // namespace

RealWindows& Real() {
    auto& windows = Instance();
    if (!windows) windows = std::make_unique<RealWindows>();
    return *windows;
}

Windows& TheWindows() {
    return Real();
}

void RestartWindows() {
    Instance().reset();
    SetClock(std::nullopt);
    _wsetlocale(LC_ALL, L"C");
    Real();
    CatchBoxes();
}

RealWindows::RealWindows()
    : rootPath_(L"Software\\Vorlatix tests\\" + std::to_wstring(GetCurrentProcessId())) {
    executablePath = PathOf(nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, rootPath_.c_str());
    const LSTATUS made = RegCreateKeyExW(HKEY_CURRENT_USER, rootPath_.c_str(), 0, nullptr, 0,
                                         KEY_ALL_ACCESS, nullptr, &root_, nullptr);
    // From here on the user's own settings are out of reach for this process.
    if (made != ERROR_SUCCESS || RegOverridePredefKey(HKEY_CURRENT_USER, root_) != ERROR_SUCCESS) {
        throw std::runtime_error("Windows gives this process no registry of its own");
    }
}

RealWindows::~RealWindows() {
    StopTimers([](TIMERPROC) { return true; });
    ReleaseClipboard();
    if (clipboardOpen) CloseClipboard();
    for (const auto& [block, bytes] : memory) GlobalFree(block);
    for (const auto& [key, path] : keys) RegCloseKey(key);
    for (const auto& [file, path] : files) CloseHandle(file);
    for (const auto& [path, file] : held_) CloseHandle(file);
    for (const auto& [name, module] : modules_) FreeLibrary(module);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegCloseKey(root_);
    RegDeleteTreeW(HKEY_CURRENT_USER, rootPath_.c_str());
    RegDeleteKeyW(HKEY_CURRENT_USER, rootPath_.c_str());
}

// --- Modules ---

void RealWindows::AddModule(WideView name, WideView windowsPath) {
    // Any small library will do; this one needs nothing but Windows.
    const WideText path(windowsPath);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    CopyFileW(PathOf(GetModuleHandleW(L"libwinpthread-1.dll")).c_str(), path.c_str(), FALSE);
    const HMODULE module = LoadLibraryW(path.c_str());
    if (!module) throw std::runtime_error("no library can be loaded as " + Utf8(path));
    modules_[WideText(name)] = module;
}

void RealWindows::RemoveModule(WideView name) {
    const auto module = modules_.find(WideText(name));
    if (module == modules_.end()) return;
    FreeLibrary(module->second);
    modules_.erase(module);
}

// --- Registry ---

void RealWindows::MakeKey(WideView path) {
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, WideText(path).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS,
                    nullptr, &key, nullptr);
    RegCloseKey(key);
}

const RegistryKey* RealWindows::FindKey(WideView path) const {
    HKEY key = nullptr;
    const WideText text(path);
    if (RegOpenKeyExW(HKEY_CURRENT_USER, text.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return nullptr;
    }
    found_.values.clear();
    for (DWORD at = 0;; ++at) {
        WideChar name[256] = {};
        DWORD nameLength = 256, type = 0, size = 0x10000;
        std::string bytes(size, '\0');
        if (RegEnumValueW(key, at, name, &nameLength, nullptr, &type,
                          reinterpret_cast<BYTE*>(bytes.data()), &size) != ERROR_SUCCESS) {
            break;
        }
        bytes.resize(size);
        found_.values[name] = {name, type, std::move(bytes)};
    }
    RegCloseKey(key);
    return &found_;
}

void RealWindows::SetRegistry(WideView path, WideView name, DWORD type, std::string bytes) {
    HKEY key = nullptr;
    const LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, WideText(path).c_str(), 0, nullptr, 0,
                                           KEY_ALL_ACCESS, nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS) throw std::runtime_error("no such key can be made");
    RegSetValueExW(key, WideText(name).c_str(), 0, type,
                   reinterpret_cast<const BYTE*>(bytes.data()), static_cast<DWORD>(bytes.size()));
    RegCloseKey(key);
}

std::optional<WideText> RealWindows::RegistryText(WideView path, WideView name) const {
    WideChar text[4096] = {};
    DWORD bytes = sizeof text - sizeof(WideChar);
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, WideText(path).c_str(),
                                        WideText(name).c_str(), RRF_RT_ANY, nullptr, text, &bytes);
    if (status != ERROR_SUCCESS) return std::nullopt;
    return WideText(text);
}

void RealWindows::RemoveRegistry(WideView path) {
    RegDeleteTreeW(HKEY_CURRENT_USER, WideText(path).c_str());
    RegDeleteKeyW(HKEY_CURRENT_USER, WideText(path).c_str());
}

bool RealWindows::HasRegistry(WideView path) const {
    HKEY key = nullptr;
    const WideText text(path);
    if (RegOpenKeyExW(HKEY_CURRENT_USER, text.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) {
        return false;
    }
    RegCloseKey(key);
    return true;
}

// --- Files ---

void RealWindows::Hold(WideView windowsPath) {
    const WideText path(windowsPath);
    held_[path] = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
}

void RealWindows::Release(WideView windowsPath) {
    const auto file = held_.find(WideText(windowsPath));
    if (file == held_.end()) return;
    CloseHandle(file->second);
    held_.erase(file);
}

WideText RealWindows::Desktop() const {
    WideChar path[MAX_PATH] = {};
    SHGetSpecialFolderPathW(nullptr, path, CSIDL_DESKTOPDIRECTORY, TRUE);
    return path;
}

std::vector<std::string> RealWindows::OpenHandles() const {
    std::vector<std::string> lines;
    for (const auto& [key, path] : keys) lines.push_back("key " + Utf8(path));
    for (const auto& [file, path] : files) lines.push_back("file " + Utf8(path));
    for (std::size_t i = 0; i < threads.size(); ++i) lines.push_back("thread");
    for (const auto& [block, bytes] : memory) {
        lines.push_back("memory of " + std::to_string(bytes) + " bytes");
    }
    if (clipboardOpen) lines.push_back("clipboard");
    return lines;
}

}  // namespace simhost
