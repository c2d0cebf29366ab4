// Windows paths on real disks: `C:\Work\GEARBOX.ASM` finds gearbox.asm below the folder that plays
// drive C, and stays quick when a folder holds tens of thousands of files.
#include "simhost/core/disk.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <memory>
#include <mutex>
#include <system_error>
#include <unordered_map>
#include <vector>

#ifdef _WIN32
#include <process.h>
#else
#include <dirent.h>
#include <unistd.h>
#endif

#include "simhost/core/text.h"

namespace simhost {

namespace fs = std::filesystem;

#ifdef _WIN32

// A path that leans on the process's own folder or drive leads nowhere.
fs::path Disk::Real(WideView windowsPath) const {
    const fs::path path(windowsPath);
    return path.is_absolute() || path.root_name() == path ? path : fs::path();
}
WideText Disk::Windows(const fs::path& real) const {
    return real.wstring();
}

#else

namespace {

// The names of one folder by their folded form, so that a name in other letters, or one that is
// not there, does not cost a walk through the folder each time.
struct FolderIndex {
    fs::file_time_type changed;
    std::unordered_map<std::string, std::string> names;
};

// A folder's time stamp moves in steps of a few milliseconds: what is read so soon after a change
// may miss the next one, and is not kept.
constexpr auto kSettled = std::chrono::milliseconds(50);
constexpr std::size_t kFoldersKept = 64;

// Straight from the system: folders with tens of thousands of files come by here often.
template <class Visit>
void VisitNames(const fs::path& folder, Visit&& visit) {
    const std::unique_ptr<DIR, int (*)(DIR*)> open(opendir(folder.c_str()), closedir);
    if (!open) return;
    while (const dirent* entry = readdir(open.get())) visit(std::string_view(entry->d_name));
}

// Of names that differ in their letters' case only, the first in alphabetical order.
void Keep(std::string* kept, std::string_view name) {
    if (kept->empty() || name < *kept) *kept = name;
}

std::string ScanFor(const fs::path& folder, const std::string& folded) {
    std::string found;
    VisitNames(folder, [&](std::string_view name) {
        if (name.size() == folded.size() && Lower(name) == folded) Keep(&found, name);
    });
    return found;
}

// The name that the folder has for `name` in other letters; empty if there is none.
std::string FindIgnoringCase(const fs::path& folder, const std::string& name) {
    static std::mutex mutex;
    static std::unordered_map<std::string, FolderIndex> indexes;
    const std::lock_guard lock(mutex);

    std::error_code error;
    const fs::file_time_type changed = fs::last_write_time(folder, error);
    if (error) return {};
    auto found = indexes.find(folder.string());
    if (found == indexes.end() || found->second.changed != changed) {
        if (fs::file_time_type::clock::now() < changed + kSettled) {
            return ScanFor(folder, Lower(name));
        }
        FolderIndex fresh{changed, {}};
        VisitNames(folder,
                   [&](std::string_view entry) { Keep(&fresh.names[Lower(entry)], entry); });
        if (indexes.size() >= kFoldersKept) indexes.clear();
        found = indexes.insert_or_assign(folder.string(), std::move(fresh)).first;
    }
    const auto& names = found->second.names;
    const auto match = names.find(Lower(name));
    return match == names.end() ? std::string() : match->second;
}

// The parts after the drive, with `.` and `..` worked in. False if the path names no drive C.
bool SplitPath(WideView path, std::vector<std::string>* parts) {
    const auto isSeparator = [](WideChar c) { return c == u'\\' || c == u'/'; };
    if (path.size() < 2 || (path[0] | 0x20) != u'c' || path[1] != u':') return false;
    if (path.size() > 2 && !isSeparator(path[2])) return false;
    for (std::size_t at = 2; at < path.size();) {
        std::size_t end = at;
        while (end < path.size() && !isSeparator(path[end])) ++end;
        const std::string part = Utf8(path.substr(at, end - at));
        if (part == "..") {
            if (!parts->empty()) parts->pop_back();
        } else if (!part.empty() && part != ".") {
            parts->push_back(part);
        }
        at = end + 1;
    }
    return true;
}

bool Exists(const fs::path& path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

}  // namespace

fs::path Disk::Real(WideView windowsPath) const {
    std::vector<std::string> parts;
    if (root_.empty() || !SplitPath(windowsPath, &parts)) return {};
    fs::path asWritten = root_;
    for (const std::string& part : parts) asWritten /= part;
    if (Exists(asWritten)) return asWritten;

    fs::path real = root_;
    bool exists = true;
    for (const std::string& part : parts) {
        fs::path next = real / part;
        if (exists && !Exists(next)) {
            const std::string name = FindIgnoringCase(real, part);
            exists = !name.empty();
            if (exists) next = real / name;
        }
        real = std::move(next);
    }
    return real;
}

WideText Disk::Windows(const fs::path& real) const {
    if (root_.empty()) return {};
    fs::path root = root_.lexically_normal();
    if (!root.has_filename()) root = root.parent_path();
    const fs::path below = real.lexically_normal().lexically_relative(root);
    if (below.empty() || *below.begin() == "..") return {};
    WideText path = WIDE("C:\\");
    if (below == ".") return path;
    for (const fs::path& part : below) {
        if (part.empty()) continue;  // a separator at the end
        if (path.back() != u'\\') path += u'\\';
        path += Wide(part.string());
    }
    return path;
}

#endif

std::string ReadFile(const fs::path& path, bool* found) {
    std::error_code error;
    const auto size = fs::file_size(path, error);  // an error for a folder, too
    std::ifstream file;
    if (!error) file.open(path, std::ios::binary);
    if (found) *found = file.is_open();
    if (!file.is_open()) return {};
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    if (found) *found = !file.bad();
    return bytes;
}

namespace {

#ifdef _WIN32
std::FILE* OpenToWrite(const fs::path& path) {
    return _wfopen(path.c_str(), L"wb");
}
int ProcessId() {
    return _getpid();
}
bool MayWrite(const fs::path&) {
    return true;  // a read-only file keeps its name, too
}
#else
std::FILE* OpenToWrite(const fs::path& path) {
    return std::fopen(path.c_str(), "wb");
}
int ProcessId() {
    return int(getpid());
}
bool MayWrite(const fs::path& path) {
    return access(path.c_str(), W_OK) == 0;
}
#endif

std::optional<std::uint64_t>& BytesLeft() {
    static std::optional<std::uint64_t> left;
    return left;
}

// What was there before keeps its place, too: it goes away only once the new file is whole.
bool TakeRoom(std::size_t bytes) {
    auto& left = BytesLeft();
    if (left && *left < bytes) return false;
    if (left) *left -= bytes;
    return true;
}

std::error_code LastError() {
    return {errno, std::generic_category()};
}

std::error_code Put(const fs::path& path, std::string_view bytes) {
    if (!TakeRoom(bytes.size())) return std::make_error_code(std::errc::no_space_on_device);
    std::FILE* file = OpenToWrite(path);
    if (!file) return LastError();
    std::error_code error;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) error = LastError();
    if (std::fclose(file) != 0 && !error) error = LastError();
    return error;
}

// A name that no reader takes for a file of its own. What a killed process leaves under it is
// written over by the next one of its number.
std::error_code PutBesideAndRename(const fs::path& path, std::string_view bytes) {
    std::error_code error, ignored;
    const fs::path place = fs::is_symlink(path, ignored) ? fs::weakly_canonical(path, error) : path;
    if (error) return error;
    const fs::file_status there = fs::status(place, ignored);
    if (fs::exists(there)) {
        if (!fs::is_regular_file(there)) return Put(place, bytes);
        if (!MayWrite(place)) return LastError();
    }
    const fs::path beside = place.parent_path() / (".saving-" + std::to_string(ProcessId()));
    error = Put(beside, bytes);
    if (!error && fs::exists(there)) fs::permissions(beside, there.permissions(), ignored);
    if (!error) fs::rename(beside, place, error);
    if (error) fs::remove(beside, ignored);
    return error;
}

}  // namespace

bool WriteFile(const fs::path& path, std::string_view bytes, std::string* reason) {
    const std::error_code error = PutBesideAndRename(path, bytes);
    if (error && reason) *reason = error.message();
    return !error;
}

void LimitDisk(std::optional<std::uint64_t> bytesLeft) {
    BytesLeft() = bytesLeft;
}

}  // namespace simhost
