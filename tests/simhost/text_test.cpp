// Conversions between UTF-8, UTF-16 and code page 936, good input and bad, and names that differ
// in the case of their letters.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "simhost/core/text.h"

using namespace simhost;

namespace {

TEST(Utf8Text, GoesToWideAndBack) {
    const std::string utf8 = "a\xC2\xB0\xE4\xB8\xAD\xF0\x9F\x98\x80";
    const WideText wide = WIDE("a\u00b0\u4e2d\U0001F600");
    EXPECT_EQ(Wide(utf8), wide);
    EXPECT_EQ(Utf8(wide), utf8);
}

TEST(Utf8Text, KeepsNullUnits) {
    EXPECT_EQ(Wide(std::string_view("a\0b", 3)), WideText(WIDE("a\0b"), 3));
    EXPECT_EQ(Utf8(WideView(WIDE("a\0b"), 3)), std::string("a\0b", 3));
}

TEST(Utf8Text, ReplacesLoneSurrogates) {
    const WideChar high = 0xD83D, low = 0xDE00;
    EXPECT_EQ(Utf8(WideText{high}), "\xEF\xBF\xBD");
    EXPECT_EQ(Utf8(WideText{low, high}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Utf8(WideText{high, WideChar('a')}),
              "\xEF\xBF\xBD"
              "a");
}

TEST(Utf8Text, ReplacesABrokenSequenceOnceAndGoesOn) {
    EXPECT_EQ(Wide("\xE4\xB8"), WIDE("\uFFFD"));    // unfinished at the end
    EXPECT_EQ(Wide("\xE4\xB8z"), WIDE("\uFFFDz"));  // unfinished before a letter
    EXPECT_EQ(Wide("\xE4\xE4\xB8\xAD"), WIDE("\uFFFD\u4e2d"));
    EXPECT_EQ(Wide("\x80z"), WIDE("\uFFFDz"));  // a byte that begins nothing
}

TEST(Utf8Text, RefusesOverlongFormsSurrogatesAndWhatIsTooLarge) {
    EXPECT_EQ(Wide("\xC0\x80"), WIDE("\uFFFD\uFFFD"));
    EXPECT_EQ(Wide("\xE0\x80\x80"), WIDE("\uFFFD\uFFFD\uFFFD"));
    EXPECT_EQ(Wide("\xED\xA0\x80"), WIDE("\uFFFD\uFFFD\uFFFD"));
    EXPECT_EQ(Wide("\xF4\x90\x80\x80"), WIDE("\uFFFD\uFFFD\uFFFD\uFFFD"));
    EXPECT_EQ(Wide("\xF4\x8F\xBF\xBF"), WIDE("\U0010FFFF"));  // the last one there is
}

TEST(SystemCodePage, IsChinese) {
    EXPECT_EQ(ToSystemCodePage(WIDE("a\u4e2d\u6587\u20acz")), "a\xD6\xD0\xCE\xC4\x80z");
    EXPECT_EQ(FromSystemCodePage("a\xD6\xD0\xCE\xC4\x80z"), WIDE("a\u4e2d\u6587\u20acz"));
}

TEST(SystemCodePage, HasAQuestionMarkForWhatItLacks) {
    EXPECT_EQ(ToSystemCodePage(WIDE("\u4e2d\u0e01z")), "\xD6\xD0?z");
    EXPECT_EQ(ToSystemCodePage(WIDE("\U0001F600z")), "??z");
}

TEST(SystemCodePage, TakesNoLookAlikeForWhatItLacks) {
    EXPECT_EQ(ToSystemCodePage(WIDE("\u00b2\u00e2")), "??");  // a raised 2, an a with a hat
}

TEST(SystemCodePage, KeepsNullUnits) {
    EXPECT_EQ(ToSystemCodePage(WideView(WIDE("\u4e2d\0z"), 3)), std::string("\xD6\xD0\0z", 4));
    EXPECT_EQ(FromSystemCodePage(std::string_view("\xD6\xD0\0z", 4)),
              WideText(WIDE("\u4e2d\0z"), 3));
}

TEST(SystemCodePage, ReadsBrokenPairsAsQuestionMarks) {
    EXPECT_EQ(FromSystemCodePage("a\xD6"), WIDE("a?"));
    EXPECT_EQ(FromSystemCodePage("\xD6 z"), WIDE("?z"));
    EXPECT_EQ(FromSystemCodePage(std::string_view("\xD6\0z", 3)), WideText(WIDE("?\0z"), 3));
}

TEST(SystemCodePage, HasEveryCharacterOfTheOldNationalStandardBothWays) {
    // 6763 characters: rows B0 to F7 of 94, less the five places at the end of row D7.
    int characters = 0;
    for (int lead = 0xB0; lead <= 0xF7; ++lead) {
        for (int trail = 0xA1; trail <= 0xFE; ++trail) {
            const std::string bytes = {static_cast<char>(lead), static_cast<char>(trail)};
            const WideText wide = FromSystemCodePage(bytes);
            ASSERT_EQ(wide.size(), 1u);
            if (wide[0] >= 0xE000 && wide[0] <= 0xF8FF) continue;  // for private use
            ++characters;
            EXPECT_EQ(ToSystemCodePage(wide), bytes);
        }
    }
    EXPECT_EQ(characters, 6763);
}

TEST(LetterCase, IsFoldedInAsciiOnly) {
    EXPECT_EQ(Lower("AZ[a\xC3\x84"), "az[a\xC3\x84");
    EXPECT_EQ(Lower(WIDE("AZ[a\u00c4")), WIDE("az[a\u00c4"));
    EXPECT_EQ(Upper(WIDE("az{A\u00e4")), WIDE("AZ{A\u00e4"));
}

TEST(LetterCase, MakesNoDifferenceBetweenNames) {
    EXPECT_TRUE(SameName(WIDE("Gear_1"), WIDE("GEAR_1")));
    EXPECT_FALSE(SameName(WIDE("Gear"), WIDE("Gear_1")));
    EXPECT_FALSE(SameName(WIDE("@"), WIDE("`")));  // apart by the same bit as letters are
}

TEST(CuttingCopy, TerminatesAndStaysInItsBuffer) {
    WideChar buffer[5];
    std::fill(std::begin(buffer), std::end(buffer), WideChar('#'));
    CopyCut(WIDE("abcdef"), buffer, 4);
    EXPECT_EQ(WideText(buffer, 5), WideText(WIDE("abc\0#"), 5));
    CopyCut(WIDE("x"), buffer, 4);
    EXPECT_EQ(WideText(buffer), WIDE("x"));
    CopyCut(WIDE("y"), buffer, 0);
    EXPECT_EQ(WideText(buffer), WIDE("x"));
}

}  // namespace
