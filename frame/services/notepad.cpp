// Settings files in the system's plain editor.
#include "frame/services/notepad.h"

#include "frame/services/paths.h"
#include "frame/services/text.h"
#include "hostapi/windows.h"

void OpenInNotepad(WideView fileBesideModule) {
    const auto path = WritableFileBesideModule(fileBesideModule);
    if (!path) return;
    // The editor takes all that stands behind its name for the path, so blanks need no quotes.
    WinExec(Narrow(WIDE("notepad.exe ") + *path).c_str(), SW_SHOW);
}
