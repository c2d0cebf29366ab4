// Numbers that somebody has typed.
#include "frame/numbers.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <string>

namespace {

// A number's text as the reading functions take it; what is not ASCII ends the number anyway.
std::string NumberBytes(WideView text) {
    std::string bytes;
    for (const WideChar c : text) bytes += c < 0x80 ? char(c) : '?';
    bytes.erase(0, std::min(bytes.find_first_not_of(" \t\n\v\f\r"), bytes.size()));
    if (bytes.size() > 1 && bytes[0] == '+' && bytes[1] != '-') bytes.erase(0, 1);
    return bytes;
}

}  // namespace

int WholeNumber(WideView text) {
    const std::string bytes = NumberBytes(text);
    int number = 0;
    const auto result = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
    if (result.ec == std::errc::result_out_of_range) return bytes[0] == '-' ? INT_MIN : INT_MAX;
    return result.ec == std::errc() ? number : 0;
}

double RealNumber(WideView text) {
    const std::string bytes = NumberBytes(text);
    double number = 0;
    const auto result = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
    return result.ec == std::errc() && std::isfinite(number) ? number : 0;
}
