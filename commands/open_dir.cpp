// VxOpenDir: the working directory in the system's file manager.
#include "commands/commands.h"
#include "frame/services.h"
#include "hostapi/windows.h"

void VxOpenDir() {
    ProPath directory = {};
    ProDirectoryCurrentGet(directory);
    ShellExecuteW(nullptr, nullptr, WIDE("explorer"), TextIn(directory).c_str(), nullptr, SW_SHOW);
}
