// Numbers and texts in an SVG file.
#pragma once

#include <string>

namespace simhost {

// At most two decimals, without zeros at the ends: "-.5", "12".
std::string SvgNumber(double value);

// For texts and attributes: what has a meaning in XML is escaped, and control characters, which
// have no place there at all, become blanks.
std::string SvgText(const std::string& text);

}  // namespace simhost
