// What commands ask of the shell of Windows.
#include "frame/services/shell.h"

#include <algorithm>
#include <string>

#include "frame/services/paths.h"
#include "frame/services/text.h"
#include "hostapi/windows.h"

namespace {

// The one place of the address; a reserved example until there is a real one.
constexpr const char* kHomePage = "https://vorlatix.example";

// Of a program without its folder Windows would take one of that name in the working folder first,
// which other people may write to.
std::string SystemFolder() {
    WideChar folder[MAX_PATH] = {};
    const UINT length = GetSystemDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) return {};
    char narrow[MAX_PATH * 4] = {};
    const int bytes = WideCharToMultiByte(CP_ACP, 0, folder, int(length), narrow, sizeof narrow,
                                          nullptr, nullptr);
    return std::string(narrow, std::size_t(bytes));
}

// What the system's file dialogs are told; the twins differ in where they begin.
struct FileQuestion {
    FileQuestion(WideView filter, const WideChar* defaultExtension) : pairs(filter) {
        std::replace(pairs.begin(), pairs.end(), WideChar{'|'}, WideChar{});
        // The end of the list is an empty label, after a last pattern that may be empty too.
        pairs.append(2, WideChar{});
        dialog.lStructSize = sizeof dialog;
        // The host's dialog could be closed and its rows lost while nobody owns this one.
        dialog.hwndOwner = GetActiveWindow();
        dialog.lpstrFilter = pairs.c_str();
        dialog.nFilterIndex = 1;
        dialog.lpstrFile = path;
        dialog.nMaxFile = MAX_PATH;
        dialog.Flags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY;
        dialog.lpstrDefExt = defaultExtension;
    }
    FileQuestion(const FileQuestion&) = delete;
    FileQuestion& operator=(const FileQuestion&) = delete;

    template <class Show>
    std::optional<WideText> Ask(Show show) {
        if (!show(&dialog) || !path[0]) return std::nullopt;
        return path;
    }

    WideText pairs;
    WideChar path[MAX_PATH] = {};
    OPENFILENAMEW dialog = {};
};

}  // namespace

WideText DesktopFolder() {
    WideChar path[MAX_PATH] = {};
    if (!SHGetSpecialFolderPathW(nullptr, path, CSIDL_DESKTOPDIRECTORY, FALSE)) return {};
    return path;
}

std::optional<WideText> AskSavePath(WideView filter, const WideChar* defaultExtension,
                                    const WideText& folder) {
    FileQuestion question(filter, defaultExtension);
    question.dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
    return question.Ask(GetSaveFileNameW);
}

std::optional<WideText> AskOpenPath(WideView filter, const WideChar* defaultExtension,
                                    const WideChar* title) {
    FileQuestion question(filter, defaultExtension);
    question.dialog.lpstrTitle = title;
    return question.Ask(GetOpenFileNameW);
}

bool IsHeldOpen(const WideText& path) {
    const HANDLE file = CreateFileW(path.c_str(), FILE_ALL_ACCESS, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        return error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
    }
    CloseHandle(file);
    return false;
}

void OpenFile(const WideText& path) {
    ShellExecuteW(nullptr, WIDE("open"), path.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

void OpenInNotepad(WideView fileBesideModule) {
    const auto path = WritableFileBesideModule(fileBesideModule);
    if (!path) return;
    // The editor takes all that follows its name for the path, so blanks need no quotes.
    WinExec(Narrow(WIDE("notepad.exe ") + *path).c_str(), SW_SHOW);
}

void OpenHomePage(const char* path) {
    const std::string folder = SystemFolder();
    if (folder.empty()) return;
    std::string command = "\"";
    command += folder;
    command += "\\cmd.exe\" /c start ";
    command += kHomePage;
    command += path;
    WinExec(command.c_str(), SW_HIDE);
}
