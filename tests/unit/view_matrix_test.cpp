// The arithmetic of view matrices, on matrices whose results were worked out by hand.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>

#include "drawing/view_matrix.h"

namespace {

using Rows = std::array<std::array<double, 3>, 3>;

const double kHalf = std::sqrt(0.5);

// A matrix with these rows, a scale and a place.
struct Matrix {
    ProMatrix m{};
    explicit Matrix(const Rows& rows, double scale = 1, double x = 0, double y = 0, double z = 0) {
        for (std::size_t row = 0; row < 3; ++row) {
            for (std::size_t column = 0; column < 3; ++column) {
                m[row][column] = scale * rows[row][column];
            }
        }
        const double place[] = {x, y, z, 1};
        for (std::size_t column = 0; column < 4; ++column) m[3][column] = place[column];
    }
    Rows Block() const {
        Rows rows{};
        for (std::size_t row = 0; row < 3; ++row) {
            for (std::size_t column = 0; column < 3; ++column) rows[row][column] = m[row][column];
        }
        return rows;
    }
};

Rows Snapped(const Rows& rows, double scale = 1) {
    Matrix matrix(rows, scale, 3, 4, 5);
    SnapToAxes(matrix.m);
    return matrix.Block();
}

constexpr Rows kIdentity = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

std::string Turns(int x, int y, int z) {
    const QuarterTurns turns = TurnsByExtent(x, y, z);
    std::string text;
    for (int i = 0; i < turns.count; ++i) text += char('X' + (turns.axes[i] - 101));
    return text;
}

// --- NormalizeTransform ---

TEST(NormalizeTransform, TakesScaleAndPlaceOut) {
    // Row 0 is 2.5 * (0.6, 0.8, 0).
    Matrix matrix({{{0.6, 0.8, 0}, {-0.8, 0.6, 0}, {0, 0, 1}}}, 2.5, 100, -20, 7);
    NormalizeTransform(matrix.m);
    const Rows expected = {{{0.6, 0.8, 0}, {-0.8, 0.6, 0}, {0, 0, 1}}};
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            EXPECT_NEAR(matrix.m[row][column], expected[row][column], 1e-15);
        }
        EXPECT_EQ(matrix.m[3][row], 0);
    }
    EXPECT_EQ(matrix.m[3][3], 1);
}

TEST(NormalizeTransform, MeasuresRowZeroOnly) {
    // Row 0 has the length 2, so row 1 of length 6 comes out with 3.
    Matrix matrix({{{0, 2, 0}, {6, 0, 0}, {0, 0, 2}}});
    NormalizeTransform(matrix.m);
    EXPECT_EQ(matrix.Block(), (Rows{{{0, 1, 0}, {3, 0, 0}, {0, 0, 1}}}));
}

