// Files that get another path, and folders that are made: Windows' rules, which replace nothing,
// over a system that would.
#include <system_error>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

namespace {

namespace fs = std::filesystem;

constexpr DWORD kPathNotFound = 3, kAlreadyExists = 183, kInvalidName = 123, kNotSaid = 31;

BOOL Failed(DWORD error) {
    Simulated().lastError = error;
    return FALSE;
}

BOOL FailedBy(int status) {
    return Failed(status > 0 ? DWORD(status) : kNotSaid);
}

// The last part of a path in the letters in which it is asked for.
fs::path NameIn(WideView path) {
    const std::size_t slash = path.find_last_of(WIDE("\\/"));
    const std::string utf8 = Utf8(path.substr(slash == WideView::npos ? 0 : slash + 1));
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

// By another way than a rename only where source and target are not on one volume; a folder cannot
// go there.
bool Rename(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::rename(from, to, error);
    if (error != std::errc::cross_device_link) return !error;
    error.clear();
    if (fs::is_directory(from, error) || !fs::copy_file(from, to, error)) return false;
    return fs::remove(from, error);
}

// Without a drive a path lies in the folder in which the host works, which is its process's, too.
WideText Whole(WideView path) {
    const bool hasDrive = path.size() > 1 && path[1] == WideChar{':'};
    if (hasDrive || path.empty()) return WideText(path);
    const WideText& working = Simulated().host().workingDirectory;
    const bool rooted = path[0] == WideChar{'\\'} || path[0] == WideChar{'/'};
    WideText whole = rooted ? working.substr(0, 2) : working + WIDE("\\");
    whole += path;
    return whole;
}

BOOL Move(WideView from, WideView to) {
    const fs::path source = RealFile(Whole(from)), found = RealFile(Whole(to));
    if (source.empty() || found.empty()) return Failed(kInvalidName);
    std::error_code error;
    if (!fs::exists(source, error)) {
        return Failed(fs::exists(source.parent_path(), error) ? ERROR_FILE_NOT_FOUND
                                                              : kPathNotFound);
    }
    const SimulatedWindows& windows = Simulated();
    // A file that is open, even by ourselves, was never shared for this.
    if (windows.IsHeld(source) || !windows.CanShare(source, GENERIC_READ | GENERIC_WRITE, 0)) {
        return Failed(ERROR_SHARING_VIOLATION);
    }
    const fs::path target = found.parent_path() / NameIn(to);
    if (!fs::is_directory(target.parent_path(), error)) return Failed(kPathNotFound);
    if (found != source && fs::exists(found, error)) return Failed(kAlreadyExists);
    if (target == source || Rename(source, target)) return TRUE;
    return Failed(ERROR_ACCESS_DENIED);
}

BOOL MakeFolder(WideView path) {
    if (!path.empty() && (path.back() == '\\' || path.back() == '/')) path.remove_suffix(1);
    const fs::path folder = RealFile(path);
    if (folder.empty()) return Failed(kInvalidName);
    std::error_code error;
    if (fs::exists(folder, error)) return Failed(kAlreadyExists);
    if (!fs::is_directory(folder.parent_path(), error)) return Failed(kPathNotFound);
    return fs::create_directory(folder, error) ? BOOL{TRUE} : Failed(ERROR_ACCESS_DENIED);
}

}  // namespace

BOOL MoveFileW(const WideChar* from, const WideChar* to) {
    Operation& op = Op<"MoveFileW">;
    return op.CallOr(
        FailedBy,
        [&] {
            Need(from, "the path");
            Need(to, "the new path");
            return Move(from, to);
        },
        "from", from, "to", to);
}

BOOL MoveFileA(const char* from, const char* to) {
    Operation& op = Op<"MoveFileA">;
    return op.CallOr(
        FailedBy,
        [&] {
            Need(from, "the path");
            Need(to, "the new path");
            return Move(FromSystemCodePage(from), FromSystemCodePage(to));
        },
        "from", from, "to", to);
}

BOOL CreateDirectoryW(const WideChar* path, void* security) {
    Operation& op = Op<"CreateDirectoryW">;
    return op.CallOr(
        FailedBy,
        [&] {
            Need(path, "the path");
            return MakeFolder(path);
        },
        "path", path, "security", security);
}
