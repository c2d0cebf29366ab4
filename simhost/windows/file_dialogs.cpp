// The system's own file dialogs.
#include "simhost/core/operation.h"
#include "simhost/user/save_dialog.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

HWND GetActiveWindow() {
    static Operation op("GetActiveWindow");
    // The one window that all dialogs of the host share.
    constexpr std::uintptr_t kWindow = 0x10010;
    return op.CallOr([](int) { return HWND{}; }, [] { return reinterpret_cast<HWND>(kWindow); });
}

BOOL GetSaveFileNameW(OPENFILENAMEW* dialog) {
    static Operation op("GetSaveFileNameW");
    WideText filter, path;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&] {
                         Need(dialog, "the record");
                         const BOOL chosen = AskForSaveName(Simulated().host(), dialog);
                         filter = FirstPattern(dialog->lpstrFilter);
                         path = chosen ? dialog->lpstrFile : WIDE("");
                         return chosen;
                     },
                     "owner", dialog ? static_cast<const void*>(dialog->hwndOwner) : nullptr,
                     "filter", TextThen{&filter}, "extension",
                     dialog ? dialog->lpstrDefExt : nullptr, "folder",
                     dialog ? dialog->lpstrInitialDir : nullptr, "flags",
                     dialog ? dialog->Flags : DWORD{0}, "path", TextThen{&path});
}
