// Asking for a folder, and working in it.
#include "export/folder_prompt.h"

#include "frame/services.h"

FolderAnswer AskFolder(const WideChar* title) {
    ProPath folder = {};
    const ProError status = ProDirectoryChoose(HostText(title), nullptr, nullptr, nullptr, folder);
    return {status == PRO_TK_USER_ABORT, TextIn(folder)};
}

void ChangeDirectory(const WideText& folder) {
    ProDirectoryChange(HostText(folder));
}

WideText CurrentDirectory() {
    ProPath folder = {};
    ProDirectoryCurrentGet(folder);
    return TextIn(folder);
}
