// The plug-in's file as the system loads it: dlopen, or LoadLibrary with a copy at its Windows
// path.
#pragma once

#include <filesystem>

#include "hostapi/wide.h"

namespace simhost {

// A module in memory. What could not be done is a std::runtime_error with the reason as its text.
class ModuleFile {
public:
    // Loads the file anew; to itself the module lies at `windowsPath`. On Windows a copy of the
    // file really is put there, and goes with the module.
    ModuleFile(const std::filesystem::path& file, const WideText& windowsPath);
    ~ModuleFile();
    ModuleFile(const ModuleFile&) = delete;
    ModuleFile& operator=(const ModuleFile&) = delete;

    void* Symbol(const char* name) const;   // null: it has none of this name
    bool Holds(const void* address) const;  // whether the address lies in the module

private:
    WideText name_;
    std::filesystem::path copy_;  // empty where none was made
    void* module_ = nullptr;
};

}  // namespace simhost
