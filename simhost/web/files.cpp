// The files of the drive.
#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <system_error>

#include "simhost/core/disk.h"
#include "simhost/host.h"
#include "simhost/web/answers.h"
#include "simhost/web/json_text.h"

namespace fs = std::filesystem;

namespace simhost {
namespace {

std::string NameOf(const fs::path& path) {
    const std::u8string name = path.generic_u8string();
    return {name.begin(), name.end()};
}

bool IsBelow(const fs::path& file, const fs::path& folder) {
    const auto [end, rest] = std::mismatch(folder.begin(), folder.end(), file.begin(), file.end());
    return end == folder.end() && rest != file.end();
}

}  // namespace

// By default what was written since the session began; all=1: every file.
Reply FilesNow(const Seat& seat, const Query& query) {
    const fs::path drive = seat.workplace.drive();
    std::set<fs::path> written;
    for (const fs::path& file : seat.workplace.WrittenFiles()) written.insert(file);
    std::set<fs::path> listed = written;
    std::error_code error;
    if (query.Text("all") == "1") {
        for (const auto& entry : fs::recursive_directory_iterator(drive, error)) {
            if (entry.is_regular_file(error)) listed.insert(entry.path());
        }
    }
    Json files = Json::array();
    for (const fs::path& file : listed) {
        const auto size = fs::file_size(file, error);
        files.push_back({{"path", NameOf(fs::relative(file, drive, error))},
                         {"windows", Text(TheHost().disk.Windows(file))},
                         {"size", error ? 0 : size},
                         {"written", written.contains(file)}});
    }
    const Json all = {{"drive", NameOf(drive)},
                      {"temporary", seat.workplace.isTemporary()},
                      {"files", std::move(files)}};
    return {200, Reply().type, Dump(all), {}};
}

Reply OneFile(const Seat& seat, const Query& query) {
    const std::string name = query.Text("path");
    std::error_code error;
    const fs::path drive = fs::canonical(seat.workplace.drive(), error);
    // Links are followed before it is decided: none leads out of the drive.
    const fs::path file = fs::canonical(drive / std::u8string(name.begin(), name.end()), error);
    if (error || !IsBelow(file, drive) || !fs::is_regular_file(file, error)) {
        return Refused(404, "there is no such file on the drive");
    }
    bool found = false;
    std::string bytes = ReadFile(file, &found);
    if (!found) return Refused(404, "the file cannot be read");
    return {200, "application/octet-stream", std::move(bytes), NameOf(file.filename())};
}

}  // namespace simhost
