// Numbers and texts in an SVG file.
#include "simhost/app/svg_text.h"

#include <cmath>
#include <cstdlib>

namespace simhost {

std::string SvgNumber(double value) {
    const long long hundredths = std::llround(value * 100);
    if (hundredths == 0) return "0";
    std::string text = std::to_string(std::llabs(hundredths));
    if (text.size() < 3) text.insert(0, 3 - text.size(), '0');
    text.insert(text.size() - 2, ".");
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
    if (text.size() > 1 && text[0] == '0') text.erase(0, 1);
    return (hundredths < 0 ? "-" : "") + text;
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