TEST(NormalizeTransform, AScaleBelowOneIsTakenOutToo) {
    Matrix matrix({{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}, 0.5, 3, 4, 5);
    NormalizeTransform(matrix.m);
    EXPECT_EQ(matrix.Block(), (Rows{{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}));
}

TEST(NormalizeTransform, AMatrixOfZerosStaysOne) {
    ProMatrix zeros = {};
    NormalizeTransform(zeros);
    for (const auto& row : zeros) {
        for (const double element : row) EXPECT_EQ(element, 0);
    }
}

// --- SnapToAxes ---

TEST(SnapToAxes, AStraightViewStaysButForScaleAndPlace) {
    Matrix matrix({{{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}}, 7, 1, 2, 3);
    SnapToAxes(matrix.m);
    EXPECT_EQ(matrix.Block(), (Rows{{{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}}));
    const double place[] = {0, 0, 0, 1};
    for (std::size_t column = 0; column < 4; ++column)
        EXPECT_EQ(matrix.m[3][column], place[column]);
}

TEST(SnapToAxes, ASlightlyTurnedViewGoesBack) {
    // 10 degrees about z.
    const double c = std::cos(0.1745), s = std::sin(0.1745);
    EXPECT_EQ(Snapped({{{c, s, 0}, {-s, c, 0}, {0, 0, 1}}}, 3.5), kIdentity);
}

TEST(SnapToAxes, FortyFiveDegreesAboutZMoveTheEarlierRow) {
    // Rows 0 and 1 both take column 0 (their first element wins a tie), column 1 is left. Their
    // claims are equal, so row 0 moves, to +1 as its element there was positive.
    const Rows turned = {{{kHalf, kHalf, 0}, {-kHalf, kHalf, 0}, {0, 0, 1}}};
    EXPECT_EQ(Snapped(turned), (Rows{{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}));
}

TEST(SnapToAxes, FortyFiveDegreesTheOtherWayMoveTheEarlierRowToMinusOne) {
    const Rows turned = {{{kHalf, -kHalf, 0}, {kHalf, kHalf, 0}, {0, 0, 1}}};
    EXPECT_EQ(Snapped(turned), (Rows{{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}));
}

TEST(SnapToAxes, FortyFiveDegreesAboutXMoveRowOne) {
    // Rows 1 and 2 both take column 1; rows 0 and 1 differ there, rows 0 and 2 too.
    const Rows turned = {{{1, 0, 0}, {0, kHalf, kHalf}, {0, -kHalf, kHalf}}};
    EXPECT_EQ(Snapped(turned), (Rows{{{1, 0, 0}, {0, 0, 1}, {0, -1, 0}}}));
}

TEST(SnapToAxes, FortyFiveDegreesAboutYMoveRowZero) {
    const Rows turned = {{{kHalf, 0, -kHalf}, {0, 1, 0}, {kHalf, 0, kHalf}}};
    EXPECT_EQ(Snapped(turned), (Rows{{{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}}));
}

TEST(SnapToAxes, IsometricViewBecomesAnEvenPermutation) {
    // x (a, -b, c), y (a, b, -c), z (0, 2b, c): x and y both take column 0 with equal claims, z
    // takes column 1 and column 2 is left. Row 0 moves there, to +1 as c > 0.
    const double a = 1 / std::sqrt(2), b = 1 / std::sqrt(6), c = 1 / std::sqrt(3);
    const Rows isometric = {{{a, -b, c}, {a, b, -c}, {0, 2 * b, c}}};
    EXPECT_EQ(Snapped(isometric, 4), (Rows{{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}}));
}

TEST(SnapToAxes, TheRowWithTheWeakerClaimMoves) {
    // Both take column 0: row 0 with 0.8, row 1 with 0.7. The later one is weaker and moves; its
    // element in column 1 was negative.
    const Rows claims = {{{0.8, 0.6, 0}, {0.7, -0.69, 0}, {0, 0, 1}}};
    EXPECT_EQ(Snapped(claims), (Rows{{{1, 0, 0}, {0, -1, 0}, {0, 0, 1}}}));
    // The other way round the earlier one moves.
    const Rows other = {{{0.8, -0.6, 0}, {0.9, 0.43, 0}, {0, 0, 1}}};
    EXPECT_EQ(Snapped(other), (Rows{{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}}));
}

TEST(SnapToAxes, ClaimsThatDifferByLessThanTheToleranceAreATie) {
    // Row 0 is longer by 5e-6 only: a tie, so it moves all the same. With 2e-5 row 1 moves.
    const auto rows = [](double more) {
        const double first = kHalf + more, second = std::sqrt(1 - first * first);
        return Rows{{{first, second, 0}, {-kHalf, kHalf, 0}, {0, 0, 1}}};
    };
    EXPECT_EQ(Snapped(rows(5e-6)), (Rows{{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}}));
    EXPECT_EQ(Snapped(rows(2e-5)), (Rows{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}));
}

TEST(SnapToAxes, ALaterElementWinsOnlyByMoreThanTheTolerance) {
    const auto rows = [](double more) {
        return Rows{{{kHalf, kHalf + more, 0}, {0.7, 0.69, 0}, {0, 0, 1}}};
    };
    // By 1e-9: row 0 takes column 0, as row 1 does with the weaker claim: row 1 moves.
    EXPECT_EQ(Snapped(rows(1e-9)), kIdentity);
    // By 1e-7: row 0 takes column 1, and nothing has to move.
    EXPECT_EQ(Snapped(rows(1e-7)), (Rows{{{0, 1, 0}, {1, 0, 0}, {0, 0, 1}}}));
}

TEST(SnapToAxes, AMatrixOfZerosMovesNoRow) {
    // Each row's first element is the largest and not above 0. Column 0 then has three claims,
    // which is not the crowd of two that lets a row move.
    EXPECT_EQ(Snapped({}), (Rows{{{-1, 0, 0}, {-1, 0, 0}, {-1, 0, 0}}}));
}

TEST(SnapToAxes, AnyRotationBecomesOneThatTakesAxesToAxes) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> angle(-3.14159, 3.14159);
    for (int i = 0; i < 2000; ++i) {
        const double a = angle(random), b = angle(random), c = angle(random);
        const double ca = std::cos(a), sa = std::sin(a), cb = std::cos(b), sb = std::sin(b);
        const double cc = std::cos(c), sc = std::sin(c);
        const Rows rows = {{{cb * cc, cb * sc, -sb},
                            {sa * sb * cc - ca * sc, sa * sb * sc + ca * cc, sa * cb},
                            {ca * sb * cc + sa * sc, ca * sb * sc - sa * cc, ca * cb}}};
        const Rows snapped = Snapped(rows, 1.7);
        for (std::size_t k = 0; k < 3; ++k) {
            double inRow = 0, inColumn = 0;
            for (std::size_t j = 0; j < 3; ++j) {
                inRow += std::fabs(snapped[k][j]);
                inColumn += std::fabs(snapped[j][k]);
                EXPECT_TRUE(snapped[k][j] == 0 || std::fabs(snapped[k][j]) == 1);
            }
            EXPECT_EQ(inRow, 1) << i;
            EXPECT_EQ(inColumn, 1) << i;
        }
        const auto& [x, y, z] = snapped;
        const double volume = x[0] * (y[1] * z[2] - y[2] * z[1]) +
                              x[1] * (y[2] * z[0] - y[0] * z[2]) +
                              x[2] * (y[0] * z[1] - y[1] * z[0]);
        EXPECT_EQ(volume, 1) << "mirrored, rotation " << i;
    }
}

// --- TurnsByExtent ---

TEST(TurnsByExtent, EachOrderOfTheExtentsHasItsTurns) {
    EXPECT_EQ(Turns(30, 20, 10), "");
    EXPECT_EQ(Turns(30, 10, 20), "X");
    EXPECT_EQ(Turns(10, 20, 30), "Y");
    EXPECT_EQ(Turns(20, 10, 30), "XZ");
    EXPECT_EQ(Turns(10, 30, 20), "ZX");
    EXPECT_EQ(Turns(20, 30, 10), "Z");
}

TEST(TurnsByExtent, EqualExtentsTakeTheFirstTestThatHolds) {
    EXPECT_EQ(Turns(10, 10, 10), "");
    EXPECT_EQ(Turns(20, 10, 10), "");
    EXPECT_EQ(Turns(20, 20, 10), "");
    EXPECT_EQ(Turns(20, 10, 20), "X");   // x >= z and z >= y
    EXPECT_EQ(Turns(10, 20, 20), "Y");   // z > x, z >= y, y >= x
    EXPECT_EQ(Turns(10, 10, 20), "Y");   // y >= x holds before x >= y is asked
    EXPECT_EQ(Turns(10, 20, 10), "ZX");  // y >= z, z >= x
    EXPECT_EQ(Turns(0, 0, 0), "");
}

// --- WholeExtent ---

TEST(WholeExtent, FractionsAreCutOff) {
    EXPECT_EQ(WholeExtent(0, 10.9), 10);
    EXPECT_EQ(WholeExtent(-3.5, 6.6), 10);
    EXPECT_EQ(WholeExtent(0, -10.9), -10);
    EXPECT_EQ(WholeExtent(2, 2), 0);
}

TEST(WholeExtent, WhatNoIntHoldsIsClamped) {
    EXPECT_EQ(WholeExtent(0, 1e300), std::numeric_limits<int>::max());
    EXPECT_EQ(WholeExtent(1e300, 0), -std::numeric_limits<int>::max());
    EXPECT_EQ(WholeExtent(0, std::nan("")), 0);
}

}  // namespace
