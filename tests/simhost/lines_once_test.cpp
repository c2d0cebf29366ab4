// Lines of a sheet that lie on one another: what is left of them.
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <vector>

#include "simhost/picture/lines_once.h"

namespace simhost {

// For messages of tests.
static void PrintTo(const DrawnLine& line, std::ostream* out) {
    *out << '(' << line.x0 << ' ' << line.y0 << ") - (" << line.x1 << ' ' << line.y1 << ')'
         << (line.hidden ? " hidden" : "");
}
static bool operator==(const DrawnLine& a, const DrawnLine& b) {
    constexpr double kNear = 1e-9;
    return std::fabs(a.x0 - b.x0) < kNear && std::fabs(a.y0 - b.y0) < kNear &&
           std::fabs(a.x1 - b.x1) < kNear && std::fabs(a.y1 - b.y1) < kNear && a.hidden == b.hidden;
}

}  // namespace simhost

namespace {

using namespace simhost;
using Drawn = std::vector<DrawnLine>;

constexpr bool kSeen = false, kUnseen = true;

Drawn OnceOf(Drawn lines) {
    KeepEachLineOnce(&lines);
    return lines;
}

TEST(LinesOnce, TheSameLineInEitherDirectionIsDrawnOnce) {
    const Drawn lines = {{0, 0, 30, 40, kSeen}, {30, 40, 0, 0, kSeen}, {0, 0, 30, 40, kSeen}};
    EXPECT_EQ(OnceOf(lines), (Drawn{{0, 0, 30, 40, kSeen}}));
}

TEST(LinesOnce, AHiddenLineUnderAVisibleOneIsGoneWhicheverComesFirst) {
    EXPECT_EQ(OnceOf({{0, 0, 10, 0, kUnseen}, {0, 0, 10, 0, kSeen}}),
              (Drawn{{0, 0, 10, 0, kSeen}}));
    EXPECT_EQ(OnceOf({{0, 0, 10, 0, kSeen}, {2, 0, 7, 0, kUnseen}}), (Drawn{{0, 0, 10, 0, kSeen}}));
}

// Hidden from 0 to 100, seen from 20 to 30, 60 to 70 and (against the hidden one) 100 to 90.
TEST(LinesOnce, OfAHiddenLineOnlyWhatNoVisibleOneCoversIsLeft) {
    const Drawn lines = {{0, 5, 100, 5, kUnseen},
                         {20, 5, 30, 5, kSeen},
                         {60, 5, 70, 5, kSeen},
                         {100, 5, 90, 5, kSeen}};
    const Drawn expected = {{0, 5, 20, 5, kUnseen},  {30, 5, 60, 5, kUnseen},
                            {70, 5, 90, 5, kUnseen}, {20, 5, 30, 5, kSeen},
                            {60, 5, 70, 5, kSeen},   {100, 5, 90, 5, kSeen}};
    EXPECT_EQ(OnceOf(lines), expected);
}

TEST(LinesOnce, ThePiecesOfALineThatRunsBackwardsFollowIt) {
    EXPECT_EQ(OnceOf({{100, 5, 0, 5, kUnseen}, {40, 5, 60, 5, kSeen}}),
              (Drawn{{100, 5, 60, 5, kUnseen}, {40, 5, 0, 5, kUnseen}, {40, 5, 60, 5, kSeen}}));
}

TEST(LinesOnce, LinesThatOverlapBecomeOneInTheDirectionOfTheFirst) {
    EXPECT_EQ(OnceOf({{0, 50, 0, 20, kSeen}, {0, 0, 0, 30, kSeen}}), (Drawn{{0, 50, 0, 0, kSeen}}));
    EXPECT_EQ(OnceOf({{0, 0, 0, 30, kUnseen}, {0, 50, 0, 20, kUnseen}, {0, 60, 0, 40, kUnseen}}),
              (Drawn{{0, 0, 0, 60, kUnseen}}));
}

TEST(LinesOnce, LinesThatMeetEndToEndStayTwo) {
    const Drawn lines = {{0, 0, 10, 0, kSeen}, {10, 0, 20, 0, kSeen}, {20, 0, 20, 5, kSeen}};
    EXPECT_EQ(OnceOf(lines), lines);
}

// Beside each other by more than pictures tell, by less, and at an angle.
TEST(LinesOnce, OnlyLinesThatNobodyCouldTellApartAreOne) {
    const Drawn apart = {{0, 0, 10, 0, kSeen}, {0, 0.02, 10, 0.02, kSeen}};
    EXPECT_EQ(OnceOf(apart), apart);
    EXPECT_EQ(OnceOf({{0, 0, 10, 0, kSeen}, {0, 0.005, 10, 0.005, kUnseen}}).size(), 1u);
    const Drawn askew = {{0, 0, 10, 0, kSeen}, {0, 0, 10, 0.001, kSeen}};
    EXPECT_EQ(OnceOf(askew), askew);
    const Drawn onOneLineApart = {{0, 0, 10, 0, kUnseen}, {20, 0, 30, 0, kSeen}};
    EXPECT_EQ(OnceOf(onOneLineApart), onOneLineApart);
}

// The last digits of a level line may point a little up or down, and its sense is either.
TEST(LinesOnce, TheLastDigitsOfLevelAndUprightLinesDoNotMatter) {
    const double least = 1e-13;
    EXPECT_EQ(OnceOf({{0, 7, 10, 7 + least, kSeen},
                      {0, 7 + least, 10, 7, kUnseen},
                      {10, 7, 0, 7 + least, kUnseen},
                      {10, 7 + least, 0, 7, kSeen}})
                  .size(),
              1u);
    EXPECT_EQ(OnceOf({{3, 0, 3 + least, 8, kSeen}, {3 + least, 0, 3, 8, kUnseen}}).size(), 1u);
}

TEST(LinesOnce, ALineWithoutLengthIsGone) {
    EXPECT_EQ(OnceOf({{3, 3, 3, 3, kSeen}, {0, 0, 1, 0, kSeen}}), (Drawn{{0, 0, 1, 0, kSeen}}));
    EXPECT_TRUE(OnceOf({}).empty());
}

// A circle of 48 lines twice, seen and hidden, and turned so that each has its own direction.
TEST(LinesOnce, ACircleKeepsItsOrderSoThatItCanBeDrawnInOneStroke) {
    Drawn circle;
    const auto at = [](int i) { return 2 * 3.14159265358979323846 * (i + 0.3) / 48; };
    circle.reserve(96);
    for (int i = 0; i < 48; ++i) {
        circle.push_back({10 * std::cos(at(i)), 10 * std::sin(at(i)), 10 * std::cos(at(i + 1)),
                          10 * std::sin(at(i + 1)), kSeen});
    }
    Drawn both = circle;
    for (DrawnLine line : circle) {
        line.hidden = kUnseen;
        both.push_back(line);
    }
    EXPECT_EQ(OnceOf(both), circle);
}

}  // namespace
