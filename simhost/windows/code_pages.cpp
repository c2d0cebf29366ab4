// Conversions between code pages and UTF-16, and the C runtime's locale.
#include <algorithm>
#include <cstring>
#include <optional>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/windows/names.h"
#include "simhost/windows/simulated.h"

using namespace simhost;

namespace simhost {

namespace {

constexpr UINT kChinese = 936, kWestern = 1252, kUtf8 = 65001;

// The look-alikes that Windows puts in the place of what code page 936 lacks, unless it is told not
// to: the Latin ones, in their order. Some are other letters altogether.
struct LookAlike {
    char16_t unit;
    unsigned code;
};
// clang-format off
constexpr LookAlike kLookAlikes[] = {
    {0x00A2, 0xA1E9}, {0x00A3, 0xA1EA}, {0x00A5, 0xA3A4}, {0x00A6, 0x7C}, {0x00AA, 0x61},
    {0x00AD, 0x2D}, {0x00AF, 0xA1A5}, {0x00B2, 0x32}, {0x00B3, 0x33}, {0x00B4, 0xA1E4},
    {0x00B5, 0xA6CC}, {0x00B9, 0x31}, {0x00BA, 0x6F}, {0x00C0, 0xA8A4}, {0x00C1, 0xA8A2},
    {0x00C8, 0xA8A8}, {0x00C9, 0xA8A6}, {0x00CA, 0xA8BA}, {0x00CC, 0xA8AC}, {0x00CD, 0xA8AA},
    {0x00D0, 0x44}, {0x00D2, 0xA8B0}, {0x00D3, 0xA8AE}, {0x00D9, 0xA8B4}, {0x00DA, 0xA8B2},
    {0x00DC, 0xA8B9}, {0x00DD, 0x59}, {0x00DE, 0x54}, {0x00E2, 0x61}, {0x00F0, 0x65},
    {0x00FD, 0x79}, {0x00FE, 0x74}, {0x0100, 0xA8A1}, {0x0112, 0xA8A5}, {0x011A, 0xA8A7},
    {0x012A, 0xA8A9}, {0x014C, 0xA8AD}, {0x016A, 0xA8B1}, {0x01C1, 0xA1CE}, {0x01CD, 0xA8A3},
    {0x01CF, 0xA8AB}, {0x01D1, 0xA8AF}, {0x01D3, 0xA8B3}, {0x01D5, 0xA8B5}, {0x01D7, 0xA8B6},
    {0x01D9, 0xA8B7}, {0x01DB, 0xA8B8},
};
// clang-format on

// The bytes in a code page; nothing for what has no place there. The look-alikes of other pages
// than 936 are not known here.
std::optional<std::string> EncodeUnit(UINT codePage, WideChar unit, bool bestFit) {
    std::string bytes = ToCodePage(codePage, WideView(&unit, 1));
    if (bytes != "?" || unit == u'?') return bytes;
    if (codePage != kChinese) return std::nullopt;
    const auto* alike = std::lower_bound(std::begin(kLookAlikes), std::end(kLookAlikes), unit,
                                         [](const LookAlike& a, WideChar b) { return a.unit < b; });
    if (!bestFit || alike == std::end(kLookAlikes) || alike->unit != unit) return std::nullopt;
    bytes.clear();
    if (alike->code > 0xFF) bytes += static_cast<char>(alike->code >> 8);
    bytes += static_cast<char>(alike->code);
    return bytes;
}

// The code page that is meant; nothing for one that is not known here.
std::optional<UINT> Meant(UINT codePage) {
    if (codePage == CP_ACP) codePage = SystemCodePage();
    if (codePage == kChinese || codePage == kWestern || codePage == kUtf8) return codePage;
    return std::nullopt;
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

// In a code page, up to `room` bytes and no halved character; *whole tells if that was all.
std::string Encode(UINT codePage, WideView wide, bool bestFit, std::size_t room,
                   const char* defaultChar, BOOL* usedDefault, bool* whole) {
    std::string bytes;
    for (const WideChar& unit : wide) {
        std::optional<std::string> one = EncodeUnit(codePage, unit, bestFit);
        if (!one) {
            if (usedDefault) *usedDefault = TRUE;
            one = defaultChar ? defaultChar : "?";
        }
        *whole = bytes.size() + one->size() <= room;
        if (!*whole) break;
        bytes += *one;
    }
    return bytes;
}

int ToWide(UINT codePage, const char* narrow, int narrowLength, WideChar* wide, int wideSize) {
    if (!narrow || narrowLength == 0 || wideSize < 0 || (!wide && wideSize > 0)) return 0;
    const std::optional<UINT> meant = Meant(codePage);
    if (!meant) return 0;
    const std::string_view text(narrow, narrowLength < 0 ? std::strlen(narrow) + 1
                                                         : static_cast<std::size_t>(narrowLength));
    return Deliver(FromCodePage(*meant, text), wide, wideSize);
}

int ToNarrow(UINT codePage, DWORD flags, WideView wide, char* narrow, int narrowSize,
             const char* defaultChar, BOOL* usedDefault) {
    if (wide.empty() || narrowSize < 0 || (!narrow && narrowSize > 0)) return 0;
    const std::optional<UINT> meant = Meant(codePage);
    if (!meant) return 0;
    if (*meant == kUtf8) {
        // Every character has a place there, so Windows takes none of the three.
        if (defaultChar || usedDefault || (flags & WC_NO_BEST_FIT_CHARS)) return 0;
        return Deliver(Utf8(wide), narrow, narrowSize);
    }
    if (usedDefault) *usedDefault = FALSE;
    const std::size_t room = narrowSize == 0 ? WideText::npos : std::size_t(narrowSize);
    bool whole = false;
    const bool bestFit = !(flags & WC_NO_BEST_FIT_CHARS);
    const std::string bytes = Encode(*meant, wide, bestFit, room, defaultChar, usedDefault, &whole);
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
    std::map<int, WideText>& locale = Simulated().locale;
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
        [&] {
            return ToNarrow(codePage, flags, text, narrow, narrowSize, defaultChar, usedDefault);
        },
        "codePage", codePage, "flags", flags, "wide", TextThen{&shown}, "length", wideLength,
        "size", narrowSize);
}

WideChar* _wsetlocale(int category, const WideChar* locale) {
    Operation& op = Op<"_wsetlocale">;
    return op.CallOr([](int) { return static_cast<WideChar*>(nullptr); },
                     [&] { return SetLocale(category, locale); }, "category", category, "locale",
                     locale);
}
