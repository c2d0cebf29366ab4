// Files by handles: real files below the folder that plays drive C, with Windows' rules for who
// may open what while others have it open.
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include "simhost/core/file_names.h"
#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

namespace simhost {

namespace {

constexpr DWORD kCreateNew = 1, kOpenAlways = 4, kTruncate = 5;
constexpr DWORD kReadData = 1, kWriteData = 2, kAppendData = 4;                          // rights
constexpr DWORD kPathNotFound = 3, kFileExists = 80, kInvalidName = 123, kNotSaid = 31;  // errors
constexpr DWORD kShareRead = FILE_SHARE_READ, kShareWrite = 2;

// One name for a file, in whatever letters it is asked for.
std::string PlaceOf(const std::filesystem::path& real) {
    return Lower(real.string());
}

// Whether each kind of access that one side wants is shared by the other.
bool Shares(DWORD access, DWORD share) {
    return (!(access & GENERIC_READ) || (share & kShareRead)) &&
           (!(access & GENERIC_WRITE) || (share & kShareWrite));
}

// The flags of open(2); -1 for a creation that Windows does not know.
int OpenFlags(DWORD access, DWORD creation) {
    const bool reads = access & GENERIC_READ, writes = access & GENERIC_WRITE;
    const int flags = O_CLOEXEC | (!writes ? O_RDONLY : reads ? O_RDWR : O_WRONLY);
    switch (creation) {
        case kCreateNew: return flags | O_CREAT | O_EXCL;
        case CREATE_ALWAYS: return flags | O_CREAT | O_TRUNC;
        case OPEN_EXISTING: return flags;
        case kOpenAlways: return flags | O_CREAT;
        case kTruncate: return writes ? flags | O_TRUNC : -1;
        default: return -1;
    }
}

}  // namespace

bool IsReadOnly(const std::filesystem::path& real) {
    struct stat now = {};
    return stat(real.c_str(), &now) == 0 && !(now.st_mode & S_IWUSR);
}

std::filesystem::path RealFile(WideView windowsPath) {
    return IsFilePath(windowsPath) ? Simulated().host().disk.Real(windowsPath)
                                   : std::filesystem::path();
}

SimulatedWindows::~SimulatedWindows() {
    WaitForThreads();
    for (const OpenFile& file : openFiles_) close(file.descriptor);
}

void SimulatedWindows::Hold(WideView windowsPath) {
    held_.insert(PlaceOf(host().disk.Real(windowsPath)));
}

void SimulatedWindows::Release(WideView windowsPath) {
    held_.erase(PlaceOf(host().disk.Real(windowsPath)));
}

bool SimulatedWindows::IsHeld(const std::filesystem::path& real) const {
    return held_.count(PlaceOf(real)) > 0;
}

bool SimulatedWindows::MayOpen(const std::filesystem::path& real, bool toWrite) const {
    return !IsHeld(real) && !(toWrite && IsReadOnly(real));
}

bool SimulatedWindows::CanShare(const std::filesystem::path& real, DWORD access,
                                DWORD share) const {
    const std::string place = PlaceOf(real);
    return std::all_of(openFiles_.begin(), openFiles_.end(), [&](const OpenFile& open) {
        return open.place != place || (Shares(access, open.share) && Shares(open.access, share));
    });
}

HANDLE SimulatedWindows::Open(OpenFile file) {
    return files_.Add(&openFiles_.emplace_back(std::move(file)));
}

OpenFile* SimulatedWindows::Require(HANDLE file) const {
    if (file == nullptr || file == INVALID_HANDLE_VALUE) return nullptr;
    OpenFile* open = files_.Find(file);
    if (!open) Complain(0, "the handle names no open file");
    return open;
}

bool SimulatedWindows::Close(HANDLE file) {
    const OpenFile* open = files_.Find(file);
    if (!open) return false;
    files_.Drop(file);
    const bool closed = close(open->descriptor) == 0;
    openFiles_.remove_if([open](const OpenFile& each) { return &each == open; });
    return closed;
}

namespace {

HANDLE Failed(DWORD error) {
    Simulated().lastError = error;
    return INVALID_HANDLE_VALUE;
}

DWORD ErrorOf(int systemError, const std::filesystem::path& real) {
    std::error_code ignored;
    switch (systemError) {
        case ENOENT:
            return std::filesystem::exists(real.parent_path(), ignored) ? ERROR_FILE_NOT_FOUND
                                                                        : kPathNotFound;
        case ENOTDIR: return kPathNotFound;
        case EEXIST: return kFileExists;
        default: return ERROR_ACCESS_DENIED;
    }
}

// Rights to single parts of a file's data count as the general ones.
DWORD GeneralAccess(DWORD access) {
    if (access & kReadData) access |= GENERIC_READ;
    if (access & (kWriteData | kAppendData)) access |= GENERIC_WRITE;
    return access;
}

HANDLE OpenAt(const WideChar* path, DWORD asked, DWORD share, DWORD creation) {
    const DWORD access = GeneralAccess(asked);
    const std::filesystem::path real = RealFile(path);
    const int flags = OpenFlags(access, creation);
    SimulatedWindows& windows = Simulated();
    if (real.empty() || flags < 0) return Failed(kInvalidName);
    if (windows.IsHeld(real)) return Failed(ERROR_SHARING_VIOLATION);
    // What would be emptied counts as written, whatever the handle may do later.
    const DWORD uses = access | (flags & O_TRUNC ? GENERIC_WRITE : 0);
    if (!windows.CanShare(real, uses, share)) return Failed(ERROR_SHARING_VIOLATION);
    if ((uses & GENERIC_WRITE) && IsReadOnly(real)) return Failed(ERROR_ACCESS_DENIED);
    std::error_code error;
    if (std::filesystem::is_directory(real, error)) return Failed(ERROR_ACCESS_DENIED);
    const int descriptor = open(real.c_str(), flags, 0666);
    if (descriptor < 0) return Failed(ErrorOf(errno, real));
    return windows.Open({path, PlaceOf(real), descriptor, access, share});
}

BOOL DeleteAt(const WideChar* path) {
    const std::filesystem::path real = RealFile(path);
    SimulatedWindows& windows = Simulated();
    const auto failed = [&windows](DWORD error) {
        windows.lastError = error;
        return BOOL{FALSE};
    };
    if (real.empty()) return failed(kInvalidName);
    // A file that is open, even by ourselves, was never shared for deletion.
    if (windows.IsHeld(real) || !windows.CanShare(real, GENERIC_READ | GENERIC_WRITE, 0)) {
        return failed(ERROR_SHARING_VIOLATION);
    }
    std::error_code error;
    if (IsReadOnly(real) || std::filesystem::is_directory(real, error)) {
        return failed(ERROR_ACCESS_DENIED);
    }
    if (unlink(real.c_str()) != 0) return failed(ErrorOf(errno, real));
    return TRUE;
}

// Through a file beside it, so that a copy is whole or not there.
BOOL CopyAt(const WideChar* from, const WideChar* to, BOOL failIfExists) {
    const std::filesystem::path source = RealFile(from), target = RealFile(to);
    SimulatedWindows& windows = Simulated();
    const auto failed = [&windows](DWORD error) {
        windows.lastError = error;
        return BOOL{FALSE};
    };
    if (source.empty() || target.empty()) return failed(kInvalidName);
    if (windows.IsHeld(source) ||
        !windows.CanShare(source, GENERIC_READ, kShareRead | kShareWrite)) {
        return failed(ERROR_SHARING_VIOLATION);
    }
    std::error_code error;
    if (std::filesystem::is_directory(source, error)) return failed(ERROR_ACCESS_DENIED);
    bool found = false;
    const std::string bytes = simhost::ReadFile(source, &found);
    if (!found) return failed(ErrorOf(ENOENT, source));
    if (std::filesystem::exists(target, error)) {
        if (failIfExists) return failed(kFileExists);
        // Nor can a file be copied onto itself.
        if (PlaceOf(source) == PlaceOf(target) || windows.IsHeld(target) ||
            !windows.CanShare(target, GENERIC_WRITE, 0)) {
            return failed(ERROR_SHARING_VIOLATION);
        }
        if (IsReadOnly(target)) return failed(ERROR_ACCESS_DENIED);
    }
    if (!std::filesystem::exists(target.parent_path(), error)) return failed(kPathNotFound);
    return simhost::WriteFile(target, bytes) ? BOOL{TRUE} : failed(ERROR_ACCESS_DENIED);
}

BOOL ReadAll(OpenFile& file, void* data, DWORD size, DWORD* done) {
    if (!(file.access & GENERIC_READ)) return FALSE;
    while (*done < size) {
        const ssize_t part = read(file.descriptor, static_cast<char*>(data) + *done, size - *done);
        if (part < 0) return FALSE;
        if (part == 0) break;
        *done += static_cast<DWORD>(part);
    }
    return TRUE;
}

BOOL WriteAll(OpenFile& file, const void* data, DWORD size, DWORD* done) {
    if (!(file.access & GENERIC_WRITE)) return FALSE;
    while (*done < size) {
        const ssize_t part =
            write(file.descriptor, static_cast<const char*>(data) + *done, size - *done);
        if (part < 0) return FALSE;
        *done += static_cast<DWORD>(part);
    }
    return TRUE;
}

}  // namespace

}  // namespace simhost

