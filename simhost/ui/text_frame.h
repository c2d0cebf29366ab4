// Boxes and dialogs as text on a terminal, where a Chinese character takes two columns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace simhost {

// Columns that UTF-8 text takes on a terminal.
std::size_t DisplayWidth(std::string_view text);

// The text with blanks behind it up to this width.
std::string Padded(std::string text, std::size_t width);

// Cut at line feeds; tabs become blanks.
std::vector<std::string> TextLines(std::string_view text);

// The lines in a frame with a title in its upper edge.
std::vector<std::string> Framed(const std::string& title, const std::vector<std::string>& lines);

}  // namespace simhost
