// Numbers that somebody has typed.
#include "frame/services/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

namespace {

bool IsBlank(WideChar c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// A number's text as the reading function takes it; what is not ASCII ends the number anyway.
std::string NumberBytes(WideView text) {
    while (!text.empty() && IsBlank(text[0])) text.remove_prefix(1);
    std::string bytes;
    for (const WideChar c : text) bytes += c < 0x80 ? char(c) : '?';
    if (bytes.size() > 1 && bytes[0] == '+' && bytes[1] != '-') bytes.erase(0, 1);
    return bytes;
}

}  // namespace

int WholeNumber(WideView text) {
    constexpr long long kTooLarge = 1LL << 31;
    std::size_t at = 0;
    while (at < text.size() && IsBlank(text[at])) ++at;
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
    long long number = 0;
    for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
        number = std::min(number * 10 + (text[at] - '0'), kTooLarge);
    }
    return negative ? int(-number) : int(std::min(number, kTooLarge - 1));
}

double RealNumber(WideView text) {
    const std::string bytes = NumberBytes(text);
    double number = 0;
    const auto result = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number);
    return result.ec == std::errc() && std::isfinite(number) ? number : 0;
}
