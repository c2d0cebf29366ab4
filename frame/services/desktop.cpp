// Asks Windows for the user's desktop.
#include "frame/services/desktop.h"

#include "hostapi/windows.h"

WideText DesktopFolder() {
    WideChar path[MAX_PATH] = {};
    if (!SHGetSpecialFolderPathW(nullptr, path, CSIDL_DESKTOPDIRECTORY, FALSE)) return {};
    return path;
}
