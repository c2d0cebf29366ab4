// The system's dialog for the name of a file to be written.
#include "frame/services/save_dialog.h"

#include <algorithm>

#include "hostapi/windows.h"

std::optional<WideText> AskSavePath(WideView filter, const WideChar* defaultExtension,
                                    const WideText& folder) {
    WideText pairs(filter);
    std::replace(pairs.begin(), pairs.end(), WideChar{'|'}, WideChar{});
    WideChar path[MAX_PATH] = {};
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof dialog;
    // The host's dialog could be closed and its rows lost while nobody owns this one.
    dialog.hwndOwner = GetActiveWindow();
    dialog.lpstrFilter = pairs.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = path;
    dialog.nMaxFile = MAX_PATH;
    dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    dialog.Flags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY;
    dialog.lpstrDefExt = defaultExtension;
    if (!GetSaveFileNameW(&dialog) || !path[0]) return std::nullopt;
    return path;
}
