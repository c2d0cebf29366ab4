// A designer's workplace on a folder that plays drive C: the plug-in as it is installed, and a
// project to work on.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hostapi/wide.h"
#include "simhost/app/plugin.h"
#include "simhost/app/temporary_drive.h"
#include "simhost/app/the_plugin.h"

namespace simhost {

struct WorkplaceOptions {
    std::filesystem::path drive;      // the folder that plays C:\; empty: a temporary one
    std::filesystem::path installed;  // folder with VXconfig/, text/ …; empty: none
    std::filesystem::path module;     // the module's file
    std::filesystem::path project;    // a folder of model files to copy; empty: none
    // Where the plug-in lies, and where the host says its text folder is. Installed by hand they
    // are one folder.
    WideText moduleFolder = WideText(the_plugin::kFolder);
    WideText textFolder = WideText(the_plugin::kFolder);
    WideText workingDirectory = WIDE("C:\\Work");
    unsigned codePage = 936;  // of the simulated Windows; also 1252 and 65001
    bool newUser = false;     // true: the first-run notice has not been shown yet
    // Where a line goes about each entry of a folder that cannot be copied; without it, to the
    // process's standard error.
    std::function<void(const std::string& line)> tell;
};

class Workplace {
public:
    // Starts the host anew, copies the installed files and the project onto the drive. Files that
    // are there already stay, so that a drive can be used again. What cannot be copied (a link that
    // leads nowhere, a pipe) is told and passed over.
    // Throws std::runtime_error.
    explicit Workplace(WorkplaceOptions options);
    ~Workplace();  // a temporary drive goes with it
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    // Loads the plug-in and starts it; the status of user_initialize. One that is loaded stays as
    // it is: 0.
    int StartPlugin();
    void StopPlugin();
    Plugin* plugin() { return plugin_.get(); }

    const std::filesystem::path& drive() const { return options_.drive; }
    bool isTemporary() const { return temporary_ != nullptr; }
    // What was made or changed on the drive since the workplace was set up, sorted.
    std::vector<std::filesystem::path> WrittenFiles() const;

    struct Mark {
        std::filesystem::file_time_type time;
        std::uintmax_t size = 0;
        bool operator==(const Mark&) const = default;
    };
    const WorkplaceOptions& options() const { return options_; }
    std::filesystem::path Real(const WideText& windowsPath) const;

private:
    void WriteProjectSettings(const std::filesystem::path& project) const;

    WorkplaceOptions options_;
    std::unique_ptr<TemporaryDrive> temporary_;
    std::map<std::filesystem::path, Mark> atFirst_;
    std::unique_ptr<Plugin> plugin_;
};

}  // namespace simhost