HANDLE CreateFileW(const WideChar* path, DWORD access, DWORD share, void* security, DWORD creation,
                   DWORD attributes, HANDLE pattern) {
    Operation& op = Op<"CreateFileW">;
    return op.CallOr([](int status) { return Failed(status > 0 ? DWORD(status) : kNotSaid); },
                     [&] {
                         Need(path, "the path");
                         return OpenAt(path, access, share, creation);
                     },
                     "path", path, "access", access, "share", share, "security", security,
                     "creation", creation, "attributes", attributes, "pattern", pattern);
}

BOOL GetFileSizeEx(HANDLE file, LARGE_INTEGER* size) {
    Operation& op = Op<"GetFileSizeEx">;
    std::int64_t bytes = 0;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&]() -> BOOL {
                         Need(size, "the place for the size");
                         const OpenFile* open = Simulated().Require(file);
                         struct stat now = {};
                         if (!open || fstat(open->descriptor, &now) != 0) return FALSE;
                         size->QuadPart = bytes = now.st_size;
                         return TRUE;
                     },
                     "size", Out(&bytes));
}

BOOL ReadFile(HANDLE file, void* data, DWORD size, DWORD* read, void* overlapped) {
    Operation& op = Op<"ReadFile">;
    DWORD done = 0;
    if (read) *read = 0;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&]() -> BOOL {
                         Need(read, "the place for the number of bytes");
                         if (overlapped) Complain(0, "no file is open for overlapped use");
                         OpenFile* open = Simulated().Require(file);
                         if (!open) return FALSE;
                         if (size > 0) Need(data, "the buffer");
                         const BOOL ok = ReadAll(*open, data, size, &done);
                         *read = done;
                         return ok;
                     },
                     "size", size, "read", Out(&done));
}

