// Text between its three forms: UTF-8 in the simulated host's own files, UTF-16 at the door, and
// the code page of the system for whatever that governs, bad input included.
#include "simhost/core/text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

#ifdef _WIN32
#include "hostapi/windows.h"
#else
#include <cstdio>
#include <iconv.h>
#endif

namespace simhost {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr unsigned kChinese = 936, kUtf8 = 65001;

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

template <class Text>
bool IsAscii(const Text& text) {
    return std::all_of(text.begin(), text.end(), [](auto unit) {
        return static_cast<std::make_unsigned_t<decltype(unit)>>(unit) < 0x80;
    });
}

void AppendUtf8(std::string* text, char32_t c) {
    const auto add = [text](char32_t byte) { text->push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        add(c);
    } else if (c < 0x800) {
        add(0xC0 | (c >> 6));
        add(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        add(0xE0 | (c >> 12));
        add(0x80 | ((c >> 6) & 0x3F));
        add(0x80 | (c & 0x3F));
    } else {
        add(0xF0 | (c >> 18));
        add(0x80 | ((c >> 12) & 0x3F));
        add(0x80 | ((c >> 6) & 0x3F));
        add(0x80 | (c & 0x3F));
    }
}

void AppendWide(WideText* text, char32_t c) {
    if (c >= 0x10000) {
        text->push_back(static_cast<WideChar>(0xD800 + ((c - 0x10000) >> 10)));
        c = 0xDC00 + ((c - 0x10000) & 0x3FF);
    }
    text->push_back(static_cast<WideChar>(c));
}

// How a UTF-8 sequence goes on after its first byte: the number of bytes that follow (0: this byte
// begins none) and the range of the second byte, which rules out surrogates and overlong forms.
struct Utf8Lead {
    int more = 0;
    unsigned low = 0x80, high = 0xBF;
};
Utf8Lead LeadOf(unsigned byte) {
    if (byte >= 0xC2 && byte <= 0xDF) return {1, 0x80, 0xBF};
    if (byte == 0xE0) return {2, 0xA0, 0xBF};
    if (byte == 0xED) return {2, 0x80, 0x9F};
    if (byte >= 0xE1 && byte <= 0xEF) return {2, 0x80, 0xBF};
    if (byte == 0xF0) return {3, 0x90, 0xBF};
    if (byte >= 0xF1 && byte <= 0xF3) return {3, 0x80, 0xBF};
    if (byte == 0xF4) return {3, 0x80, 0x8F};
    return {};
}

// The character at *at, which moves past it. A broken sequence counts as one character up to
// the byte that cannot belong to it.
char32_t NextUtf8(std::string_view text, std::size_t* at) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byteAt((*at)++);
    if (first < 0x80) return first;
    Utf8Lead lead = LeadOf(first);
    if (lead.more == 0) return kReplacement;
    char32_t c = first & (0x3Fu >> lead.more);
    for (; lead.more > 0; --lead.more) {
        if (*at == text.size()) return kReplacement;
        const unsigned next = byteAt(*at);
        if (next < lead.low || next > lead.high) return kReplacement;
        lead.low = 0x80;
        lead.high = 0xBF;
        c = (c << 6) | (next & 0x3F);
        ++*at;
    }
    return c;
}

template <class Text>
Text Folded(const Text& text, bool toUpper) {
    using Char = typename Text::value_type;
    Text result = text;
    const Char first = static_cast<Char>(toUpper ? 'a' : 'A');
    const Char last = static_cast<Char>(toUpper ? 'z' : 'Z');
    for (Char& c : result) {
        if (c >= first && c <= last) c = static_cast<Char>(c ^ 0x20);
    }
    return result;
}

#ifndef _WIN32

// Both directions of a code page as tables, made once: a conversion is then a look-up for each
// character, and what happens with broken bytes is decided here and not by the C library.
class PageTable {
public:
    static constexpr char16_t kNone = 0;

    explicit PageTable(unsigned codePage) : isChinese_(codePage == kChinese) {
        const std::string name = "CP" + std::to_string(codePage);
        const iconv_t converter = iconv_open("UTF-16LE", name.c_str());
        if (converter == reinterpret_cast<iconv_t>(-1)) {
            std::fprintf(stderr,
                         "simhost: this system cannot convert code page %u; text beyond ASCII "
                         "becomes question marks\n",
                         codePage);
            return;
        }
        for (unsigned byte = 0x80; byte < 0x100; ++byte) Map(converter, byte, 1);
        if (isChinese_) {
            for (unsigned pair = 0x8100; pair < 0xFF00; ++pair) Map(converter, pair, 2);
            MapUserDefined();
            MapUnassigned();
        } else {
            MapControls();
        }
        iconv_close(converter);
    }

