// Pictures as SVG: text stays text, and the same picture always gives the same bytes.
#pragma once

#include <string>

#include "simhost/picture/canvas.h"

namespace simhost {

// The whole file, in UTF-8.
std::string SvgOf(const Picture& picture);

// At most two decimals, without zeros at the ends: "-.5", "12"; a power of ten from 1e15 on. What
// is no number is "0".
std::string SvgNumber(double value);

// For texts and attributes: what has a meaning in XML is escaped, and control characters, which
// have no place there at all, become blanks.
std::string SvgText(const std::string& text);

}  // namespace simhost
