// Setting up a workplace on a folder that plays drive C.
#include "simhost/app/workplace.h"

#include <map>
#include <stdexcept>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/windows/windows.h"

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
    TheWindows().SetRegistry(WIDE("Software\\PTC\\Creo_Parametric"), WIDE("VxReg"), WIDE("5130"));
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

// Copies the files and folders that are not there yet. What is neither, such as the lock that an
// editor leaves as a dangling link, is no part of a project.
void CopyFolder(const fs::path& from, const fs::path& to) {
    if (!fs::is_directory(from)) throw std::runtime_error("there is no folder " + from.string());
    fs::create_directories(to);
    for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
        const fs::path target = to / entry.path().filename();
        std::error_code error;
        if (entry.is_directory(error)) {
            CopyFolder(entry.path(), target);
        } else if (entry.is_regular_file(error)) {
            fs::copy_file(entry.path(), target, fs::copy_options::skip_existing, error);
            if (error) {
                throw std::runtime_error("cannot copy " + entry.path().string() + " into " +
                                         to.string() + ": " + error.message());
            }
        }
    }
}

}  // namespace

Workplace::Workplace(WorkplaceOptions options) : options_(std::move(options)) {
    RestartHost();
    RestartSpreadsheets();
    RestartWindows();
    if (options_.drive.empty()) temporary_ = std::make_unique<TemporaryDrive>();
    options_.drive = temporary_ ? temporary_->path() : fs::absolute(options_.drive);
    fs::create_directories(options_.drive);
    for (WideText* folder :
         {&options_.moduleFolder, &options_.textFolder, &options_.workingDirectory}) {
        *folder = Placed(*folder, options_.drive);
    }
    Host& host = TheHost();
    host.disk.SetRoot(options_.drive);
    for (const char* folder : {"VXconfig", "text", "tp", "vxudf"}) {
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
    atFirst_ = MarksBelow(options_.drive);
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
    plugin_ = std::make_unique<Plugin>(options_.module,
                                       options_.moduleFolder + WIDE("\\vorlatix5.1.dll"));
    return plugin_->Initialize();
}

void Workplace::StopPlugin() {
    if (!plugin_) return;
    plugin_->Terminate();
    plugin_.reset();
}

}  // namespace simhost
