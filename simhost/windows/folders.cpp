// Where the folders of the user lie.
#ifndef _WIN32

#include <algorithm>
#include <filesystem>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/windows/windows.h"

using namespace simhost;

WideText SimulatedWindows::Desktop() const {
    return WIDE("C:\\Users\\Designer\\Desktop");
}

BOOL SHGetSpecialFolderPathW(HWND owner, WideChar* path, int folder, BOOL create) {
    Operation& op = Op<"SHGetSpecialFolderPathW">;
    return op.CallOr([](int) { return BOOL(FALSE); },
                     [&] {
                         Need(path, "the place for the path");
                         if (folder != CSIDL_DESKTOPDIRECTORY) {
                             Complain(FALSE, "a folder that is not known here");
                         }
                         // Every user has a desktop, asked for or not.
                         const WideText desktop = TheWindows().Desktop();
                         std::error_code ignored;
                         std::filesystem::create_directories(TheHost().disk.Real(desktop), ignored);
                         CopyCut(desktop, path, MAX_PATH);
                         return BOOL(TRUE);
                     },
                     "owner", static_cast<const void*>(owner), "path", Out(path), "folder", folder,
                     "create", create);
}

#endif
