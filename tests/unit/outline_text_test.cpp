// The text of a model's outline size.
#include <gtest/gtest.h>

#include "modeldata/outline_text.h"

namespace {

TEST(ExtentText, DropsTrailingZerosAndKeepsSixDigits) {
    EXPECT_EQ(ExtentText(12.5, 3), WIDE("12.5"));
    EXPECT_EQ(ExtentText(1234.568, 3), WIDE("1234.57"));
    EXPECT_EQ(ExtentText(1000000, 3), WIDE("1e+06"));
    EXPECT_EQ(ExtentText(123456.7, 1), WIDE("123457"));
    EXPECT_EQ(ExtentText(0.00001234, 8), WIDE("1.234e-05"));
    EXPECT_EQ(ExtentText(0, 2), WIDE("0"));
}

TEST(ExtentText, RoundsAtTheDecimalPlacesFirst) {
    EXPECT_EQ(ExtentText(12.6, 0), WIDE("13"));
    // 0.449 is 0.4 with one place; in one step of six digits it would stay 0.449.
    EXPECT_EQ(ExtentText(0.449, 1), WIDE("0.4"));
    EXPECT_EQ(ExtentText(99.96, 1), WIDE("100"));
}

TEST(ExtentText, BearsTheLargestNumbersAndPlaces) {
    EXPECT_EQ(ExtentText(1.7e308, 30), WIDE("1.7e+308"));
}

TEST(DecimalPlaces, UnreadableAndNegativeTextsAreZeroAndHugeOnesAreBounded) {
    EXPECT_EQ(DecimalPlaces(WIDE("3")), 3);
    EXPECT_EQ(DecimalPlaces(WIDE("2 dp")), 2);
    EXPECT_EQ(DecimalPlaces(WIDE("")), 0);
    EXPECT_EQ(DecimalPlaces(WIDE("two")), 0);
    EXPECT_EQ(DecimalPlaces(WIDE("-4")), 0);
    EXPECT_EQ(DecimalPlaces(WIDE("99999999999999")), 30);
}

TEST(OutlineText, OrdersLargestFirstOrAsModelled) {
    const OutlineExtents extents{30, 120, 80};
    EXPECT_EQ(OutlineText(extents, 1, OutlineOrder::LargestFirst), WIDE("120×80×30"));
    EXPECT_EQ(OutlineText(extents, 1, OutlineOrder::AsModelled), WIDE("30×120×80"));
}

TEST(OutlineText, OrdersByTheUnroundedExtents) {
    // Both are 10 with no places, yet y is the larger one.
    EXPECT_EQ(OutlineText({9.6, 10.4, 5}, 0, OutlineOrder::LargestFirst), WIDE("10×10×5"));
    // x first among equals; then z = 1.04 before y = 1.0 although both show as 1.
    EXPECT_EQ(OutlineText({2.25, 1.0, 1.04}, 2, OutlineOrder::LargestFirst), WIDE("2.25×1.04×1"));
    EXPECT_EQ(OutlineText({50, 100, 100}, 0, OutlineOrder::LargestFirst), WIDE("100×100×50"));
}

TEST(OutlineText, EachOfTheSixOrdersCanBeTheOneFromTheLargest) {
    for (const OutlineExtents& extents :
         {OutlineExtents{9, 6, 3}, OutlineExtents{9, 3, 6}, OutlineExtents{6, 9, 3},
          OutlineExtents{3, 9, 6}, OutlineExtents{6, 3, 9}, OutlineExtents{3, 6, 9}}) {
        EXPECT_EQ(OutlineText(extents, 0, OutlineOrder::LargestFirst), WIDE("9×6×3"));
    }
}

TEST(OutlineText, TwoThatAreEqualAreInOrderWhereverTheThirdIs) {
    for (const OutlineExtents& extents :
         {OutlineExtents{9, 3, 3}, OutlineExtents{3, 9, 3}, OutlineExtents{3, 3, 9}}) {
        EXPECT_EQ(OutlineText(extents, 0, OutlineOrder::LargestFirst), WIDE("9×3×3"));
    }
    for (const OutlineExtents& extents :
         {OutlineExtents{9, 9, 3}, OutlineExtents{9, 3, 9}, OutlineExtents{3, 9, 9}}) {
        EXPECT_EQ(OutlineText(extents, 0, OutlineOrder::LargestFirst), WIDE("9×9×3"));
    }
}

}  // namespace
