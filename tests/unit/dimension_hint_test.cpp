// Which way a dimension between two points runs, at the very borders between one way and another.
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "drawing/dimension_hint.h"

namespace {

using Point = std::array<double, 3>;

constexpr int kUpwards = 1, kAcross = 2, kStraight = 3;
constexpr int kBefore = 7;  // a hint that none of the rules gives

int HintOf(const Point& first, const Point& second, double x, double y) {
    const Point click = {x, y, 0};
    return OrientationHint(first.data(), second.data(), click.data(), kBefore);
}

TEST(OrientationHint, AHundredthInsideABorderIsNotInsideYet) {
    // Each border is at 0 or at 0.01, so that the distance of the click is 0.01 to the last bit.
    EXPECT_EQ(HintOf({0, -1, 0}, {1, 1, 0}, 0.01, 0), kBefore);
    EXPECT_EQ(HintOf({-1, -1, 0}, {0.01, 1, 0}, 0, 0), kBefore);
    EXPECT_EQ(HintOf({-1, 0, 0}, {1, 1, 0}, 0, 0.01), kBefore);
    EXPECT_EQ(HintOf({-1, -1, 0}, {1, 0.01, 0}, 0, 0), kBefore);
    // A little more is.
    EXPECT_EQ(HintOf({0, -1, 0}, {1, 1, 0}, 0.011, 0), kStraight);
    EXPECT_EQ(HintOf({-1, -1, 0}, {0.011, 1, 0}, 0, 0), kStraight);
    EXPECT_EQ(HintOf({-1, 0, 0}, {1, 1, 0}, 0, 0.011), kStraight);
    EXPECT_EQ(HintOf({-1, -1, 0}, {1, 0.011, 0}, 0, 0), kStraight);
}

TEST(OrientationHint, AHundredthBeyondABorderIsNotBeyondYet) {
    EXPECT_EQ(HintOf({-1, -1, 0}, {1, 0, 0}, 0, 0.01), kBefore);
    EXPECT_EQ(HintOf({-1, 0.01, 0}, {1, 1, 0}, 0, 0), kBefore);
    EXPECT_EQ(HintOf({-1, -1, 0}, {0, 1, 0}, 0.01, 0), kBefore);
    EXPECT_EQ(HintOf({0.01, -1, 0}, {1, 1, 0}, 0, 0), kBefore);
    // A little more is.
    EXPECT_EQ(HintOf({-1, -1, 0}, {1, 0, 0}, 0, 0.011), kAcross);
    EXPECT_EQ(HintOf({-1, 0.011, 0}, {1, 1, 0}, 0, 0), kAcross);
    EXPECT_EQ(HintOf({-1, -1, 0}, {0, 1, 0}, 0.011, 0), kUpwards);
    EXPECT_EQ(HintOf({0.011, -1, 0}, {1, 1, 0}, 0, 0), kUpwards);
}

// Then the range runs backwards: its upper end is the second coordinate, the smaller one.
TEST(OrientationHint, AFirstCoordinateLargerByAThousandthStillCountsAsTheSmaller) {
    EXPECT_EQ(HintOf({-1, 0.001, 0}, {1, 0, 0}, 0, 0.0105), kAcross) << "0.0105 above 0";
    EXPECT_EQ(HintOf({-1, 0.0011, 0}, {1, 0, 0}, 0, 0.0105), kBefore) << "0.0094 above 0.0011";
    EXPECT_EQ(HintOf({0.001, -1, 0}, {0, 1, 0}, 0.0105, 0), kUpwards);
    EXPECT_EQ(HintOf({0.0011, -1, 0}, {0, 1, 0}, 0.0105, 0), kBefore);
}

TEST(OrientationHint, OneCoordinateOfExactlyAThousandthMakesThePointsKnown) {
    const Point unknown = {-5, 0, 0.0009};
    // The click is above both points, whichever of them they are.
    EXPECT_EQ(HintOf(unknown, unknown, 0, 9), kBefore);
    for (const Point& known : std::vector<Point>{{0.001, 0, 0}, {0, 0.001, 0}, {0, 0, 0.001}}) {
        EXPECT_EQ(HintOf(known, unknown, 0, 9), kAcross) << known[0] << ' ' << known[1];
        EXPECT_EQ(HintOf(unknown, known, 0, 9), kAcross) << known[0] << ' ' << known[1];
    }
    for (const Point& less : std::vector<Point>{{0.0009, 0, 0}, {0, 0.0009, 0}, {0, 0, 0.0009}}) {
        EXPECT_EQ(HintOf(less, unknown, 0, 9), kBefore) << less[0] << ' ' << less[1];
    }
}

}  // namespace
