// Numbers, fixed records and the listing of components: the text side of the batch commands.
#include <gtest/gtest.h>

#include "frame/services/component_tree.h"
#include "frame/services/fixed_text.h"
#include "frame/services/numbers.h"
#include "frame/services/parameters.h"
#include "modeldata/sheet_size.h"

namespace {

TEST(WholeNumber, ReadsLeadingDigitsAndGivesZeroForTheRest) {
    EXPECT_EQ(WholeNumber(WIDE("42")), 42);
    EXPECT_EQ(WholeNumber(WIDE("  -7mm")), -7);
    EXPECT_EQ(WholeNumber(WIDE("+5")), 5);
    EXPECT_EQ(WholeNumber(WIDE("3.9")), 3);
    EXPECT_EQ(WholeNumber(WIDE("")), 0);
    EXPECT_EQ(WholeNumber(WIDE("四")), 0);
    EXPECT_EQ(WholeNumber(WIDE("+-5")), 0);
    EXPECT_EQ(WholeNumber(WIDE("99999999999")), 2147483647);
    EXPECT_EQ(WholeNumber(WIDE("-99999999999")), -2147483647 - 1);
}

TEST(RealNumber, ReadsADecimalNumberAndGivesZeroForTheRest) {
    EXPECT_EQ(RealNumber(WIDE("12.5")), 12.5);
    EXPECT_EQ(RealNumber(WIDE(" +1e3x")), 1000);
    EXPECT_EQ(RealNumber(WIDE("-.5")), -0.5);
    EXPECT_EQ(RealNumber(WIDE("1,5")), 1);
    EXPECT_EQ(RealNumber(WIDE("abc")), 0);
    EXPECT_EQ(RealNumber(WIDE("inf")), 0);
}

TEST(PutText, CutsWhatDoesNotFitAtAWholeCharacter) {
    WideChar record[4];
    PutText(WIDE("abcdef"), record);
    EXPECT_EQ(TextIn(record), WIDE("abc"));
    // The third place would hold half of a character outside the basic plane.
    PutText(WIDE("ab\U00020000"), record);
    EXPECT_EQ(TextIn(record), WIDE("ab"));
    PutText(WIDE("a\U00020000"), record);
    EXPECT_EQ(TextIn(record), WIDE("a\U00020000"));
    PutText(WIDE(""), record);
    EXPECT_EQ(TextIn(record), WIDE(""));
}

TEST(TextIn, ReadsARecordThatIsFilledToItsLastPlace) {
    const WideChar record[] = {'A', 'B', 'C'};
    EXPECT_EQ(TextIn(record), WIDE("ABC"));
}

TEST(TextValue, HoldsAtMostEightyCharacters) {
    const ProParamvalue value = TextValue(WideText(100, 'x'));
    EXPECT_EQ(value.type, PRO_PARAM_STRING);
    EXPECT_EQ(TextIn(value.value.s_val), WideText(80, 'x'));
}

TEST(SheetSizeText, JoinsByCommasWithoutOneAtTheEnd) {
    EXPECT_EQ(SheetSizeText({WIDE("A3")}), WIDE("A3"));
    EXPECT_EQ(SheetSizeText({WIDE("A3"), WIDE("A4")}), WIDE("A3,A4"));
    EXPECT_EQ(SheetSizeText({}), WIDE(""));
    EXPECT_EQ(SheetSizeText({WIDE("")}), WIDE(""));
}

TEST(TakeTreeLine, TakesTheModelTheIdAfterTheFirstColonAndTheDepthAfterTheLast) {
    WideView listing = WIDE("TOP.ASM:41:0\n\nno line\nC.PRT:9\nB.PRT:3:-1\nA.PRT:7:1");
    TreeLine line;
    ASSERT_TRUE(TakeTreeLine(&listing, &line));
    EXPECT_EQ(line.model, WIDE("TOP.ASM"));
    EXPECT_EQ(line.id, 41);
    EXPECT_EQ(line.depth, 0);
    ASSERT_TRUE(TakeTreeLine(&listing, &line)) << "what no component can have is passed over";
    EXPECT_EQ(line.model, WIDE("A.PRT"));
    EXPECT_EQ(line.id, 7);
    EXPECT_EQ(line.depth, 1);
    EXPECT_FALSE(TakeTreeLine(&listing, &line));
}

}  // namespace
