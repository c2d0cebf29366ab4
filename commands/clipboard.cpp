// Text for the clipboard of Windows.
#include "commands/clipboard.h"

#include <algorithm>

#include "hostapi/windows.h"

namespace {

// A block of memory with the text and its terminator; null if there is none to be had.
HGLOBAL BlockWith(const WideText& text) {
    const HGLOBAL block = GlobalAlloc(GMEM_DDESHARE, (text.size() + 1) * sizeof(WideChar));
    if (!block) return nullptr;
    auto* place = static_cast<WideChar*>(GlobalLock(block));
    if (!place) {
        GlobalFree(block);
        return nullptr;
    }
    std::copy_n(text.c_str(), text.size() + 1, place);
    GlobalUnlock(block);
    return block;
}

}  // namespace

int ClipboardSetText(const WideText& text) {
    if (!OpenClipboard(nullptr)) return 0;
    EmptyClipboard();
    const HGLOBAL block = BlockWith(text);
    if (!block) {
        CloseClipboard();
        return 0;
    }
    // A block that the clipboard takes is the system's from then on.
    if (!SetClipboardData(CF_UNICODETEXT, block)) GlobalFree(block);
    CloseClipboard();
    return 1;
}
