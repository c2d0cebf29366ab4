// Setting up a workplace on a folder that plays drive C.
#include "simhost/app/workplace.h"

#include <atomic>
#include <stdexcept>

#include "simhost/app/the_plugin.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/system/windows.h"
#include "simhost/trail/macro.h"

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace simhost {

namespace {

#ifdef _WIN32
int ProcessId() {
    return _getpid();
}
// Paths are what they say: the folders of drive C come to lie below the drive's folder.
WideText Placed(const WideText& path, const fs::path& drive) {
    if (drive.relative_path().empty()) return path;
    return (drive / path.substr(std::size(L"C:\\") - 1)).make_preferred().wstring();
}
#else
int ProcessId() {
    return int(getpid());
}
WideText Placed(const WideText& path, const fs::path&) {
    return path;
}
#endif

void MarkFirstRunSeen() {
    TheWindows().SetRegistry(the_plugin::kMarkerKey, the_plugin::kMarker, the_plugin::kNoticeSeen);
}

fs::path TemporaryFolder() {
    static std::atomic<int> number{0};
    const std::string name =
        "vorlatix-" + std::to_string(ProcessId()) + "-" + std::to_string(++number);
    const fs::path folder = fs::temp_directory_path() / name;
    fs::remove_all(folder);
    fs::create_directories(folder);
    return folder;
}

// Copies what is not there yet.
void CopyFolder(const fs::path& from, const fs::path& to) {
    if (!fs::is_directory(from)) throw std::runtime_error("no folder " + from.string());
    fs::create_directories(to);
    fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::skip_existing);
}

}  // namespace

Workplace::Workplace(WorkplaceOptions options) : options_(std::move(options)) {
    RestartHost();
    RestartSpreadsheets();
    RestartWindows();
    temporary_ = options_.drive.empty();
    options_.drive = temporary_ ? TemporaryFolder() : fs::absolute(options_.drive);
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
        const fs::path from = options_.installed / folder;
        if (!fs::is_directory(from)) continue;
        CopyFolder(from, Real(options_.moduleFolder) / folder);
        CopyFolder(from, Real(options_.textFolder) / folder);
    }
    const fs::path work = Real(options_.workingDirectory);
    fs::create_directories(work);
    if (!options_.project.empty()) CopyFolder(options_.project, work);
    if (!options_.newUser) MarkFirstRunSeen();
    host.textFolder = options_.textFolder;
    host.session.workingDirectory = options_.workingDirectory;
}

Workplace::~Workplace() {
    plugin_.reset();
    std::error_code ignored;
    if (temporary_) fs::remove_all(options_.drive, ignored);
}

fs::path Workplace::Real(const WideText& windowsPath) const {
    return TheHost().disk.Real(windowsPath);
}

int Workplace::StartPlugin() {
    plugin_ = std::make_unique<Plugin>(
        options_.module, options_.moduleFolder + WIDE("\\") + WideText(the_plugin::kModule));
    return plugin_->Initialize();
}

void Workplace::StopPlugin() {
    if (!plugin_) return;
    plugin_->Terminate();
    plugin_.reset();
}

}  // namespace simhost
