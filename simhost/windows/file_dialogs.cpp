// The system's own file dialogs.
#ifndef _WIN32

#include "simhost/core/operation.h"
#include "simhost/user/save_dialog.h"
#include "simhost/windows/windows.h"

using namespace simhost;

namespace {

// The labels and patterns of a filter, each with the \0 that ends it made visible.
WideText VisibleFilter(const WideChar* pairs) {
    WideText text;
    for (const WideChar* at = pairs; at && *at; at += WideView(at).size() + 1) {
        text.append(at).append(WIDE("\\0"));
    }
    return text;
}

}  // namespace

BOOL GetSaveFileNameW(OPENFILENAMEW* dialog) {
    Operation& op = Op<"GetSaveFileNameW">;
    WideText filter, path;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&] {
                         Need(dialog, "the record");
                         const BOOL chosen = AskForSaveName(dialog);
                         filter = VisibleFilter(dialog->lpstrFilter);
                         path = chosen ? dialog->lpstrFile : WIDE("");
                         return chosen;
                     },
                     "filter", TextThen{&filter}, "extension",
                     dialog ? dialog->lpstrDefExt : nullptr, "folder",
                     dialog ? dialog->lpstrInitialDir : nullptr, "flags",
                     dialog ? dialog->Flags : DWORD{0}, "path", TextThen{&path});
}

#endif
