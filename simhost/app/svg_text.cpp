// Numbers and texts in an SVG file.
#include "simhost/app/svg_text.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>

namespace simhost {

std::string SvgNumber(double value) {
    if (!std::isfinite(value)) return "0";
    constexpr double kNoHundredths = 1e15;  // nor a whole number that the type below can hold
    if (std::fabs(value) >= kNoHundredths) return fmt::format("{}", value);
    const long long hundredths = std::llround(value * 100);
    if (hundredths == 0) return "0";
    const long long whole = std::llabs(hundredths) / 100, rest = std::llabs(hundredths) % 100;
    std::string text(hundredths < 0 ? "-" : "");
    if (whole > 0) text += std::to_string(whole);
    if (rest > 0) {
        text += '.';
        text += char('0' + rest / 10);
        if (rest % 10 > 0) text += char('0' + rest % 10);
    }
    return text;
}

std::string SvgText(const std::string& text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&': result += "&amp;"; break;
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            case '"': result += "&quot;"; break;
            default: result += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
        }
    }
    return result;
}

}  // namespace simhost
