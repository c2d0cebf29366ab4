// Mode, folders, notifications and macros at the door, and the repainting of windows.
#include "hostapi/host/session.h"

#include <filesystem>

#include "hostapi/host/window.h"
#include "simhost/core/text.h"
#include "simhost/host.h"

using namespace simhost;

ProError ProModeCurrentGet(ProMode* mode) {
    static Operation op("ProModeCurrentGet");
    return op.Call(
        [&] {
            Need(mode, "the place for the mode");
            const ProMode current = TheHost().session.Mode();
            if (current == PRO_MODE_UNKNOWN) Refuse(PRO_TK_BAD_CONTEXT);
            *mode = current;
            return PRO_TK_NO_ERROR;
        },
        "mode", Out(mode));
}

ProError ProDirectoryCurrentGet(ProPath directory) {
    static Operation op("ProDirectoryCurrentGet");
    return op.Call(
        [&] {
            Need(directory, "the place for the folder");
            CopyCut(TheHost().session.workingDirectory + WIDE("\\"), directory, PRO_PATH_SIZE);
            return PRO_TK_NO_ERROR;
        },
        "directory", Out(directory));
}

ProError ProDirectoryChange(ProPath directory) {
    static Operation op("ProDirectoryChange");
    return op.Call(
        [&] {
            Need(directory, "the folder");
            WideText folder = directory;
            if (folder.empty()) Complain(PRO_TK_BAD_INPUTS, "the folder has no name");
            if (folder.size() >= PRO_PATH_SIZE) {
                Complain(PRO_TK_BAD_INPUTS, "the folder's name is longer than a path");
            }
            while (folder.size() > 3 && (folder.back() == '\\' || folder.back() == '/')) {
                folder.pop_back();
            }
            std::error_code error;
            const auto real = TheHost().disk.Real(folder);
            if (real.empty() || !std::filesystem::is_directory(real, error)) {
                Refuse(PRO_TK_INVALID_DIR);
            }
            TheHost().session.workingDirectory = folder;
            return PRO_TK_NO_ERROR;
        },
        "directory", directory);
}

ProError ProToolkitApplTextPathGet(ProPath directory) {
    static Operation op("ProToolkitApplTextPathGet");
    return op.Call(
        [&] {
            Need(directory, "the place for the folder");
            CopyCut(TheHost().textFolder, directory, PRO_PATH_SIZE);
            return PRO_TK_NO_ERROR;
        },
        "directory", Out(directory));
}

ProError ProNotificationSet(ProNotifyType type, ProFunction handler) {
    static Operation op("ProNotificationSet");
    return op.Call(
        [&] {
            TheHost().commands.SetNotification(type, handler);
            return PRO_TK_NO_ERROR;
        },
        "type", type);
}

ProError ProMacroLoad(WideChar* macro) {
    static Operation op("ProMacroLoad");
    return op.Call(
        [&] {
            Need(macro, "the macro");
            TheHost().macros.emplace_back(macro);
            return PRO_TK_NO_ERROR;
        },
        "macro", macro);
}

ProError ProWindowRepaint(int window) {
    static Operation op("ProWindowRepaint");
    return op.Call(
        [&] {
            Window* found = TheHost().session.FindWindow(window);
            if (!found) Refuse(PRO_TK_BAD_INPUTS);
            ++found->repaints;
            return PRO_TK_NO_ERROR;
        },
        "window", window);
}
