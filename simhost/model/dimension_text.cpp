// Texts of dimensions as a draughtsman reads them.
#include "simhost/model/dimension_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "simhost/core/text.h"

namespace simhost {

namespace {

struct Sign {
    char letter;
    const char* sign;
};
constexpr Sign kSigns[] = {{'n', "⌀"}, {'o', "□"}, {'v', "⌴"}, {'w', "⌵"}, {'x', "↧"}};

constexpr WideChar kBegin = 1, kEnd = 2;
constexpr WideView kValue = WIDE("@D");
constexpr int kPlaces = 2, kTolerancePlaces = 3;

std::string ValueText(const Dimension& dimension, double value) {
    const bool angle = dimension.kind == DimensionKind::Angle;
    return ShortNumber(value, kPlaces) + (angle ? "°" : "");
}

// "+0.1", "-0.02", "0" without a sign.
std::string Deviation(double value) {
    const std::string number = ShortNumber(std::fabs(value), kTolerancePlaces);
    if (number == "0") return number;
    return (value < 0 ? "-" : "+") + number;
}

// Into a line that has the value already.
void AddTolerance(const Dimension& dimension, double value, DimensionLine* line) {
    switch (dimension.tolerance) {
        case PRO_TOL_PLUS_MINUS:
            line->upper = Deviation(dimension.upper);
            line->lower = Deviation(-dimension.lower);
            return;
        case PRO_TOL_PLUS_MINUS_SYM:
            line->before += "±" + ShortNumber(dimension.upper, kTolerancePlaces);
            return;
        case PRO_TOL_LIMITS:
            line->upper = ShortNumber(value + dimension.upper, kTolerancePlaces);
            line->lower = ShortNumber(value - dimension.lower, kTolerancePlaces);
            return;
        case PRO_TOL_DEFAULT: return;
    }
}

DimensionLine LineOf(const Dimension& dimension, const WideText& text, double value) {
    DimensionLine line;
    const std::size_t at = text.find(kValue);
    if (at == WideText::npos) {
        line.before = WithSigns(text);
        return line;
    }
    line.before = WithSigns(text.substr(0, at));
    // Limits are there in the place of the value.
    if (dimension.tolerance != PRO_TOL_LIMITS) line.before += ValueText(dimension, value);
    AddTolerance(dimension, value, &line);
    line.after = WithSigns(text.substr(at + kValue.size()));
    return line;
}

}  // namespace

std::string SignOf(char32_t letter) {
    for (const Sign& row : kSigns) {
        if (char32_t(row.letter) == letter) return row.sign;
    }
    return letter < 0x80 ? std::string(1, char(letter)) : std::string("?");
}

std::string WithSigns(const WideText& text) {
    std::string signs;
    WideText plain;
    const auto flush = [&] {
        signs += Utf8(plain);
        plain.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool symbol = text[i] == kBegin && i + 2 < text.size() && text[i + 2] == kEnd;
        if (!symbol) {
            plain += text[i];
            continue;
        }
        flush();
        signs += SignOf(char32_t(text[i + 1]));
        i += 2;
    }
    flush();
    return signs;
}

std::string ShortNumber(double value, int places) {
    std::string number = fmt::format("{:.{}f}", value, places);
    number.erase(number.find_last_not_of('0') + 1);
    if (number.back() == '.') number.pop_back();
    return number == "-0" ? "0" : number;
}

std::vector<DimensionLine> LinesOf(const Dimension& dimension, double value) {
    const std::vector<WideText> alone{WideText(kValue)};
    const bool own = dimension.text && !dimension.text->empty();
    std::vector<DimensionLine> lines;
    for (const WideText& text : own ? *dimension.text : alone) {
        lines.push_back(LineOf(dimension, text, value));
    }
    return lines;
}

std::string PlainText(const Dimension& dimension, double value) {
    std::string text;
    for (const DimensionLine& line : LinesOf(dimension, value)) {
        if (!text.empty()) text += " / ";
        text += line.before;
        if (!line.upper.empty()) text += fmt::format(" {}/{}", line.upper, line.lower);
        if (!line.upper.empty() && !line.after.empty()) text += ' ';
        text += line.after;
    }
    return text;
}

std::optional<std::vector<WideText>> UsualText(DimensionKind kind) {
    if (kind == DimensionKind::Radius) return {{WideText(WIDE("R@D"))}};
    if (kind != DimensionKind::Diameter) return std::nullopt;
    return {{WideText{kBegin, WideChar{'n'}, kEnd} + WideText(kValue)}};
}

}  // namespace simhost
