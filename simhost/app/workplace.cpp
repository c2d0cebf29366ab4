// Setting up a workplace on a folder that plays drive C.
#include "simhost/app/workplace.h"

#include <algorithm>
#include <iostream>
#include <map>
#include <stdexcept>
#include <vector>

#include "hostapi/windows.h"
#include "simhost/app/config_file.h"
#include "simhost/app/the_plugin.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/system/windows.h"
#include "simhost/trail/macro.h"
#include "simhost/ui/replace_dialog.h"

namespace fs = std::filesystem;

namespace simhost {

namespace {

#ifdef _WIN32
// Paths are what they say: the folders of drive C come to lie below the drive's folder.
WideText Placed(const WideText& path, const fs::path& drive) {
    if (drive.relative_path().empty()) return path;
    return (drive / path.substr(std::size(L"C:\\") - 1)).make_preferred().wstring();
}
#else
WideText Placed(const WideText& path, const fs::path&) {
    return path;
}
#endif

void MarkFirstRunSeen() {
    TheWindows().SetRegistry(the_plugin::kMarkerKey, the_plugin::kMarker, the_plugin::kNoticeSeen);
}

// What tells that a file was written again.
Workplace::Mark MarkOf(const fs::directory_entry& entry) {
    std::error_code ignored;
    return {entry.last_write_time(ignored), entry.file_size(ignored)};
}

std::map<fs::path, Workplace::Mark> MarksBelow(const fs::path& folder) {
    std::map<fs::path, Workplace::Mark> marks;
    std::error_code error;
    for (const auto& entry : fs::recursive_directory_iterator(folder, error)) {
        if (entry.is_regular_file(error)) marks[entry.path()] = MarkOf(entry);
    }
    return marks;
}

void TellOnStandardError(const std::string& line) {
    std::cerr << "simhost: " << line << '\n';
}

// Copies what is not there yet, entry by entry, so that a bad one does not stop the others.
class Copier {
public:
    explicit Copier(const std::function<void(const std::string&)>& tell) : tell_(tell) {}

    void Folder(const fs::path& from, const fs::path& to) {
        std::error_code error;
        const fs::path place = fs::canonical(from, error);
        // A link may lead back to a folder around it.
        if (std::find(around_.begin(), around_.end(), place) != around_.end()) {
            return PassOver(from, "it leads back to a folder around it");
        }
        around_.push_back(place);
        if (!error) fs::create_directories(to, error);
        fs::directory_iterator entry;
        if (!error) entry = fs::directory_iterator(from, error);
        for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
            Entry(entry->path(), to / entry->path().filename());
        }
        if (error) PassOver(from, error.message());
        around_.pop_back();
    }

private:
    void Entry(const fs::path& from, const fs::path& to) {
        std::error_code error;
        const fs::file_status status = fs::status(from, error);
        if (fs::is_directory(status)) return Folder(from, to);
        if (!fs::exists(status)) return PassOver(from, "it is a link that leads nowhere");
        if (!fs::is_regular_file(status)) return PassOver(from, "it is no file");
        fs::copy_file(from, to, fs::copy_options::skip_existing, error);
        if (error) PassOver(from, error.message());
    }

    void PassOver(const fs::path& path, const std::string& why) {
        (tell_ ? tell_ : TellOnStandardError)("not copied: " + path.string() + ": " + why);
    }

    const std::function<void(const std::string&)>& tell_;
    std::vector<fs::path> around_;
};

void CopyFolder(const fs::path& from, const fs::path& to, const WorkplaceOptions& options) {
    if (!fs::is_directory(from)) throw std::runtime_error("there is no folder " + from.string());
    Copier(options.tell).Folder(from, to);
}

}  // namespace

Workplace::Workplace(WorkplaceOptions options) : options_(std::move(options)) {
    RestartHost();
    RestartSpreadsheets();
    RestartWindows();
    SetSystemCodePage(options_.codePage);
    if (options_.drive.empty()) temporary_ = std::make_unique<TemporaryDrive>();
    options_.drive = temporary_ ? temporary_->path() : fs::absolute(options_.drive);
    fs::create_directories(options_.drive);
    for (WideText* folder :
         {&options_.moduleFolder, &options_.textFolder, &options_.workingDirectory}) {
        *folder = Placed(*folder, options_.drive);
    }
    Host& host = TheHost();
    host.arrays.Forgive(the_plugin::kHeldOnPurpose, the_plugin::kNullFreedOnPurpose);
    host.commands.runMacro = RunMacro;
    host.disk.SetRoot(options_.drive);
    for (const char* folder : the_plugin::kInstalledFolders) {
        if (options_.installed.empty()) break;
        const fs::path from = options_.installed / folder;
        if (!fs::is_directory(from)) continue;
        CopyFolder(from, Real(options_.moduleFolder) / folder, options_);
        CopyFolder(from, Real(options_.textFolder) / folder, options_);
    }
    const fs::path work = Real(options_.workingDirectory);
    fs::create_directories(work);
    if (!options_.project.empty()) CopyFolder(options_.project, work, options_);
    if (!options_.newUser) MarkFirstRunSeen();
    host.textFolder = options_.textFolder;
    host.session.workingDirectory = options_.workingDirectory;
    host.configOptions =
        ReadConfigOptions(ReadFile(work / "config.pro"), options_.workingDirectory);
    WriteProjectSettings(work);
    atFirst_ = MarksBelow(options_.drive);
}

// Settings of the project, where the designer has not chosen otherwise yet.
void Workplace::WriteProjectSettings(const fs::path& project) const {
    if (options_.installed.empty()) return;
    const auto settings =
        ReadConfigOptions(ReadFile(project / "settings.pro"), options_.workingDirectory);
    for (const auto& [section, values] : settings) {
        const WideText key = section.ends_with(WIDE("path")) ? WIDE("path") : WIDE("value");
        for (const WideText& folder : {options_.moduleFolder, options_.textFolder}) {
            const WideText file = folder + WIDE("\\") + WideText(the_plugin::kSettingsFile);
            WideChar present[2] = {};
            GetPrivateProfileStringW(section.c_str(), key.c_str(), WIDE(""), present, 2,
                                     file.c_str());
            if (present[0]) continue;
            WritePrivateProfileStringW(section.c_str(), key.c_str(), values.back().c_str(),
                                       file.c_str());
        }
    }
}

Workplace::~Workplace() {
    plugin_.reset();
}

std::vector<fs::path> Workplace::WrittenFiles() const {
    std::vector<fs::path> files;
    for (const auto& [path, mark] : MarksBelow(options_.drive)) {
        const auto before = atFirst_.find(path);
        if (before == atFirst_.end() || before->second != mark) files.push_back(path);
    }
    return files;
}

fs::path Workplace::Real(const WideText& windowsPath) const {
    return TheHost().disk.Real(windowsPath);
}

int Workplace::StartPlugin() {
    if (plugin_) return 0;
    plugin_ = std::make_unique<Plugin>(
        options_.module, options_.moduleFolder + WIDE("\\") + WideText(the_plugin::kModule));
    return plugin_->Initialize(HostVersion());
}

void Workplace::StopPlugin() {
    if (!plugin_) return;
    plugin_->Terminate();
    plugin_.reset();
}

}  // namespace simhost
