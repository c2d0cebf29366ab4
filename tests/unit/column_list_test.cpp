// Column lists: what is between the commas of a setting, and where a blank ends it.
#include <gtest/gtest.h>

#include "frame/services/column_list.h"

namespace {

using Items = std::vector<WideText>;

TEST(ColumnList, IsCutAtPlainAndFullWidthCommas) {
    EXPECT_EQ(SplitColumnList(WIDE("材料,重量，数量")),
              (Items{WIDE("材料"), WIDE("重量"), WIDE("数量")}));
    EXPECT_EQ(SplitColumnList(WIDE("one")), Items{WIDE("one")});
}

TEST(ColumnList, HasNoEmptyItemsBetweenOrBehindCommas) {
    EXPECT_EQ(SplitColumnList(WIDE("")), Items{});
    EXPECT_EQ(SplitColumnList(WIDE(",，,")), Items{});
    EXPECT_EQ(SplitColumnList(WIDE("a,,b,")), (Items{WIDE("a"), WIDE("b")}));
    EXPECT_EQ(SplitColumnList(WIDE(",a")), Items{WIDE("a")});
}

TEST(ColumnList, EndsAtItsFirstBlankWithWhatStandsBeforeIt) {
    EXPECT_EQ(SplitColumnList(WIDE("长度,宽 度,高度")), (Items{WIDE("长度"), WIDE("宽")}));
    EXPECT_EQ(SplitColumnList(WIDE("a,b ")), (Items{WIDE("a"), WIDE("b")}));
    EXPECT_EQ(SplitColumnList(WIDE("a b c")), Items{WIDE("a")});
}

TEST(ColumnList, HasALastItemWithoutATextWhereTheBlankFollowsAComma) {
    EXPECT_EQ(SplitColumnList(WIDE("长度, 宽度")), (Items{WIDE("长度"), WIDE("")}));
    EXPECT_EQ(SplitColumnList(WIDE("a, ")), (Items{WIDE("a"), WIDE("")}));
    EXPECT_EQ(SplitColumnList(WIDE("a， b,c")), (Items{WIDE("a"), WIDE("")}));
    EXPECT_EQ(SplitColumnList(WIDE(" a,b")), Items{WIDE("")});
    EXPECT_EQ(SplitColumnList(WIDE(" ")), Items{WIDE("")});
}

TEST(ColumnList, KeepsTabsAndWideBlanks) {
    EXPECT_EQ(SplitColumnList(WIDE("a\tb,c　d")), (Items{WIDE("a\tb"), WIDE("c　d")}));
}

}  // namespace
