// Boxes and dialogs as text on a terminal, where a Chinese character takes two columns.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "hostapi/wide.h"

namespace simhost {

// The text, filled up with blanks to this width.
std::string Padded(std::string text, std::size_t width);

// In quotes, with tabs, line ends, quotation marks and backslashes as a script writes them: one
// line whatever the text.
std::string Visible(const WideText& text);

// Cut at line feeds; tabs become blanks.
std::vector<std::string> TextLines(std::string_view text);

// The lines in a frame with a title in its upper edge.
std::vector<std::string> Framed(const std::string& title, const std::vector<std::string>& lines);

}  // namespace simhost
