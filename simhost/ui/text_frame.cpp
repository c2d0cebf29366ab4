// Widths and frames of text on a terminal.
#include "simhost/ui/text_frame.h"

#include <algorithm>
#include <cstdint>

#include "simhost/core/text.h"

namespace simhost {
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

std::string Padded(std::string text, std::size_t width) {
    const std::size_t has = DisplayWidth(text);
    if (has < width) text.append(width - has, ' ');
    return text;
}

std::string Visible(const WideText& text) {
    std::string visible = "\"";
    for (const char c : Utf8(text)) {
        switch (c) {
            case '\t': visible += "\\t"; break;
            case '\n': visible += "\\n"; break;
            case '\r': visible += "\\r"; break;
            case '"':
            case '\\': visible += '\\'; [[fallthrough]];
            default: visible += c;
        }
    }
    return visible + '"';
}

std::vector<std::string> TextLines(std::string_view text) {
    std::vector<std::string> lines(1);
    for (const char c : text) {
        if (c == '\n') {
            lines.emplace_back();
        } else if (c == '\t') {
            lines.back() += "    ";
        } else if (c != '\r') {
            lines.back() += c;
        }
    }
    return lines;
}

std::vector<std::string> Framed(const std::string& title, const std::vector<std::string>& lines) {
    std::size_t width = DisplayWidth(title) + 2;
    for (const std::string& line : lines) width = std::max(width, DisplayWidth(line));
    std::vector<std::string> framed;
    const std::string head = title.empty() ? "" : " " + title + " ";
    framed.push_back("+-" + head + std::string(width - DisplayWidth(head), '-') + "-+");
    for (const std::string& line : lines) framed.push_back("| " + Padded(line, width) + " |");
    framed.push_back("+-" + std::string(width, '-') + "-+");
    return framed;
}

}  // namespace simhost
