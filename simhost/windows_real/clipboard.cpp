// The real clipboard: the plug-in's calls on their way there, another program that holds it, and
// what lies on it.
#include "simhost/windows_real/clipboard.h"

#include <algorithm>
#include <cstring>
#include <future>
#include <memory>
#include <thread>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/windows_real/real.h"

namespace simhost {

namespace {

BOOL ClipboardFails(int) {
    return FALSE;
}
HANDLE Null(int) {
    return nullptr;
}

void Forget(HGLOBAL memory) {
    auto& known = Real().memory;
    const auto is = [memory](const auto& each) { return each.first == memory; };
    known.erase(std::remove_if(known.begin(), known.end(), is), known.end());
}

}  // namespace

namespace clipboard {

BOOL WINAPI Open(HWND owner) {
    Operation& op = Op<"OpenClipboard">;
    return op.CallOr(
        ClipboardFails,
        [&] {
            const BOOL opened = OpenClipboard(owner);
            if (opened) Real().clipboardOpen = true;
            return opened;
        },
        "owner", static_cast<const void*>(owner));
}

// Told to fail, it closes the clipboard all the same, so that no test keeps it.
BOOL WINAPI Close() {
    Operation& op = Op<"CloseClipboard">;
    const auto close = [] {
        Real().clipboardOpen = false;
        return CloseClipboard();
    };
    return op.CallOr(
        [&](int) {
            close();
            return FALSE;
        },
        close);
}

BOOL WINAPI Empty() {
    Operation& op = Op<"EmptyClipboard">;
    return op.CallOr(ClipboardFails, [] { return EmptyClipboard(); });
}

HANDLE WINAPI Put(UINT format, HANDLE memory) {
    Operation& op = Op<"SetClipboardData">;
    WideText text;
    if (memory && format == CF_UNICODETEXT) text = static_cast<const WideChar*>(memory);
    return op.CallOr(
        Null,
        [&] {
            const HANDLE taken = SetClipboardData(format, memory);
            if (taken) Forget(memory);
            return taken;
        },
        "format", format, "text", text.c_str());
}

HGLOBAL WINAPI Allocate(UINT flags, SIZE_T bytes) {
    Operation& op = Op<"GlobalAlloc">;
    return op.CallOr(
        Null,
        [&]() -> HGLOBAL {
            const HGLOBAL memory = GlobalAlloc(flags, bytes);
            if (memory) Real().memory.emplace_back(memory, bytes);
            return memory;
        },
        "flags", flags, "bytes", bytes);
}

void* WINAPI Lock(HGLOBAL memory) {
    Operation& op = Op<"GlobalLock">;
    return op.CallOr(Null, [&]() -> void* { return GlobalLock(memory); });
}

BOOL WINAPI Unlock(HGLOBAL memory) {
    Operation& op = Op<"GlobalUnlock">;
    return op.CallOr(ClipboardFails, [&] { return GlobalUnlock(memory); });
}

HGLOBAL WINAPI Free(HGLOBAL memory) {
    Operation& op = Op<"GlobalFree">;
    return op.CallOr([&](int) { return memory; },
                     [&] {
                         Forget(memory);
                         return GlobalFree(memory);
                     });
}

}  // namespace clipboard

// Only a window keeps others out, and it belongs to the thread that made it.
void RealWindows::HoldClipboard() {
    if (letGoOfClipboard_) return;
    auto held = std::make_shared<std::promise<void>>();
    auto letGo = std::make_shared<std::promise<void>>();
    auto thread = std::make_shared<std::thread>([held, letGo] {
        const HWND window = CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE,
                                            nullptr, nullptr, nullptr);
        const bool opened = OpenClipboard(window);
        held->set_value();
        letGo->get_future().wait();
        if (opened) CloseClipboard();
        DestroyWindow(window);
    });
    held->get_future().wait();
    letGoOfClipboard_ = [letGo, thread] {
        letGo->set_value();
        thread->join();
    };
}

void RealWindows::ReleaseClipboard() {
    if (letGoOfClipboard_) letGoOfClipboard_();
    letGoOfClipboard_ = nullptr;
}

std::optional<WideText> RealWindows::ClipboardText() {
    if (!OpenClipboard(nullptr)) return std::nullopt;
    std::optional<WideText> text;
    if (const HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
        if (const auto* start = static_cast<const WideChar*>(GlobalLock(block))) text = start;
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}

}  // namespace simhost
