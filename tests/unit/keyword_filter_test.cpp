// The keywords with which a designer leaves models out of a batch.
#include <gtest/gtest.h>

#include "modeldata/keyword_filter.h"

namespace {

using Pieces = std::vector<WideText>;

TEST(SplitText, DropsEmptyPiecesAndKeepsEverythingElse) {
    EXPECT_EQ(SplitText(WIDE("a=1\n\n\n\nb=2"), '\n'), (Pieces{WIDE("a=1"), WIDE("b=2")}));
    EXPECT_EQ(SplitText(WIDE("\n a \r\nb\n"), '\n'), (Pieces{WIDE(" a \r"), WIDE("b")}));
    EXPECT_EQ(SplitText(WIDE(""), '\n'), Pieces{});
    EXPECT_EQ(SplitText(WIDE(",,,"), ','), Pieces{});
}

TEST(KeywordFilter, TakesPlainAndFullWidthCommas) {
    EXPECT_EQ(KeywordFilter::FromText(WIDE("A，B,,C")).keywords,
              (Pieces{WIDE("A"), WIDE("B"), WIDE("C")}));
    EXPECT_EQ(KeywordFilter::FromText(WIDE(",，,")).keywords, Pieces{});
}

TEST(KeywordFilter, ExcludesByTheBeginningOfTheNameIgnoringCase) {
    const auto filter = KeywordFilter::FromText(WIDE("ABC,螺"));
    EXPECT_TRUE(filter.Excludes(WIDE("abc_01")));
    EXPECT_TRUE(filter.Excludes(WIDE("ABC")));
    EXPECT_TRUE(filter.Excludes(WIDE("螺母")));
    EXPECT_FALSE(filter.Excludes(WIDE("x_abc")));
    EXPECT_FALSE(filter.Excludes(WIDE("AB")));
    EXPECT_FALSE(filter.Excludes(WIDE("")));
}

TEST(KeywordFilter, KeepsBlanksInsideAKeyword) {
    const auto filter = KeywordFilter::FromText(WIDE(" A"));
    EXPECT_FALSE(filter.Excludes(WIDE("A1")));
    EXPECT_TRUE(filter.Excludes(WIDE(" a1")));
}

TEST(KeywordFilter, WithoutKeywordsExcludesNothing) {
    EXPECT_FALSE(KeywordFilter::FromText(WIDE("")).Excludes(WIDE("A")));
}

}  // namespace
