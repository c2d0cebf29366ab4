// A designer's workplace on a folder that plays drive C: the plug-in as it is installed, and a
// project to work on.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "hostapi/wide.h"
#include "simhost/app/plugin.h"

namespace simhost {

struct WorkplaceOptions {
    std::filesystem::path drive;      // the folder that plays C:\; empty: a temporary one
    std::filesystem::path installed;  // folder with VXconfig/, text/ and so on
    std::filesystem::path module;     // the module's file
    std::filesystem::path project;    // a folder of model files to copy; empty: none
    // Where the plug-in lies, and where the host says its text folder is. Installed by hand they
    // are one folder.
    WideText moduleFolder = WIDE("C:\\Program Files\\Vorlatix");
    WideText textFolder = WIDE("C:\\Program Files\\Vorlatix");
    WideText workingDirectory = WIDE("C:\\Work");
    bool newUser = false;  // true: the first-run notice has not been shown yet
};

class Workplace {
public:
    // Starts the host afresh, copies the installed files and the project onto the drive. Files that
    // are there already stay, so that a drive can be used again.
    // Throws std::runtime_error.
    explicit Workplace(WorkplaceOptions options);
    ~Workplace();  // removes a temporary drive
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    // Loads the plug-in and starts it; the status of user_initialize. One that is loaded stays as
    // it is: 0.
    int StartPlugin();
    void StopPlugin();
    Plugin* plugin() { return plugin_.get(); }

    const std::filesystem::path& drive() const { return options_.drive; }
    const WorkplaceOptions& options() const { return options_; }
    std::filesystem::path Real(const WideText& windowsPath) const;

private:
    WorkplaceOptions options_;
    bool temporary_ = false;
    std::unique_ptr<Plugin> plugin_;
};

}  // namespace simhost
