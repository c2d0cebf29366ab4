// The plug-in's module as the host loads and unloads it.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "hostapi/wide.h"
#include "simhost/system/module_file.h"

namespace simhost {

class Plugin {
public:
    // Loads the module anew, so that its program-wide state is new. To itself it lies at
    // `windowsPath`; on Windows a copy of `file` really is put there.
    // Throws std::runtime_error with a sentence that says what is wrong.
    Plugin(const std::filesystem::path& file, const WideText& windowsPath);
    // Takes the module out of memory. Complains about timers that would still call into it.
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    // Calls user_initialize with the host's version text and returns its result.
    int Initialize(std::string version = "Creo Parametric 7.0");
    void Terminate();

private:
    void* Symbol(const char* name) const;
    void StopTimers();
    WideText name_;
    std::unique_ptr<ModuleFile> module_;
};

}  // namespace simhost