    char16_t wide(unsigned code) const { return wide_[code]; }
    unsigned code(char16_t unit) const { return code_[unit]; }
    bool IsLead(unsigned byte) const { return isChinese_ && byte >= 0x81 && byte <= 0xFE; }

private:
    void Map(iconv_t converter, unsigned code, std::size_t length) {
        char bytes[2] = {static_cast<char>(code >> 8), static_cast<char>(code)};
        char* in = bytes + (2 - length);
        unsigned char unit[2] = {};
        char* out = reinterpret_cast<char*>(unit);
        std::size_t outLeft = sizeof unit;
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
        if (iconv(converter, &in, &length, &out, &outLeft) != 0 || outLeft != 0) return;
        Pair(code, static_cast<char16_t>(unit[0] | (unit[1] << 8)));
    }

    // Windows gives the three zones for characters of the user's own to the private use area;
    // the C library leaves them out.
    void MapUserDefined() {
        char16_t unit = 0xE000;
        const auto zone = [&](unsigned first, unsigned last) {
            for (unsigned lead = first >> 8; lead <= last >> 8; ++lead) {
                for (unsigned trail = first & 0xFF; trail <= (last & 0xFF); ++trail) {
                    if (trail != 0x7F) Pair(lead << 8 | trail, unit++);
                }
            }
        };
        zone(0xAAA1, 0xAFFE);
        zone(0xF8A1, 0xFEFE);
        zone(0xA140, 0xA7A0);
    }

    // The places that the standard leaves empty follow there, in their order.
    void MapUnassigned() {
        char16_t unit = 0xE766;
        for (unsigned pair = 0xA240; unit <= 0xE864 && pair < 0xFF00; ++pair) {
            const unsigned trail = pair & 0xFF;
            const bool place = trail >= 0x40 && trail <= 0xFE && trail != 0x7F;
            if (place && wide_[pair] == kNone) Pair(pair, unit++);
        }
        Pair(0xFF, 0xF8F5);
    }

    // Windows gives the places that code page 1252 leaves empty to the control characters.
    void MapControls() {
        for (unsigned byte = 0x80; byte < 0xA0; ++byte) {
            if (wide_[byte] == kNone) Pair(byte, static_cast<char16_t>(byte));
        }
    }

    void Pair(unsigned code, char16_t unit) {
        wide_[code] = unit;
        if (code_[unit] == 0) code_[unit] = static_cast<std::uint16_t>(code);
    }

    bool isChinese_;
    std::array<char16_t, 0x10000> wide_{};
    std::array<std::uint16_t, 0x10000> code_{};
};

const PageTable& TableOf(unsigned codePage) {
    if (codePage == kChinese) {
        static const auto chinese = std::make_unique<const PageTable>(kChinese);
        return *chinese;
    }
    static const auto western = std::make_unique<const PageTable>(1252);
    return *western;
}

unsigned systemCodePage = kChinese;

#endif

}  // namespace

std::string Utf8(WideView wide) {
    std::string text;
    text.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i) {
        char32_t c = wide[i];
        if (IsHighSurrogate(c) && i + 1 < wide.size() && IsLowSurrogate(wide[i + 1])) {
            c = 0x10000 + ((c - 0xD800) << 10) + (char32_t(wide[++i]) - 0xDC00);
        } else if (IsHighSurrogate(c) || IsLowSurrogate(c)) {
            c = kReplacement;
        }
        AppendUtf8(&text, c);
    }
    return text;
}

WideText Wide(std::string_view utf8) {
    WideText text;
    text.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) AppendWide(&text, NextUtf8(utf8, &at));
    return text;
}

#ifdef _WIN32

unsigned SystemCodePage() {
    return GetACP();
}

void SetSystemCodePage(unsigned) {}

std::string ToCodePage(unsigned codePage, WideView wide) {
    if (IsAscii(wide)) return std::string(wide.begin(), wide.end());
    if (codePage == kUtf8) return Utf8(wide);
    const int length = static_cast<int>(wide.size());
    std::string bytes(wide.size() * 2, '\0');
    const int used = WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, wide.data(), length,
                                         bytes.data(), length * 2, "?", nullptr);
    bytes.resize(static_cast<std::size_t>(used));
    return bytes;
}

