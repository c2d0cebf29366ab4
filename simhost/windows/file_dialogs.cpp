// The system's own file dialogs.
#include "simhost/core/operation.h"
#include "simhost/user/save_dialog.h"
#include "simhost/windows/simulated.h"

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

using Asked = BOOL (*)(const HostSide& host, OPENFILENAMEW* dialog);

BOOL Ask(Operation& op, Asked ask, OPENFILENAMEW* dialog) {
    WideText filter, path;
    return op.CallOr([](int) { return BOOL{FALSE}; },
                     [&] {
                         Need(dialog, "the record");
                         const BOOL chosen = ask(Simulated().host(), dialog);
                         filter = VisibleFilter(dialog->lpstrFilter);
                         path = chosen ? dialog->lpstrFile : WIDE("");
                         return chosen;
                     },
                     "owner", dialog ? static_cast<const void*>(dialog->hwndOwner) : nullptr,
                     "filter", TextThen{&filter}, "extension",
                     dialog ? dialog->lpstrDefExt : nullptr, "folder",
                     dialog ? dialog->lpstrInitialDir : nullptr, "flags",
                     dialog ? dialog->Flags : DWORD{0}, "path", TextThen{&path});
}

}  // namespace

HWND GetActiveWindow() {
    // The one window that all dialogs of the host share.
    constexpr std::uintptr_t kWindow = 0x10010;
    return Op<"GetActiveWindow">.CallOr([](int) { return HWND{}; },
                                        [] { return reinterpret_cast<HWND>(kWindow); });
}

BOOL GetSaveFileNameW(OPENFILENAMEW* dialog) {
    return Ask(Op<"GetSaveFileNameW">, AskForSaveName, dialog);
}

BOOL GetOpenFileNameW(OPENFILENAMEW* dialog) {
    return Ask(Op<"GetOpenFileNameW">, AskForOpenName, dialog);
}
