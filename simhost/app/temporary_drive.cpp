// Temporary drives bear the number of their process: vorlatix-PROCESS-NUMBER.
#include "simhost/app/temporary_drive.h"

#include <algorithm>
#include <atomic>
#include <charconv>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#include <process.h>
#else
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace simhost {
namespace {

constexpr const char* kBegin = "vorlatix-";

// --- What the systems do in their own ways ------------------------------------------------------

#ifdef _WIN32
int ProcessId() {
    return _getpid();
}
bool IsDead(int process) {
    const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process));
    if (!handle) return GetLastError() == ERROR_INVALID_PARAMETER;
    const bool dead = WaitForSingleObject(handle, 0) == WAIT_OBJECT_0;
    CloseHandle(handle);
    return dead;
}
// A folder cannot be locked here; the number of its process has to do.
int Lock(const fs::path&) {
    return -1;
}
void Unlock(int) {}
bool IsAbandoned(const fs::path&) {
    return true;
}
#else
int ProcessId() {
    return int(getpid());
}
bool IsDead(int process) {
    return kill(process, 0) != 0 && errno == ESRCH;
}
int Lock(const fs::path& folder) {
    const int lock = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (lock < 0 || flock(lock, LOCK_EX | LOCK_NB) == 0) return lock;
    close(lock);
    return -1;
}
void Unlock(int lock) {
    if (lock >= 0) close(lock);
}
// Ours, and not in use by a process that only another container can see.
bool IsAbandoned(const fs::path& folder) {
    struct stat facts {};
    if (lstat(folder.c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode)) return false;
    if (facts.st_uid != geteuid()) return false;
    const int lock = Lock(folder);
    Unlock(lock);
    return lock >= 0;
}
#endif

// --- The drives ---------------------------------------------------------------------------------

// The process of a drive's folder; nothing for any other folder.
std::optional<int> ProcessOf(const std::string& name) {
    const std::string begin = kBegin;
    if (name.compare(0, begin.size(), begin) != 0) return std::nullopt;
    const char* at = name.data() + begin.size();
    const char* end = name.data() + name.size();
    int process = 0, number = 0;
    const auto first = std::from_chars(at, end, process);
    if (first.ec != std::errc() || first.ptr == end || *first.ptr != '-') return std::nullopt;
    const auto second = std::from_chars(first.ptr + 1, end, number);
    if (second.ec != std::errc() || second.ptr != end || process <= 0) return std::nullopt;
    return process;
}

void RemoveDrivesOfTheDead() {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(fs::temp_directory_path(), error)) {
        const auto process = ProcessOf(entry.path().filename().string());
        if (!process || *process == ProcessId() || !IsDead(*process)) continue;
        if (IsAbandoned(entry.path())) fs::remove_all(entry.path(), error);
    }
}

std::mutex mutex;
std::vector<fs::path> inUse;

}  // namespace

TemporaryDrive::TemporaryDrive() {
    static std::atomic<int> number{0};
    if (number++ == 0) RemoveDrivesOfTheDead();
    const std::string name =
        kBegin + std::to_string(ProcessId()) + "-" + std::to_string(number.load());
    path_ = fs::temp_directory_path() / name;
    fs::remove_all(path_);
    const std::lock_guard guard(mutex);
    fs::create_directories(path_);
    lock_ = Lock(path_);
    inUse.push_back(path_);
}

TemporaryDrive::~TemporaryDrive() {
    const std::lock_guard guard(mutex);
    std::error_code ignored;
    fs::remove_all(path_, ignored);
    Unlock(lock_);
    std::erase(inUse, path_);
}

void RemoveTemporaryDrives() {
    const std::lock_guard guard(mutex);
    std::error_code ignored;
    for (const fs::path& drive : inUse) fs::remove_all(drive, ignored);
}

}  // namespace simhost
