// Where the folders of the user and of Windows itself lie.
#include <algorithm>
#include <cstdint>
#include <filesystem>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/system/clock.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

WideText SimulatedWindows::Desktop() const {
    return WIDE("C:\\Users\\Designer\\Desktop");
}

BOOL SHGetSpecialFolderPathW(HWND owner, WideChar* path, int folder, BOOL create) {
    Operation& op = Op<"SHGetSpecialFolderPathW">;
    return op.CallOr(
        [](int) { return BOOL(FALSE); },
        [&] {
            Need(path, "the place for the path");
            if (folder != CSIDL_DESKTOPDIRECTORY) {
                Complain(FALSE, "a folder that is not known here");
            }
            // Every user has a desktop, asked for or not.
            const WideText desktop = Simulated().Desktop();
            std::error_code ignored;
            std::filesystem::create_directories(Simulated().host().disk.Real(desktop), ignored);
            CopyCut(desktop, path, MAX_PATH);
            return BOOL(TRUE);
        },
        "owner", static_cast<const void*>(owner), "path", Out(path), "folder", folder, "create",
        create);
}

void GetSystemTimeAsFileTime(FILETIME* time) {
    Operation& op = Op<"GetSystemTimeAsFileTime">;
    std::uint64_t steps = 0;
    op.CallOr([](int) { return 0; },
              [&] {
                  Need(time, "the place for the time");
                  steps = TellTime();
                  *time = {DWORD(steps & 0xffffffff), DWORD(steps >> 32)};
                  return 0;
              },
              "time", Out(&steps));
}

UINT GetSystemDirectoryW(WideChar* path, UINT size) {
    Operation& op = Op<"GetSystemDirectoryW">;
    constexpr WideView kFolder = WIDE("C:\\Windows\\system32");
    return op.CallOr([](int) { return UINT{0}; },
                     [&] {
                         if (size <= kFolder.size()) return UINT(kFolder.size() + 1);
                         Need(path, "the place for the path");
                         CopyCut(kFolder, path, size);
                         return UINT(kFolder.size());
                     },
                     "path", Out(path), "size", size);
}
