// Mode, folders, notifications and macros at the door, and the repainting of windows.
#include "hostapi/host/session.h"

#include <filesystem>

#include "hostapi/host/window.h"
#include "simhost/core/text.h"
#include "simhost/door/door.h"

using namespace simhost;

ProError ProModeCurrentGet(ProMode* mode) {
    return Op<"ProModeCurrentGet">.Call(
        [&] {
            const ProMode current = TheHost().session.Mode();
            if (current == PRO_MODE_UNKNOWN) Refuse(PRO_TK_BAD_CONTEXT);
            *mode = current;
        },
        OUT(mode));
}

ProError ProDirectoryCurrentGet(ProPath directory) {
    return Op<"ProDirectoryCurrentGet">.Call(
        [&] { CopyCut(TheHost().session.workingDirectory + WIDE("\\"), directory, PRO_PATH_SIZE); },
        OUT(directory));
}

ProError ProDirectoryChange(ProPath directory) {
    return Op<"ProDirectoryChange">.Call(
        [&] {
            WideText folder = directory;
            if (folder.empty()) Refuse(PRO_TK_BAD_INPUTS);
            if (folder.size() >= PRO_PATH_SIZE) {
                Complain(PRO_TK_BAD_INPUTS, "the folder's name is longer than a path");
            }
            const auto isSeparator = [&folder](std::size_t at) {
                return folder[at] == WideChar{'\\'} || folder[at] == WideChar{'/'};
            };
            // A second separator begins the name of another computer.
            if (isSeparator(0) && !(folder.size() > 1 && isSeparator(1))) {
                const WideText& present = TheHost().session.workingDirectory;
                folder.insert(0, present.substr(0, present.find(WideChar{':'}) + 1));
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
        },
        GIVEN(directory));
}

ProError ProToolkitApplTextPathGet(ProPath directory) {
    return Op<"ProToolkitApplTextPathGet">.Call(
        [&] { CopyCut(TheHost().textFolder, directory, PRO_PATH_SIZE); }, OUT(directory));
}

ProError ProNotificationSet(ProNotifyType type, ProFunction handler) {
    return Op<"ProNotificationSet">.Call([&] { TheHost().commands.SetNotification(type, handler); },
                                         ARG(type));
}

ProError ProMacroLoad(WideChar* macro) {
    return Op<"ProMacroLoad">.Call([&] { TheHost().macros.emplace_back(macro); }, GIVEN(macro));
}

ProError ProWindowRepaint(int window) {
    return Op<"ProWindowRepaint">.Call(
        [&] {
            Window* found = TheHost().session.FindWindow(window);
            if (!found) Refuse(PRO_TK_BAD_INPUTS);
            ++found->repaints;
        },
        ARG(window));
}
