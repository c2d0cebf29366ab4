// Message boxes of a real Windows: each is seen by a hook once it is up, read from its windows as
// a person would read it, and answered by the press of one of its buttons.
#include <vector>

#include "simhost/windows_real/real.h"

namespace simhost {

namespace {

constexpr int kTextId = 0xFFFF;  // the control that holds a message box's text
constexpr UINT_PTR kAnswerTimer = 0x7A31;

// Buttons of a message box by its flags; a box is known again by those it has.
struct Buttons {
    UINT flags;
    std::vector<int> ids;
};
const Buttons kButtons[] = {
    {MB_OK, {IDOK}},
    {MB_OKCANCEL, {IDOK, IDCANCEL}},
    {MB_ABORTRETRYIGNORE, {IDABORT, IDRETRY, IDIGNORE}},
    {MB_YESNOCANCEL, {IDYES, IDNO, IDCANCEL}},
    {MB_YESNO, {IDYES, IDNO}},
    {MB_RETRYCANCEL, {IDRETRY, IDCANCEL}},
};

WideText TextOf(HWND window) {
    WideText text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

// A box hides or disables nothing that it offers; its unused buttons are gone or hidden. The box
// itself may not be visible yet, so the control's own style tells.
bool Has(HWND box, int button) {
    const HWND control = GetDlgItem(box, button);
    return control && (GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE);
}

UINT ButtonFlags(HWND box) {
    for (const Buttons& buttons : kButtons) {
        bool same = true;
        for (const int id : {IDOK, IDCANCEL, IDABORT, IDRETRY, IDIGNORE, IDYES, IDNO}) {
            bool listed = false;
            for (const int each : buttons.ids) listed = listed || each == id;
            same = same && listed == Has(box, id);
        }
        if (same) return buttons.flags;
    }
    return MB_OK;
}

BOOL CALLBACK NoteIcon(HWND control, LPARAM place) {
    WideChar name[16] = {};
    GetClassNameW(control, name, 16);
    const LONG style = GetWindowLongW(control, GWL_STYLE);
    if (WideView(name) == L"Static" && (style & SS_TYPEMASK) == SS_ICON && (style & WS_VISIBLE)) {
        *reinterpret_cast<LRESULT*>(place) = SendMessageW(control, STM_GETICON, 0, 0);
    }
    return TRUE;
}

UINT IconFlags(HWND box) {
    LRESULT icon = 0;
    EnumChildWindows(box, NoteIcon, reinterpret_cast<LPARAM>(&icon));
    if (icon == 0) return 0;
    const auto is = [icon](const WideChar* name) {
        return reinterpret_cast<LRESULT>(LoadIconW(nullptr, name)) == icon;
    };
    if (is(reinterpret_cast<const WideChar*>(IDI_ERROR))) return MB_ICONERROR;
    if (is(reinterpret_cast<const WideChar*>(IDI_QUESTION))) return MB_ICONQUESTION;
    if (is(reinterpret_cast<const WideChar*>(IDI_WARNING))) return MB_ICONWARNING;
    if (is(reinterpret_cast<const WideChar*>(IDI_INFORMATION))) return MB_ICONINFORMATION;
    return 0;
}

// The caption that Windows itself gives a box without one, in the system's language: seen once at a
// box of our own.
bool probing = false;
WideText systemCaption;

// Wine 8 does not raise a box with MB_TOPMOST (one with MB_SYSTEMMODAL it does), so that there the
// flag of the call has to be believed.
bool IsTopmost(HWND box) {
    static const bool isWine =
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    const bool raised = GetWindowLongW(box, GWL_EXSTYLE) & WS_EX_TOPMOST;
    const std::vector<UINT>& asked = Real().boxFlags;
    return raised || (isWine && !asked.empty() && (asked.back() & MB_TOPMOST));
}

Box ReadBox(HWND window) {
    Box box;
    box.text = TextOf(GetDlgItem(window, kTextId));
    box.caption = TextOf(window);
    box.hasCaption = box.caption != systemCaption;
    if (!box.hasCaption) box.caption.clear();
    box.flags = ButtonFlags(window) | IconFlags(window);
    if (IsTopmost(window)) box.flags |= MB_TOPMOST;
    return box;
}

void Press(HWND box, int button) {
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button),
                 reinterpret_cast<LPARAM>(GetDlgItem(box, button)));
}

// A box gets its text after its window, and its place above others after that: it is read when its
// own message loop runs.
void CALLBACK Answer(HWND box, UINT, UINT_PTR timer, DWORD) {
    KillTimer(box, timer);
    if (probing) {
        systemCaption = TextOf(box);
        Press(box, IDOK);
    } else {
        Press(box, Real().host().desk.ShowBox(ReadBox(box)));
    }
}

LRESULT CALLBACK AfterMessage(int code, WPARAM wParam, LPARAM lParam) {
    const auto* message = reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    if (code == HC_ACTION && message->message == WM_INITDIALOG &&
        GetDlgItem(message->hwnd, kTextId)) {
        SetTimer(message->hwnd, kAnswerTimer, USER_TIMER_MINIMUM, Answer);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

void CatchBoxes() {
    static const HHOOK hook =
        SetWindowsHookExW(WH_CALLWNDPROCRET, AfterMessage, nullptr, GetCurrentThreadId());
    if (!hook || !systemCaption.empty()) return;
    probing = true;
    MessageBoxW(nullptr, L"", nullptr, MB_OK);
    probing = false;
}

}  // namespace simhost
