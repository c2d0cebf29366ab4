// Frames of text on a terminal.
#include "simhost/ui/text_frame.h"

#include <algorithm>

#include "simhost/core/text.h"

namespace simhost {

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
