// Telling the demonstration's own files from those of its user.
#include "simhost/app/demo_drive.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <sstream>
#include <vector>

#include "simhost/core/disk.h"

namespace fs = std::filesystem;

namespace simhost {

namespace {

// A line for each entry below the folder: a file is the same as long as size and time are.
std::set<std::string> Entries(const fs::path& folder) {
    std::set<std::string> lines;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const auto name = entry.path().lexically_relative(folder).generic_u8string();
        std::string mark = "folder";
        if (entry.is_symlink()) {
            mark = "link";
        } else if (entry.is_regular_file()) {
            mark = fmt::format("{} {}", entry.file_size(),
                               entry.last_write_time().time_since_epoch().count());
        }
        lines.insert(mark + ' ' + std::string(name.begin(), name.end()));
    }
    return lines;
}

bool IsThere(const fs::path& path) {
    return fs::exists(fs::symlink_status(path));
}

}  // namespace

DemoDrive::DemoDrive(const fs::path& out)
    : folder_(out / "drive_c"), list_(out / "drive_c.files") {}

bool DemoDrive::IsAsItWasLeft() const {
    if (!fs::is_directory(fs::symlink_status(folder_))) return false;
    std::set<std::string> left;
    std::istringstream list(ReadFile(list_));
    for (std::string line; std::getline(list, line);) left.insert(line);
    const std::set<std::string> now = Entries(folder_);
    return std::includes(left.begin(), left.end(), now.begin(), now.end());
}

std::string DemoDrive::MakeRoom() const {
    if (!IsThere(folder_)) return {};
    if (IsAsItWasLeft()) {
        fs::remove_all(folder_);
        fs::remove(list_);
        return {};
    }
    fs::path kept;
    for (int number = 1; kept.empty() || IsThere(kept); ++number) {
        kept = folder_;
        kept += fmt::format(".kept-{}", number);
    }
    fs::rename(folder_, kept);
    return fmt::format("{} holds more than a demonstration left there; all of it is now in {}",
                       folder_.string(), kept.string());
}

void DemoDrive::NoteFiles() const {
    std::string list;
    for (const std::string& line : Entries(folder_)) list += line + '\n';
    WriteFile(list_, list);
}

}  // namespace simhost