WideText FromCodePage(unsigned codePage, std::string_view bytes) {
    if (IsAscii(bytes)) return WideText(bytes.begin(), bytes.end());
    const int length = static_cast<int>(bytes.size());
    WideText wide(bytes.size(), L'\0');
    const int used = MultiByteToWideChar(codePage, 0, bytes.data(), length, wide.data(), length);
    wide.resize(static_cast<std::size_t>(used));
    return wide;
}

#else

unsigned SystemCodePage() {
    return systemCodePage;
}

void SetSystemCodePage(unsigned codePage) {
    systemCodePage = codePage;
}

std::string ToCodePage(unsigned codePage, WideView wide) {
    if (IsAscii(wide)) return std::string(wide.begin(), wide.end());
    if (codePage == kUtf8) return Utf8(wide);
    const PageTable& page = TableOf(codePage);
    std::string bytes;
    bytes.reserve(wide.size() * 2);
    for (const char16_t unit : wide) {
        const unsigned code = unit < 0x80 ? unit : page.code(unit);
        if (code > 0xFF) bytes.push_back(static_cast<char>(code >> 8));
        bytes.push_back(code == 0 && unit != 0 ? '?' : static_cast<char>(code));
    }
    return bytes;
}

WideText FromCodePage(unsigned codePage, std::string_view bytes) {
    if (IsAscii(bytes)) return WideText(bytes.begin(), bytes.end());
    if (codePage == kUtf8) return Wide(bytes);
    const PageTable& page = TableOf(codePage);
    WideText wide;
    wide.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned first = static_cast<unsigned char>(bytes[i]);
        char16_t unit = first < 0x80 ? static_cast<char16_t>(first) : page.wide(first);
        // A lead byte takes the next byte with it, also when the two name no character; a
        // terminator is never swallowed.
        if (page.IsLead(first) && i + 1 < bytes.size() && bytes[i + 1] != '\0') {
            unit = page.wide(first << 8 | static_cast<unsigned char>(bytes[++i]));
        }
        wide.push_back(unit == PageTable::kNone && first != 0 ? u'?' : unit);
    }
    return wide;
}

#endif

std::string ToSystemCodePage(WideView wide) {
    return ToCodePage(SystemCodePage(), wide);
}

WideText FromSystemCodePage(std::string_view bytes) {
    return FromCodePage(SystemCodePage(), bytes);
}

std::string Lower(std::string_view text) {
    return Folded(std::string(text), /*toUpper=*/false);
}
WideText Lower(WideView text) {
    return Folded(WideText(text), /*toUpper=*/false);
}
WideText Upper(WideView text) {
    return Folded(WideText(text), /*toUpper=*/true);
}

bool SameName(WideView a, WideView b) {
    const auto folded = [](WideChar c) {
        return c >= 'A' && c <= 'Z' ? static_cast<WideChar>(c | 0x20) : c;
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](WideChar x, WideChar y) { return folded(x) == folded(y); });
}

namespace {

struct Range {
    char32_t first, last;
};
// What East Asian terminals draw two columns wide.
// clang-format off
constexpr Range kWide[] = {
    {0x1100, 0x115f}, {0x2e80, 0x303e}, {0x3041, 0x33ff},   {0x3400, 0x4dbf},
    {0x4e00, 0x9fff}, {0xa000, 0xa4cf}, {0xac00, 0xd7a3},   {0xf900, 0xfaff},
    {0xfe30, 0xfe6f}, {0xff00, 0xff60}, {0xffe0, 0xffe6},   {0x1f300, 0x1f64f},
    {0x20000, 0x3fffd},
};
// clang-format on

bool IsWide(char32_t character) {
    return std::any_of(std::begin(kWide), std::end(kWide), [&](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

}  // namespace

std::size_t DisplayWidth(std::string_view text) {
    std::size_t width = 0;
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const int more = lead >= 0xf0 ? 3 : lead >= 0xe0 ? 2 : lead >= 0xc0 ? 1 : 0;
        char32_t character = more == 3   ? lead & 0x07u
                             : more == 2 ? lead & 0x0fu
                             : more == 1 ? lead & 0x1fu
                                         : lead;
        ++i;
        for (int k = 0; k < more && i < text.size(); ++k, ++i) {
            character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3fu);
        }
        width += IsWide(character) ? 2 : 1;
    }
    return width;
}

void CopyCut(WideView text, WideChar* buffer, std::size_t size) {
    if (size == 0) return;
    const std::size_t length = std::min(text.size(), size - 1);
    std::copy_n(text.data(), length, buffer);
    buffer[length] = 0;
}

}  // namespace simhost