BOOL WriteFile(HANDLE file, const void* data, DWORD size, DWORD* written, void* overlapped) {
    Operation& op = Op<"WriteFile">;
    DWORD done = 0;
    if (written) *written = 0;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&]() -> BOOL {
                         Need(written, "the place for the number of bytes");
                         if (overlapped) Complain(0, "no file is open for overlapped use");
                         OpenFile* open = Simulated().Require(file);
                         if (!open) return FALSE;
                         if (size > 0) Need(data, "the data");
                         const BOOL ok = WriteAll(*open, data, size, &done);
                         *written = done;
                         return ok;
                     },
                     "size", size, "written", Out(&done));
}

DWORD GetLastError() {
    Operation& op = Op<"GetLastError">;
    return op.CallOr([](int) { return DWORD{ERROR_SUCCESS}; },
                     [&] { return Simulated().lastError; });
}

BOOL PathFileExistsW(const WideChar* path) {
    Operation& op = Op<"PathFileExistsW">;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&]() -> BOOL {
                         Need(path, "the path");
                         std::error_code error;
                         return std::filesystem::exists(RealFile(path), error);
                     },
                     "path", path);
}

BOOL DeleteFileW(const WideChar* path) {
    Operation& op = Op<"DeleteFileW">;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&] {
                         Need(path, "the path");
                         return DeleteAt(path);
                     },
                     "path", path);
}

BOOL CopyFileW(const WideChar* from, const WideChar* to, BOOL failIfExists) {
    Operation& op = Op<"CopyFileW">;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&] {
                         Need(from, "the path");
                         Need(to, "the new path");
                         return CopyAt(from, to, failIfExists);
                     },
                     "from", from, "to", to, "failIfExists", failIfExists);
}

BOOL CloseHandle(HANDLE handle) {
    Operation& op = Op<"CloseHandle">;
    return op.CallOr(
        [&](int) {
            if (!Simulated().CloseThread(handle)) Simulated().Close(handle);
            return BOOL{FALSE};
        },
        [&]() -> BOOL {
            // The value of "no file" means the process itself, and closing that does nothing.
            if (handle == INVALID_HANDLE_VALUE) return TRUE;
            if (Simulated().CloseThread(handle)) return TRUE;
            return Simulated().Require(handle) && Simulated().Close(handle);
        });
}
