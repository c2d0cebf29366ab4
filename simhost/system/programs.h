// Programs that the plug-in starts: written down as the user would see them, and never run.
#pragma once

#include "hostapi/wide.h"

namespace simhost {

// Whether every Windows starts a program by this name alone: "explorer", "notepad.exe", "cmd".
bool IsKnownProgram(WideView name);

// What ShellExecuteW was told, as one line: "explorer C:\Work\ (show 5)", "open C:\a.txt (show 1)".
WideText ProgramLine(const WideChar* verb, const WideChar* file, const WideChar* arguments,
                     int show);

}  // namespace simhost
