// The plug-in as a DLL, loaded from the place where it would be installed.
#include "simhost/system/module_file.h"

#include <stdexcept>
#include <string>

#include "hostapi/windows.h"
#include "simhost/windows_real/real.h"

namespace simhost {

namespace {

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

}  // namespace

ModuleFile::ModuleFile(const std::filesystem::path& file, const WideText& windowsPath)
    : copy_(Install(file, windowsPath)) {
    HMODULE module = LoadLibraryW((copy_.empty() ? file : copy_).c_str());
    const DWORD error = GetLastError();
    if (!module) throw std::runtime_error(ReasonOf(error));
    WatchCalls(module);
    module_ = reinterpret_cast<void*>(module);
}

ModuleFile::~ModuleFile() {
    FreeLibrary(reinterpret_cast<HMODULE>(module_));
    std::error_code ignored;
    if (!copy_.empty()) std::filesystem::remove(copy_, ignored);
}

void* ModuleFile::Symbol(const char* name) const {
    return reinterpret_cast<void*>(GetProcAddress(reinterpret_cast<HMODULE>(module_), name));
}

bool ModuleFile::Holds(const void* address) const {
    HMODULE holder = nullptr;
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                  GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              static_cast<const WideChar*>(address), &holder) &&
           holder == reinterpret_cast<HMODULE>(module_);
}

}  // namespace simhost
