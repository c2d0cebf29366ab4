// Conversions between code pages and UTF-16, as tables that a real Windows must fulfil, too.
#include <ostream>

#include "tests/simhost/windows_place.h"

namespace {

constexpr UINT kChinese = 936;
constexpr UINT kUtf8 = 65001;

struct Widening {
    const char* name;
    UINT codePage;
    std::string narrow;
    WideText expected;
    int length = 0;  // 0: as long as the text
};
void PrintTo(const Widening& row, std::ostream* out) {
    *out << row.name;
}

class ToWide : public testing::TestWithParam<Widening> {};

TEST_P(ToWide, GivesTheText) {
    const Widening& row = GetParam();
    const int length = row.length != 0 ? row.length : static_cast<int>(row.narrow.size());
    const char* narrow = row.narrow.c_str();
    const int needed = MultiByteToWideChar(row.codePage, 0, narrow, length, nullptr, 0);
    ASSERT_EQ(needed, static_cast<int>(row.expected.size()));
    WideText wide(row.expected.size() + 1, WideChar('#'));
    EXPECT_EQ(MultiByteToWideChar(row.codePage, 0, narrow, length, wide.data(), needed), needed);
    EXPECT_EQ(wide, row.expected + WideChar('#'));
}

const Widening kWidenings[] = {
    {"AsciiStays", CP_ACP, "abc", WIDE("abc")},
    {"ALengthOfMinusOneTakesTheTerminator", CP_ACP, "ab", UnitsOf(WIDE("ab\0")), -1},
    {"AnEmptyTextWithItsTerminatorIsOneUnit", CP_ACP, "", UnitsOf(WIDE("\0")), -1},
    {"AGivenLengthGoesBeyondANullByte", CP_ACP, BytesOf("a\0b"), UnitsOf(WIDE("a\0b"))},
    {"ChineseIsTwoBytesToACharacter", kChinese, "\xD6\xD0\xCE\xC4", WIDE("\u4e2d\u6587")},
    {"ChineseAndAsciiMix", kChinese, "a\xD6\xD0z", WIDE("a\u4e2dz")},
    {"TheEuroSignIsOneByte", kChinese, "\x80z", WIDE("\u20acz")},
    {"ASecondByteMayLookLikeASeparator", kChinese, "\x81\x5C", WIDE("\u4e57")},
    {"AUserDefinedCharacterHasAPrivatePlace", kChinese, "\xAA\xA1\xFE\xFE", WIDE("\ue000\ue4c5")},
    {"AnotherUserDefinedZoneFollows", kChinese, "\xA1\x40\xA7\xA0", WIDE("\ue4c6\ue765")},
    {"APlaceThatTheStandardLeavesEmptyFollowsThere", kChinese, "\xA2\xAB\xD7\xFA\xFE\xA0",
     WIDE("\ue766\ue810\ue864")},
    {"TheLastByteIsNoFirstByte", kChinese, "\xFFz", WIDE("\uf8f5z")},
    {"AFirstByteAtTheEndIsAQuestionMark", kChinese, "a\xD6", WIDE("a?")},
    {"AFirstByteBeforeTheTerminatorLeavesIt", kChinese, "\xD6", UnitsOf(WIDE("?\0")), -1},
    {"AnImpossiblePairIsOneQuestionMark", kChinese, "\xD6 z", WIDE("?z")},
    {"WesternIsOneByteToACharacter", 1252, "\x80\xE9z\x81", WIDE("\u20ac\u00e9z\u0081")},
    {"Utf8IsKnown", kUtf8, "\xE4\xB8\xAD", WIDE("\u4e2d")},
    {"Utf8BeyondTheBasicPlaneIsTwoUnits", kUtf8, "\xF0\x9F\x98\x80", UnitsOf(WIDE("\U0001F600"))},
    {"AnUnfinishedUtf8SequenceIsOneReplacement", kUtf8, "a\xE4\xB8", WIDE("a\uFFFD")},
    {"AnImpossibleUtf8ByteIsOneReplacement", kUtf8, "a\xFFz", WIDE("a\uFFFDz")},
};
INSTANTIATE_TEST_SUITE_P(Table, ToWide, testing::ValuesIn(kWidenings), NameOfRow());

struct Narrowing {
    const char* name;
    UINT codePage;
    WideText wide;
    std::string expected;
    BOOL usedDefault = FALSE;
    const char* defaultChar = nullptr;
    int length = 0;  // 0: as long as the text
    DWORD flags = 0;
};
void PrintTo(const Narrowing& row, std::ostream* out) {
    *out << row.name;
}

class ToNarrow : public testing::TestWithParam<Narrowing> {};

TEST_P(ToNarrow, GivesTheBytes) {
    const Narrowing& row = GetParam();
    const int length = row.length != 0 ? row.length : static_cast<int>(row.wide.size());
    BOOL used = 2;
    BOOL* usedDefault = row.codePage == kUtf8 ? nullptr : &used;
    const auto convert = [&](char* place, int size) {
        return WideCharToMultiByte(row.codePage, row.flags, row.wide.c_str(), length, place, size,
                                   row.defaultChar, usedDefault);
    };
    const int needed = convert(nullptr, 0);
    ASSERT_EQ(needed, static_cast<int>(row.expected.size()));
    std::string narrow(row.expected.size() + 1, '#');
    EXPECT_EQ(convert(narrow.data(), needed), needed);
    EXPECT_EQ(narrow, row.expected + '#');
    EXPECT_EQ(used, usedDefault ? row.usedDefault : BOOL{2});
}

const Narrowing kNarrowings[] = {
    {"AsciiStays", CP_ACP, WIDE("abc"), "abc"},
    {"ALengthOfMinusOneTakesTheTerminator", CP_ACP, WIDE("ab"), BytesOf("ab\0"), FALSE, nullptr,
     -1},
    {"ChineseIsTwoBytesToACharacter", kChinese, WIDE("\u4e2d\u6587"), "\xD6\xD0\xCE\xC4"},
    {"TheEuroSignIsOneByte", kChinese, WIDE("\u20ac"), "\x80"},
    {"APrivateCharacterGoesBack", kChinese, WIDE("\ue000\ue4c5\ue4c6\ue765\ue810\uf8f5"),
     "\xAA\xA1\xFE\xFE\xA1\x40\xA7\xA0\xD7\xFA\xFF"},
    {"AQuestionMarkIsNoDefault", kChinese, WIDE("?"), "?"},
    {"WhatHasNoPlaceIsAQuestionMark", kChinese, WIDE("a\u0e01z"), "a?z", TRUE},
    {"WhatHasNoPlaceIsTheDefaultCharacter", kChinese, WIDE("a\u0e01z"), "a#z", TRUE, "#"},
    {"ACharacterBeyondTheBasicPlaneIsTwoDefaults", kChinese, UnitsOf(WIDE("\U0001F600z")), "??z",
     TRUE},
    {"ALookAlikeTakesAPlace", kChinese, WIDE("\u00c9\u00b9\u00fd\u00a2"), "\xA8\xA6\x31y\xA1\xE9"},
    {"ALookAlikeTakesNoPlaceWhereItIsForbidden", kChinese, WIDE("\u00c9\u00e9\u00b9"), "?\xA8\xA6?",
     TRUE, nullptr, 0, WC_NO_BEST_FIT_CHARS},
    {"WesternHasNoPlaceForChinese", 1252, WIDE("\u20ac\u00e9\u4e2dz"), "\x80\xE9?z", TRUE},
    {"Utf8IsKnown", kUtf8, WIDE("\u4e2d"), "\xE4\xB8\xAD"},
    {"Utf8BeyondTheBasicPlaneIsFourBytes", kUtf8, UnitsOf(WIDE("\U0001F600")), "\xF0\x9F\x98\x80"},
    {"ALoneSurrogateIsAReplacement", kUtf8, {WideChar(0xD800), WideChar('z')}, "\xEF\xBF\xBDz"},
};
INSTANTIATE_TEST_SUITE_P(Table, ToNarrow, testing::ValuesIn(kNarrowings), NameOfRow());

TEST(CodePages, ABufferThatIsTooSmallGivesZero) {
    WideChar wide[2] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", 3, wide, 2), 0);
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "ab", -1, wide, 2), 0);
    char narrow[2] = {};
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, WIDE("abc"), 3, narrow, 2, nullptr, nullptr), 0);
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, WIDE("ab"), -1, narrow, 2, nullptr, nullptr), 0);
}

TEST(CodePages, ACharacterIsNotHalved) {
    char narrow[3] = {'#', '#', '#'};
    EXPECT_EQ(WideCharToMultiByte(kChinese, 0, WIDE("a\u4e2d"), 2, narrow, 2, nullptr, nullptr), 0);
    EXPECT_EQ(narrow[0], 'a');
    EXPECT_EQ(narrow[1], '#');
}

TEST(CodePages, NothingIsConvertedToNothing) {
    WideChar wide[2] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "abc", 0, wide, 2), 0);
    char narrow[2] = {};
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, WIDE("abc"), 0, narrow, 2, nullptr, nullptr), 0);
}

TEST(CodePages, AnUnknownCodePageGivesZero) {
    WideChar wide[4] = {};
    EXPECT_EQ(MultiByteToWideChar(12345, 0, "abc", 3, wide, 4), 0);
    char narrow[4] = {};
    EXPECT_EQ(WideCharToMultiByte(12345, 0, WIDE("abc"), 3, narrow, 4, nullptr, nullptr), 0);
}

}  // namespace
