// The system's own file dialogs.
#ifndef _WIN32

#include "simhost/core/operation.h"
#include "simhost/user/save_dialog.h"
#include "simhost/windows/windows.h"

using namespace simhost;

BOOL GetSaveFileNameW(OPENFILENAMEW* dialog) {
    Operation& op = Op<"GetSaveFileNameW">;
    WideText filter, path;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&] {
                         Need(dialog, "the record");
                         const BOOL chosen = AskForSaveName(dialog);
                         filter = FirstPattern(dialog->lpstrFilter);
                         path = chosen ? dialog->lpstrFile : WIDE("");
                         return chosen;
                     },
                     "filter", TextThen{&filter}, "extension",
                     dialog ? dialog->lpstrDefExt : nullptr, "folder",
                     dialog ? dialog->lpstrInitialDir : nullptr, "flags",
                     dialog ? dialog->Flags : DWORD{0}, "path", TextThen{&path});
}

#endif
