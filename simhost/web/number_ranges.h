// Whole numbers in few words: "1-3,7".
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace simhost {

// The numbers that a page says it has. What cannot be read ends them, and those before it count; a
// range that goes down holds none.
class NumberRanges {
public:
    explicit NumberRanges(std::string_view text);
    bool Contains(std::uint32_t number) const;

private:
    std::vector<std::pair<std::uint32_t, std::uint32_t>> ranges_;  // first and last
};

}  // namespace simhost
