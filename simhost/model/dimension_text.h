// What a dimension says on its sheet: its lines with the value for @D, drawing symbols as signs,
// and the tolerance.
#pragma once

#include <string>
#include <vector>

#include "simhost/model/annotations.h"

namespace simhost {

// A line in three parts: the tolerance stands between what is before and after it, one deviation
// over the other, or nothing.
struct DimensionLine {
    std::string before, upper, lower, after;  // UTF-8
};

// The lines with this value; the tolerance stands after the value. A line without a value has none.
std::vector<DimensionLine> LinesOf(const Dimension& dimension, double value);

// All of it in one line, for people and tests: "4×⌀20 +0.1/0", with " / " between lines.
std::string PlainText(const Dimension& dimension, double value);

// The sign of a letter of the drawing symbols ("⌀" for n); the letter itself for one that is none.
std::string SignOf(char32_t letter);

// A text with its symbols as signs, without @D being replaced.
std::string WithSigns(const WideText& text);

// At most `places` decimals, without zeros at the end: "12.5", "40".
std::string ShortNumber(double value, int places);

// The text that a new dimension of this kind has: a sign before the value of round ones, else none.
std::optional<std::vector<WideText>> UsualText(DimensionKind kind);

}  // namespace simhost
