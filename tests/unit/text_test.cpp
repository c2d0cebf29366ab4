// Text between the plug-in and the host: widening, narrowing, and the two edits that settings and
// paths need.
#include "frame/services/text.h"
#include "tests/support/workbench.h"

namespace {

using workbench::Workbench;

class Text : public Workbench {};

TEST_F(Text, IsWidenedFromTheSystemCodePage) {
    EXPECT_EQ(Widen("VxInit.res"), WIDE("VxInit.res"));
    EXPECT_EQ(Widen("\xCF\xEE\xC4\xBF 7"), WIDE("项目 7"));
    EXPECT_EQ(Widen(""), WIDE(""));
    EXPECT_EQ(Widen(nullptr), WIDE(""));
}

TEST_F(Text, IsNarrowedToTheSystemCodePage) {
    EXPECT_EQ(Narrow(WIDE("VxInit.res")), "VxInit.res");
    EXPECT_EQ(Narrow(WIDE("项目 7")), "\xCF\xEE\xC4\xBF 7");
    EXPECT_EQ(Narrow(WIDE("")), "");
}

TEST_F(Text, OfAnyLengthHasRoom) {
    const std::string narrow(100'000, 'x');
    EXPECT_EQ(Widen(narrow.c_str()).size(), narrow.size());
    const WideText wide(100'000, WideChar{0x9879});  // two bytes each
    EXPECT_EQ(Narrow(wide).size(), 2 * wide.size());
}

TEST_F(Text, ThatCannotBeConvertedIsEmpty) {
    Fail("ProStringToWstring");
    EXPECT_EQ(Widen("text"), WIDE(""));
    Fail("ProWstringToString");
    EXPECT_EQ(Narrow(WIDE("text")), "");
}

TEST_F(Text, WithoutCharactersOfTheCodePageIsNarrowedToQuestionMarks) {
    EXPECT_EQ(Narrow(WIDE("a\u0E01b")), "a?b");  // a Thai letter
}

TEST(Blanks, AreDeletedAlsoInside) {
    EXPECT_EQ(DeleteBlanks(WIDE(" 1 ")), WIDE("1"));
    EXPECT_EQ(DeleteBlanks(WIDE("  as  UG ")), WIDE("asUG"));
    EXPECT_EQ(DeleteBlanks(WIDE("   ")), WIDE(""));
    EXPECT_EQ(DeleteBlanks(WIDE("")), WIDE(""));
}

TEST(Blanks, AreNoOtherWhiteSpace) {
    // A tab, a line end, a fixed blank and the wide blank stay.
    EXPECT_EQ(DeleteBlanks(WIDE("\t1\n\u00A0\u3000")), WIDE("\t1\n\u00A0\u3000"));
}

TEST(Replacing, TakesEveryOccurrence) {
    EXPECT_EQ(ReplaceAll(WIDE("a.dll\\b\\a.dll"), WIDE("a.dll"), WIDE("x")), WIDE("x\\b\\x"));
    EXPECT_EQ(ReplaceAll(WIDE("aaaa"), WIDE("aa"), WIDE("b")), WIDE("bb"));
}

TEST(Replacing, MindsTheCaseOfLetters) {
    EXPECT_EQ(ReplaceAll(WIDE("A.dll a.DLL"), WIDE("a.dll"), WIDE("x")), WIDE("A.dll a.DLL"));
}

TEST(Replacing, DoesNotLookIntoWhatItHasPutIn) {
    EXPECT_EQ(ReplaceAll(WIDE("a"), WIDE("a"), WIDE("aa")), WIDE("aa"));
    EXPECT_EQ(ReplaceAll(WIDE("ab"), WIDE("a"), WIDE("")), WIDE("b"));
}

TEST(Replacing, LeavesATextWithoutThePartAsItIs) {
    EXPECT_EQ(ReplaceAll(WIDE("abc"), WIDE("d"), WIDE("x")), WIDE("abc"));
    EXPECT_EQ(ReplaceAll(WIDE(""), WIDE("d"), WIDE("x")), WIDE(""));
    EXPECT_EQ(ReplaceAll(WIDE("ab"), WIDE("abc"), WIDE("x")), WIDE("ab"));
}

}  // namespace
