// Conversions between code pages and UTF-16, and the C runtime's locale.
#ifndef _WIN32

#include <algorithm>
#include <cstring>
#include <optional>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/windows/names.h"
#include "simhost/windows/windows.h"

using namespace simhost;

namespace simhost {

namespace {

constexpr UINT kChinese = 936, kUtf8 = 65001;

bool IsSystemCodePage(UINT codePage) {
    return codePage == CP_ACP || codePage == kChinese;
}

// What both conversions return for a result: its length, or 0 if the buffer is too small. As much
// as has room is written all the same.
template <class Char>
int Deliver(const std::basic_string<Char>& text, Char* place, int size) {
    const auto length = static_cast<int>(text.size());
    if (size == 0) return length;
    std::copy_n(text.data(), std::min(length, size), place);
    return length <= size ? length : 0;
}

// In code page 936, up to `room` bytes and no halved character; *whole tells if that was all.
std::string Encode(WideView wide, std::size_t room, const char* defaultChar, BOOL* usedDefault,
                   bool* whole) {
    std::string bytes;
    for (const WideChar& unit : wide) {
        std::string one = ToSystemCodePage(WideView(&unit, 1));
        if (one == "?" && unit != u'?') {
            if (usedDefault) *usedDefault = TRUE;
            if (defaultChar) one = defaultChar;
        }
        *whole = bytes.size() + one.size() <= room;
        if (!*whole) break;
        bytes += one;
    }
    return bytes;
}

int ToWide(UINT codePage, const char* narrow, int narrowLength, WideChar* wide, int wideSize) {
    if (!narrow || narrowLength == 0 || wideSize < 0 || (!wide && wideSize > 0)) return 0;
    if (!IsSystemCodePage(codePage) && codePage != kUtf8) return 0;
    const std::string_view text(narrow, narrowLength < 0 ? std::strlen(narrow) + 1
                                                         : static_cast<std::size_t>(narrowLength));
    return Deliver(codePage == kUtf8 ? Wide(text) : FromSystemCodePage(text), wide, wideSize);
}

int ToNarrow(UINT codePage, WideView wide, char* narrow, int narrowSize, const char* defaultChar,
             BOOL* usedDefault) {
    if (wide.empty() || narrowSize < 0 || (!narrow && narrowSize > 0)) return 0;
    if (codePage == kUtf8) {
        // Every character has a place there, so Windows takes neither of the two.
        if (defaultChar || usedDefault) return 0;
        return Deliver(Utf8(wide), narrow, narrowSize);
    }
    if (!IsSystemCodePage(codePage)) return 0;
    if (usedDefault) *usedDefault = FALSE;
    const std::size_t room = narrowSize == 0 ? WideText::npos : std::size_t(narrowSize);
    bool whole = false;
    const std::string bytes = Encode(wide, room, defaultChar, usedDefault, &whole);
    const int written = Deliver(bytes, narrow, narrowSize);
    return whole ? written : 0;
}

// The name that a locale is remembered by; nothing for one that this system has not.
std::optional<WideText> LocaleName(WideView wanted) {
    if (wanted == WIDE("C")) return WideText(wanted);
    if (wanted.empty() || FoldCase(wanted) == WIDE("chs")) return WIDE("chs");
    return std::nullopt;
}

WideChar* SetLocale(int category, const WideChar* wanted) {
    constexpr int kCategories[] = {LC_ALL, LC_COLLATE, LC_CTYPE, LC_MONETARY, LC_NUMERIC, LC_TIME};
    if (std::find(std::begin(kCategories), std::end(kCategories), category) ==
        std::end(kCategories)) {
        return nullptr;
    }
    std::map<int, WideText>& locale = TheWindows().locale;
    if (wanted) {
        const std::optional<WideText> name = LocaleName(wanted);
        if (!name) return nullptr;
        for (const int each : kCategories) {
            if (each == category || category == LC_ALL) locale[each] = *name;
        }
    }
    return locale.try_emplace(category, WIDE("C")).first->second.data();
}

}  // namespace

}  // namespace simhost

int MultiByteToWideChar(UINT codePage, DWORD flags, const char* narrow, int narrowLength,
                        WideChar* wide, int wideSize) {
    Operation& op = Op<"MultiByteToWideChar">;
    return op.CallOr([](int) { return 0; },
                     [&] { return ToWide(codePage, narrow, narrowLength, wide, wideSize); },
                     "codePage", codePage, "flags", flags, "length", narrowLength, "size",
                     wideSize);
}

int WideCharToMultiByte(UINT codePage, DWORD flags, const WideChar* wide, int wideLength,
                        char* narrow, int narrowSize, const char* defaultChar, BOOL* usedDefault) {
    Operation& op = Op<"WideCharToMultiByte">;
    WideView text;
    if (wide) {
        text = wideLength < 0 ? WideView(wide, WideView(wide).size() + 1)
                              : WideView(wide, static_cast<std::size_t>(wideLength));
    }
    const WideText shown(Operation::journalling ? text : WideView());
    return op.CallOr(
        [](int) { return 0; },
        [&] { return ToNarrow(codePage, text, narrow, narrowSize, defaultChar, usedDefault); },
        "codePage", codePage, "flags", flags, "wide", TextThen{&shown}, "length", wideLength,
        "size", narrowSize);
}

WideChar* _wsetlocale(int category, const WideChar* locale) {
    Operation& op = Op<"_wsetlocale">;
    return op.CallOr([](int) { return static_cast<WideChar*>(nullptr); },
                     [&] { return SetLocale(category, locale); }, "category", category, "locale",
                     locale);
}

#endif
