// The text of a model's outline size.
#include "modeldata/outline_text.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "frame/services.h"

namespace {

// More decimals than a text of six digits could ever show.
constexpr int kMostDecimalPlaces = 30;
constexpr int kSignificantDigits = 6;

// The axes in the order of the tests; the first that holds decides.
using Order = std::array<std::size_t, 3>;
constexpr Order kOrders[] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};

Order LargestFirst(const OutlineExtents& d) {
    for (const Order& order : kOrders) {
        if (d[order[0]] >= d[order[1]] && d[order[1]] >= d[order[2]]) return order;
    }
    return kOrders[0];
}

}  // namespace

WideText ExtentText(double extent, int decimalPlaces) {
    // Room for the largest double with all its digits.
    char buffer[400];
    char* const limit = buffer + sizeof buffer;
    const char* end =
        std::to_chars(buffer, limit, extent, std::chars_format::fixed, decimalPlaces).ptr;
    double rounded = 0;
    std::from_chars(buffer, end, rounded);
    end = std::to_chars(buffer, limit, rounded, std::chars_format::general, kSignificantDigits).ptr;
    return WideText(static_cast<const char*>(buffer), end);
}

WideText OutlineText(const OutlineExtents& extents, int decimalPlaces, OutlineOrder order) {
    WideText text;
    for (const std::size_t axis :
         order == OutlineOrder::LargestFirst ? LargestFirst(extents) : kOrders[0]) {
        if (!text.empty()) text += WIDE("×");
        text += ExtentText(extents[axis], decimalPlaces);
    }
    return text;
}

int DecimalPlaces(WideView text) {
    return std::clamp(WholeNumber(text), 0, kMostDecimalPlaces);
}
