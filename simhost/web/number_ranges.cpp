// Reads ranges of numbers; nothing is as large as what they say.
#include "simhost/web/number_ranges.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace simhost {
namespace {

std::optional<std::uint32_t> TakeNumber(std::string_view* text) {
    std::uint32_t number = 0;
    const auto parsed = std::from_chars(text->data(), text->data() + text->size(), number);
    if (parsed.ec != std::errc()) return std::nullopt;
    text->remove_prefix(std::size_t(parsed.ptr - text->data()));
    return number;
}

bool Take(std::string_view* text, char sign) {
    if (!text->starts_with(sign)) return false;
    text->remove_prefix(1);
    return true;
}

}  // namespace

NumberRanges::NumberRanges(std::string_view text) {
    do {
        const auto first = TakeNumber(&text);
        const auto last = first && Take(&text, '-') ? TakeNumber(&text) : first;
        if (!last) return;
        ranges_.emplace_back(*first, *last);
    } while (Take(&text, ','));
}

bool NumberRanges::Contains(std::uint32_t number) const {
    return std::any_of(ranges_.begin(), ranges_.end(), [&](const auto& range) {
        return range.first <= number && number <= range.second;
    });
}

}  // namespace simhost
