// The working directory from one run of the host to the next, in VXconfig\vorlatix.ini: one line
// without an end, in the Chinese code page, and no sections in spite of its name.
#include "frame/last_dir.h"

#include <string>

#include "frame/services/guard.h"
#include "frame/services/paths.h"
#include "frame/services/settings.h"
#include "frame/services/text.h"
#include "hostapi/windows.h"

namespace {

constexpr UINT kDelayMilliseconds = 2000;
constexpr UINT kChineseCodePage = 936;
constexpr WideView kLastDirFile = WIDE("VXconfig\\vorlatix.ini");

// No path is longer than this in any code page; a longer file holds no directory.
constexpr DWORD kLongestFile = PRO_PATH_SIZE * 4;

// The file's bytes; empty if it cannot be read or is too long.
std::string ReadShortFile(const WideText& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    LARGE_INTEGER size = {};
    DWORD read = 0;
    std::string bytes;
    if (GetFileSizeEx(file, &size) && size.QuadPart > 0 && size.QuadPart <= kLongestFile) {
        bytes.resize(std::size_t(size.QuadPart));
        if (!ReadFile(file, bytes.data(), DWORD(bytes.size()), &read, nullptr)) read = 0;
    }
    CloseHandle(file);
    bytes.resize(read);
    return bytes;
}

// Text up to its first null byte, from the system code page.
WideText FromSystemCodePage(const std::string& bytes) {
    const std::string text = bytes.c_str();
    WideText wide(text.size(), WideChar{});
    const int length = text.empty() ? 0
                                    : MultiByteToWideChar(CP_ACP, 0, text.data(), int(text.size()),
                                                          wide.data(), int(wide.size()));
    wide.resize(std::size_t(length));
    return wide;
}

// A letter that has no place there becomes a question mark, which no folder has in its name. Put
// under a look-alike, the path might name another folder.
std::string ToChineseCodePage(const WideText& text) {
    std::string bytes(text.size() * 2, '\0');
    const int length = text.empty()
                           ? 0
                           : WideCharToMultiByte(kChineseCodePage, WC_NO_BEST_FIT_CHARS,
                                                 text.data(), int(text.size()), bytes.data(),
                                                 int(bytes.size()), nullptr, nullptr);
    bytes.resize(std::size_t(length));
    return bytes;
}

void RestoreLastDir() {
    WideText path = FileBesideModule(kConfigFile);
    if (DeleteBlanks(ReadIniValue(path, WIDE("SetLastDir"), WIDE("value"))) != WIDE("1")) return;
    path = ReplaceAll(path, WIDE("VxConfig.ini"), WIDE("vorlatix.ini"));
    WideText directory = FromSystemCodePage(ReadShortFile(path));
    // The host takes no empty and no overlong path.
    if (directory.empty() || directory.size() >= PRO_PATH_SIZE) return;
    ProDirectoryChange(directory.data());
}

// The timer that Windows may still fire; 0 for none. Kept until it is known to be killed: one that
// outlives the module would call into memory that is no longer its own.
UINT_PTR pendingTimer = 0;

void Kill(UINT_PTR timer) {
    if (KillTimer(nullptr, timer)) pendingTimer = 0;
}

// Windows hands over the timer's real id, which is not the one asked for.
void CALLBACK OnTimer(HWND, UINT, UINT_PTR timer, DWORD) {
    Kill(timer);
    RestoreLastDir();
}

}  // namespace

void RestoreLastDirLater() {
    pendingTimer = SetTimer(nullptr, 1, kDelayMilliseconds, Guarded<OnTimer>);
}

void RestoreLastDirNoMore() {
    if (pendingTimer != 0) Kill(pendingTimer);
}

void SaveLastDir() {
    ProPath directory = {};
    ProDirectoryCurrentGet(directory);
    const std::optional<WideText> path = WritableFileBesideModule(kLastDirFile);
    // Stays set: wide text of the C library is written in the Chinese code page from now on.
    _wsetlocale(LC_CTYPE, WIDE("chs"));
    if (!path) return;
    const std::string bytes = ToChineseCodePage(directory);
    const HANDLE file = CreateFileW(path->c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(file, bytes.data(), DWORD(bytes.size()), &written, nullptr);
    CloseHandle(file);
}
