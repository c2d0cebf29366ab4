// The numbers of meshes that a page has, as it writes them.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simhost/web/number_ranges.h"

namespace {

using Numbers = std::vector<std::uint32_t>;

// Those from 0 to 12 that a text holds.
Numbers SmallOnes(std::string_view text) {
    const simhost::NumberRanges ranges(text);
    Numbers found;
    for (std::uint32_t number = 0; number <= 12; ++number) {
        if (ranges.Contains(number)) found.push_back(number);
    }
    return found;
}

TEST(NumberRanges, HoldSingleNumbersAndBothEndsOfARange) {
    EXPECT_EQ(SmallOnes("7"), Numbers{7});
    EXPECT_EQ(SmallOnes("2-4"), (Numbers{2, 3, 4}));
    EXPECT_EQ(SmallOnes("0,2-4,6-6,11"), (Numbers{0, 2, 3, 4, 6, 11}));
    EXPECT_EQ(SmallOnes(""), Numbers{});
}

TEST(NumberRanges, EndWhereTheyCannotBeRead) {
    for (const char* rest : {",", ",x", ",-3", ", 3", ",3-", ",3-x", ";3", "x,3", ",99999999999"}) {
        EXPECT_EQ(SmallOnes("1" + std::string(rest)), Numbers{1}) << rest;
    }
    EXPECT_EQ(SmallOnes("x"), Numbers{});
    EXPECT_EQ(SmallOnes("5-"), Numbers{}) << "half a range is none";
}

TEST(NumberRanges, OneThatGoesDownHoldsNoneAndOthersStay) {
    EXPECT_EQ(SmallOnes("5-3,8"), Numbers{8});
}

TEST(NumberRanges, MayHoldAllThereAre) {
    const simhost::NumberRanges all("0-4294967295");
    EXPECT_TRUE(all.Contains(0));
    EXPECT_TRUE(all.Contains(UINT32_MAX));
}

}  // namespace
