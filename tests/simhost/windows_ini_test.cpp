// INI files by Windows' rules, as tables that a real Windows must fulfil, too: what is read from a
// file's bytes, and what the bytes are after a write.
#include <ostream>

#include "tests/simhost/windows_place.h"

namespace {

constexpr std::size_t kBuffer = 64;

struct Reading {
    const char* name;
    std::string bytes;
    const WideChar* section;
    const WideChar* key;
    const WideChar* expected;
    const WideChar* fallback = WIDE("none");
    DWORD size = kBuffer;
};
void PrintTo(const Reading& row, std::ostream* out) {
    *out << row.name;
}

class IniReading : public WindowsPlace, public testing::WithParamInterface<Reading> {};

TEST_P(IniReading, GivesTheText) {
    const Reading& row = GetParam();
    Put("a.ini", row.bytes);
    WideChar value[kBuffer + 1];
    std::fill(std::begin(value), std::end(value), WideChar('#'));
    const DWORD length = GetPrivateProfileStringW(row.section, row.key, row.fallback, value,
                                                  row.size, Path(WIDE("a.ini")).c_str());
    EXPECT_EQ(length, WideText(row.expected).size());
    ASSERT_LT(length, kBuffer);
    EXPECT_EQ(WideText(value, length), row.expected);
    EXPECT_EQ(value[length], WideChar{});
    EXPECT_EQ(value[row.size], WideChar('#')) << "wrote beyond the buffer";
}

const Reading kReadings[] = {
    // Names and blanks
    {"NamesAreComparedIgnoringCase", "[Abc]\r\nKey=v\r\n", WIDE("aBC"), WIDE("kEY"), WIDE("v")},
    {"BlanksAroundKeyAndValueDoNotCount", "[A]\r\n \tk \t=\t v w \t\r\n", WIDE("A"), WIDE("k"),
     WIDE("v w")},
    {"BlanksAroundAHeaderDoNotCount", " \t[ A ] \r\nk=v\r\n", WIDE("A"), WIDE("k"), WIDE("v")},
    {"BlanksAroundTheNamesAskedForDoNotCount", "[A]\r\nk=v\r\n", WIDE(" A "), WIDE(" k "),
     WIDE("v")},
    {"AnIdeographicBlankIsText", "[A]\r\nk=\xA1\xA1v\r\n", WIDE("A"), WIDE("k"), WIDE("\u3000v")},
    {"EmptyLinesDoNotCount", "\r\n[A]\r\n\r\n \r\nk=v\r\n", WIDE("A"), WIDE("k"), WIDE("v")},

    // Values
    {"AnEmptyValueIsAValue", "[A]\r\nk=\r\n", WIDE("A"), WIDE("k"), WIDE("")},
    {"OnlyTheFirstEqualsSignDivides", "[A]\r\nk=a=b\r\n", WIDE("A"), WIDE("k"), WIDE("a=b")},
    {"DoubleQuotesAroundAValueGo", "[A]\r\nk=\" v \"\r\n", WIDE("A"), WIDE("k"), WIDE(" v ")},
    {"SingleQuotesAroundAValueGo", "[A]\r\nk=' v '\r\n", WIDE("A"), WIDE("k"), WIDE(" v ")},
    {"OnlyOnePairOfQuotesGoes", "[A]\r\nk=\"\"v\"\"\r\n", WIDE("A"), WIDE("k"), WIDE("\"v\"")},
    {"AnEmptyPairOfQuotesIsEmpty", "[A]\r\nk=\"\"\r\n", WIDE("A"), WIDE("k"), WIDE("")},
    {"QuotesThatDoNotMatchStay", "[A]\r\nk='v\"\r\n", WIDE("A"), WIDE("k"), WIDE("'v\"")},
    {"ASingleQuoteStays", "[A]\r\nk=\"\r\n", WIDE("A"), WIDE("k"), WIDE("\"")},
    {"AQuoteAtTheEndOnlyStays", "[A]\r\nk=v\"\r\n", WIDE("A"), WIDE("k"), WIDE("v\"")},
    {"ALineWithoutEqualsSignIsNoKey", "[A]\r\nk\r\n", WIDE("A"), WIDE("k"), WIDE("none")},

    // Comments
    {"ALineThatBeginsWithASemicolonIsAComment", "[A]\r\n;k=v\r\n", WIDE("A"), WIDE("k"),
     WIDE("none")},
    {"ASemicolonBehindAValueIsText", "[A]\r\nk=v ; w\r\n", WIDE("A"), WIDE("k"), WIDE("v ; w")},
    {"ANumberSignBeginsNoComment", "[A]\r\n#k=v\r\n", WIDE("A"), WIDE("#k"), WIDE("v")},

    // Repeated names
    {"AKeyInTheSecondSectionOfTheSameNameIsNotFound", "[A]\r\nj=1\r\n[B]\r\nk=2\r\n[A]\r\nk=3\r\n",
     WIDE("A"), WIDE("k"), WIDE("none")},
    {"TheFirstOfTwoKeysOfTheSameNameIsRead", "[A]\r\nk=1\r\nK=2\r\n", WIDE("A"), WIDE("k"),
     WIDE("1")},
    {"AnEmptyFirstKeyHidesTheSecond", "[A]\r\nk=\r\nk=2\r\n", WIDE("A"), WIDE("k"), WIDE("")},

    // Headers
    {"ASectionNameEndsAtTheLastBracket", "[PDFCheck]]\r\nvalue=1\r\n", WIDE("PDFCheck]"),
     WIDE("value"), WIDE("1")},
    {"ANameWithABracketIsNotFoundWithoutIt", "[PDFCheck]]\r\nvalue=1\r\n", WIDE("PDFCheck"),
     WIDE("value"), WIDE("none")},
    {"TextBehindAHeaderDoesNotCount", "[A] x\r\nk=v\r\n", WIDE("A"), WIDE("k"), WIDE("v")},
    {"AHeaderWithoutBracketAtItsEndIsNoLine", "[A]\r\n[B\r\nk=v\r\n", WIDE("A"), WIDE("k"),
     WIDE("v")},
    {"KeysAboveTheFirstHeaderHaveNoSectionName", "k=v\r\n[A]\r\n", WIDE(""), WIDE("k"), WIDE("v")},

    // Ends of lines and of the file
    {"LinesMayEndWithALineFeed", "[A]\nk=v\nj=w\n", WIDE("A"), WIDE("k"), WIDE("v")},
    {"LinesMayEndWithACarriageReturn", "[A]\rk=v\rj=w\r", WIDE("A"), WIDE("k"), WIDE("v")},
    {"TheLastLineNeedsNoEnd", "[A]\r\nk=v", WIDE("A"), WIDE("k"), WIDE("v")},
    {"AnEndOfFileMarkDoesNotCount", "[A]\r\nk=v\x1A", WIDE("A"), WIDE("k"), WIDE("v")},
    {"AValueEndsAtANullByte", BytesOf("[A]\r\nk=v\0w\r\n"), WIDE("A"), WIDE("k"), WIDE("v")},

    // Encodings
    {"AFileWithoutMarkIsInCodePage936", "[\xD6\xD0]\r\n\xCE\xC4=\xBA\xC3\x80\r\n", WIDE("\u4e2d"),
     WIDE("\u6587"), WIDE("\u597d\u20ac")},
    {"ABracketAsSecondByteEndsNoHeader", "[A]\r\n[\x81\x5D\r\nk=v\r\n", WIDE("A"), WIDE("k"),
     WIDE("v")},
    {"ABracketAsSecondByteIsPartOfAName", "[\x81\x5D]\r\nk=v\r\n", WIDE("\u4e5a"), WIDE("k"),
     WIDE("v")},
    {"AFileWithTheMarkIsUtf16", BytesOf("\xFF\xFE[\0A\0]\0\r\0\n\0k\0=\0\x2D\x4E\r\0\n\0"),
     WIDE("A"), WIDE("k"), WIDE("\u4e2d")},
    {"Utf16MayEndWithoutLineEnd", BytesOf("\xFF\xFE[\0A\0]\0\n\0k\0=\0a\0b\0"), WIDE("A"),
     WIDE("k"), WIDE("ab")},
    {"Utf16WithoutTheMarkIsNotRead", BytesOf("[\0A\0]\0\r\0\n\0k\0=\0v\0\r\0\n\0"), WIDE("A"),
     WIDE("k"), WIDE("none")},
    {"Utf8WithoutMarkIsGarbled", "[A]\r\nk=\xC2\xB0\r\n", WIDE("A"), WIDE("k"),
     WIDE("\u63b3")},  // the degree sign's two bytes are one Chinese character

    // The fallback and the buffer
    {"AMissingKeyGivesTheFallback", "[A]\r\nk=v\r\n", WIDE("A"), WIDE("j"), WIDE("none")},
    {"AMissingSectionGivesTheFallback", "[A]\r\nk=v\r\n", WIDE("B"), WIDE("k"), WIDE("none")},
    {"BlanksAtTheFallbacksEndGo", "", WIDE("A"), WIDE("k"), WIDE("  fb"), WIDE("  fb  ")},
    {"NoFallbackIsTheEmptyText", "", WIDE("A"), WIDE("k"), WIDE(""), nullptr},
    {"AValueThatJustFitsIsWhole", "[A]\r\nk=abcdef\r\n", WIDE("A"), WIDE("k"), WIDE("abcdef"),
     WIDE(""), 7},
    {"AValueOneTooLongIsCut", "[A]\r\nk=abcdef\r\n", WIDE("A"), WIDE("k"), WIDE("abcde"), WIDE(""),
     6},
    {"AQuotedValueIsCutWithoutItsQuotes", "[A]\r\nk=\"abcdef\"\r\n", WIDE("A"), WIDE("k"),
     WIDE("abc"), WIDE(""), 4},
    {"AFallbackIsCutToo", "", WIDE("A"), WIDE("k"), WIDE("fal"), WIDE("fallback"), 4},
    {"ABufferOfOneHoldsTheTerminator", "[A]\r\nk=abc\r\n", WIDE("A"), WIDE("k"), WIDE(""),
     WIDE("fallback"), 1},
};
INSTANTIATE_TEST_SUITE_P(Table, IniReading, testing::ValuesIn(kReadings), NameOfRow());

struct Listing {
    const char* name;
    std::string bytes;
    const WideChar* section;  // null: the sections
    DWORD size;
    WideText expected;  // with all terminators
    DWORD length;
};
void PrintTo(const Listing& row, std::ostream* out) {
    *out << row.name;
}

class IniListing : public WindowsPlace, public testing::WithParamInterface<Listing> {};

TEST_P(IniListing, GivesTheNames) {
    const Listing& row = GetParam();
    Put("a.ini", row.bytes);
    WideChar names[kBuffer + 1];
    std::fill(std::begin(names), std::end(names), WideChar('#'));
    const DWORD length = GetPrivateProfileStringW(row.section, nullptr, WIDE("fb"), names, row.size,
                                                  Path(WIDE("a.ini")).c_str());
    EXPECT_EQ(length, row.length);
    EXPECT_EQ(WideText(names, row.expected.size()), row.expected);
    EXPECT_EQ(names[row.size], WideChar('#')) << "wrote beyond the buffer";
}

const char* const kTwoSections = "[Abc]\r\n[Bcd]\r\n";
const char* const kTwoKeys = "[A]\r\nBcd=1\r\n;c=0\r\nabc=2\r\n[B]\r\nj=1\r\n";

const Listing kListings[] = {
    {"SectionsComeInTheFilesOrder", kTwoSections, nullptr, 10, UnitsOf(WIDE("Abc\0Bcd\0\0")), 8},
    {"RepeatedSectionsComeRepeatedly", "[A]\r\n[B]\r\n[A]\r\n", nullptr, kBuffer,
     UnitsOf(WIDE("A\0B\0A\0\0")), 6},
    {"AListThatFillsTheBufferCountsAsCut", kTwoSections, nullptr, 9, UnitsOf(WIDE("Abc\0Bcd\0\0")),
     7},
    {"AListIsCutInsideAName", kTwoSections, nullptr, 7, UnitsOf(WIDE("Abc\0B\0\0")), 5},
    {"AListIsCutBehindAName", kTwoSections, nullptr, 5, UnitsOf(WIDE("Abc\0\0")), 3},
    {"ABufferOfTwoHoldsTheTerminators", kTwoSections, nullptr, 2, UnitsOf(WIDE("\0\0")), 0},
    {"ABufferOfOneHoldsOneTerminator", kTwoSections, nullptr, 1, UnitsOf(WIDE("\0")), 0},
    {"AFileWithoutSectionsGivesAnEmptyList", "k=v\r\n", nullptr, kBuffer, UnitsOf(WIDE("\0")), 0},
    {"KeysComeAsWrittenWithoutComments", kTwoKeys, WIDE("a"), kBuffer,
     UnitsOf(WIDE("Bcd\0abc\0\0")), 8},
    {"AListOfKeysIsCut", kTwoKeys, WIDE("A"), 7, UnitsOf(WIDE("Bcd\0a\0\0")), 5},
    {"RepeatedKeysComeRepeatedly", "[A]\r\nb=1\r\nb=2\r\nx\r\n", WIDE("A"), kBuffer,
     UnitsOf(WIDE("b\0b\0\0")), 4},
    {"KeysOfASecondSectionOfTheNameAreNotSeen", "[A]\r\nb=1\r\n[A]\r\nc=2\r\n", WIDE("A"), kBuffer,
     UnitsOf(WIDE("b\0\0")), 2},
    {"ASectionWithoutKeysGivesTheFallback", "[A]\r\n[B]\r\n", WIDE("A"), kBuffer,
     UnitsOf(WIDE("fb\0")), 2},
    {"AMissingSectionGivesTheFallback", "[A]\r\nk=v\r\n", WIDE("B"), kBuffer, UnitsOf(WIDE("fb\0")),
     2},
};
INSTANTIATE_TEST_SUITE_P(Table, IniListing, testing::ValuesIn(kListings), NameOfRow());

struct Writing {
    const char* name;
    std::string before;
    const WideChar* section;
    const WideChar* key;
    const WideChar* value;
    std::string after;
    const char* afterInWine = nullptr;  // where Wine is known to differ from Windows
};
void PrintTo(const Writing& row, std::ostream* out) {
    *out << row.name;
}

class IniWriting : public WindowsPlace, public testing::WithParamInterface<Writing> {};

TEST_P(IniWriting, ChangesTheFile) {
    const Writing& row = GetParam();
    Put("a.ini", row.before);
    EXPECT_TRUE(
        WritePrivateProfileStringW(row.section, row.key, row.value, Path(WIDE("a.ini")).c_str()));
    EXPECT_EQ(Bytes("a.ini"), IsWine() && row.afterInWine ? row.afterInWine : row.after);
}

const Writing kWritings[] = {
    {"AnExistingKeyKeepsItsSpelling", "[Abc]\r\nKey=1\r\n", WIDE("ABC"), WIDE("key"), WIDE("v"),
     "[Abc]\r\nKey=v\r\n"},
    {"BlanksOfTheOldLineGo", "[A]\r\n k = 1 \r\n", WIDE("A"), WIDE("k"), WIDE("v"),
     "[A]\r\nk=v\r\n"},
    {"OnlyTheFirstOfTwoKeysChanges", "[A]\r\nk=1\r\nk=2\r\n", WIDE("A"), WIDE("k"), WIDE("v"),
     "[A]\r\nk=v\r\nk=2\r\n"},
    {"ANewKeyGoesToTheSectionsEnd", "[A]\r\nk=1\r\n[B]\r\nj=1\r\n", WIDE("A"), WIDE("n"), WIDE("v"),
     "[A]\r\nk=1\r\nn=v\r\n[B]\r\nj=1\r\n"},
    {"ANewSectionGoesToTheFilesEnd", "[A]\r\nk=1\r\n", WIDE("B"), WIDE("n"), WIDE("v"),
     "[A]\r\nk=1\r\n[B]\r\nn=v\r\n"},
    {"ALastLineWithoutEndGetsOne", "[A]\r\nk=1", WIDE("A"), WIDE("n"), WIDE("v"),
     "[A]\r\nk=1\r\nn=v\r\n"},
    {"ANewSectionEndsTheLastLine", "[A]\r\nk=1", WIDE("B"), WIDE("n"), WIDE("v"),
     "[A]\r\nk=1\r\n[B]\r\nn=v\r\n"},
    {"AnEmptyFileGetsTheSection", "", WIDE("A"), WIDE("k"), WIDE("v"), "[A]\r\nk=v\r\n"},
    {"CommentsAndOtherLinesStay", "; c\r\n[A]\r\n; d\r\nk=1\r\nplain\r\n", WIDE("A"), WIDE("k"),
     WIDE("v"), "; c\r\n[A]\r\n; d\r\nk=v\r\nplain\r\n"},
    {"AKeyAboveTheFirstHeaderIsNotOfTheSection", "k=1\r\n[A]\r\n", WIDE("A"), WIDE("k"), WIDE("v"),
     "k=1\r\n[A]\r\nk=v\r\n"},
    {"AnEmptyValueIsWritten", "[A]\r\nk=1\r\n", WIDE("A"), WIDE("k"), WIDE(""), "[A]\r\nk=\r\n"},
    {"QuotesAreWrittenAsTheyAre", "[A]\r\n", WIDE("A"), WIDE("k"), WIDE("\" v \""),
     "[A]\r\nk=\" v \"\r\n"},
    {"ASectionNameWithABracketIsFound", "[PDFCheck]]\r\nvalue=1\r\n", WIDE("PDFCheck]"),
     WIDE("value"), WIDE("0"), "[PDFCheck]]\r\nvalue=0\r\n"},
    {"ASectionNameWithABracketIsMade", "[A]\r\n", WIDE("PDFCheck]"), WIDE("value"), WIDE("0"),
     "[A]\r\n[PDFCheck]]\r\nvalue=0\r\n"},
    {"ANullValueDeletesTheKey", "[A]\r\nk=1\r\nj=2\r\n", WIDE("A"), WIDE("K"), nullptr,
     "[A]\r\nj=2\r\n"},
    {"OnlyTheFirstOfTwoKeysIsDeleted", "[A]\r\nk=1\r\nk=3\r\n", WIDE("A"), WIDE("k"), nullptr,
     "[A]\r\nk=3\r\n"},
    {"DeletingAMissingKeyChangesNothing", "[A]\r\nk=1\r\n", WIDE("A"), WIDE("j"), nullptr,
     "[A]\r\nk=1\r\n"},
    {"DeletingFromAMissingSectionChangesNothing", "[A]\r\nk=1\r\n", WIDE("B"), WIDE("k"), nullptr,
     "[A]\r\nk=1\r\n"},
    {"ANullKeyDeletesTheSection", "[A]\r\nk=1\r\n[B]\r\nj=1\r\n", WIDE("a"), nullptr, nullptr,
     "[B]\r\nj=1\r\n"},
    {"ANullKeyDeletesTheSectionWhateverTheValue", "[A]\r\nk=1\r\n[B]\r\nj=1\r\n", WIDE("B"),
     nullptr, WIDE("v"), "[A]\r\nk=1\r\n"},
    {"OnlyTheFirstSectionOfTheNameIsDeleted", "[A]\r\nk=1\r\n[B]\r\nj=1\r\n[A]\r\nk=2\r\n",
     WIDE("A"), nullptr, nullptr, "[B]\r\nj=1\r\n[A]\r\nk=2\r\n"},
    {"CodePage936Stays", "[\xD6\xD0]\r\nk=\xCE\xC4\r\n", WIDE("\u4e2d"), WIDE("j"),
     WIDE("\u597d\u20ac"), "[\xD6\xD0]\r\nk=\xCE\xC4\r\nj=\xBA\xC3\x80\r\n"},
    {"Utf16Stays", BytesOf("\xFF\xFE[\0A\0]\0\r\0\n\0"), WIDE("A"), WIDE("k"), WIDE("\u4e2d"),
     BytesOf("\xFF\xFE[\0A\0]\0\r\0\n\0k\0=\0\x2D\x4E\r\0\n\0")},

    // Windows changes one line; Wine writes the whole file anew in a form of its own.
    {"EmptyLinesStay", "\r\n[A]\r\n\r\nk=1\r\n\r\n[B]\r\n", WIDE("A"), WIDE("k"), WIDE("v"),
     "\r\n[A]\r\n\r\nk=v\r\n\r\n[B]\r\n", "[A]\r\nk=v\r\n[B]\r\n"},
    {"ANewKeyGoesAboveTheEmptyLinesAtTheSectionsEnd", "[A]\r\nk=1\r\n\r\n[B]\r\n", WIDE("A"),
     WIDE("n"), WIDE("v"), "[A]\r\nk=1\r\nn=v\r\n\r\n[B]\r\n", "[A]\r\nk=1\r\nn=v\r\n[B]\r\n"},
    {"BlanksOfOtherLinesStay", "[ A ]\r\n j = 1 \r\nk=1\r\n", WIDE("A"), WIDE("k"), WIDE("v"),
     "[ A ]\r\n j = 1 \r\nk=v\r\n", "[A]\r\nj=1\r\nk=v\r\n"},
    {"OtherLineEndsStay", "[A]\nj=1\nk=1\r\n", WIDE("A"), WIDE("k"), WIDE("v"), "[A]\nj=1\nk=v\r\n",
     "[A]\r\nj=1\r\nk=v\r\n"},
};
INSTANTIATE_TEST_SUITE_P(Table, IniWriting, testing::ValuesIn(kWritings), NameOfRow());

class IniFile : public WindowsPlace {
protected:
    WideText Read(WideView file) const {
        WideChar value[kBuffer];
        const DWORD length = GetPrivateProfileStringW(WIDE("A"), WIDE("k"), WIDE("none"), value,
                                                      kBuffer, Path(file).c_str());
        return WideText(value, length);
    }
    bool Write(const WideChar* section, const WideChar* key, const WideChar* value,
               WideView file) const {
        return WritePrivateProfileStringW(section, key, value, Path(file).c_str());
    }
};

TEST_F(IniFile, AMissingFileGivesTheFallback) {
    EXPECT_EQ(Read(WIDE("a.ini")), WIDE("none"));
}

TEST_F(IniFile, AMissingFileGivesNoSections) {
    WideChar names[kBuffer] = {};
    EXPECT_EQ(GetPrivateProfileStringW(nullptr, nullptr, WIDE("fb"), names, kBuffer,
                                       Path(WIDE("a.ini")).c_str()),
              0u);
    EXPECT_EQ(names[0], WideChar{});
}

TEST_F(IniFile, ABufferOfNoSizeIsLeftAlone) {
    Put("a.ini", "[A]\r\nk=v\r\n");
    WideChar value = '#';
    EXPECT_EQ(GetPrivateProfileStringW(WIDE("A"), WIDE("k"), WIDE("none"), &value, 0,
                                       Path(WIDE("a.ini")).c_str()),
              0u);
    EXPECT_EQ(value, WideChar('#'));
}

TEST_F(IniFile, AWriteMakesAMissingFileInCodePage936) {
    EXPECT_TRUE(Write(WIDE("A"), WIDE("k"), WIDE("\u4e2d"), WIDE("a.ini")));
    EXPECT_EQ(Bytes("a.ini"), "[A]\r\nk=\xD6\xD0\r\n");
}

TEST_F(IniFile, AWriteMakesNoFolder) {
    EXPECT_FALSE(Write(WIDE("A"), WIDE("k"), WIDE("v"), WIDE("folder\\a.ini")));
    EXPECT_FALSE(Exists("folder"));
}

TEST_F(IniFile, DeletingInAMissingFileMakesNone) {
    EXPECT_TRUE(Write(WIDE("A"), WIDE("k"), nullptr, WIDE("a.ini")));
    EXPECT_FALSE(Exists("a.ini"));
}

TEST_F(IniFile, AWriteWithoutSectionFails) {
    Put("a.ini", "[A]\r\nk=v\r\n");
    EXPECT_FALSE(Write(nullptr, WIDE("k"), WIDE("w"), WIDE("a.ini")));
    EXPECT_EQ(Bytes("a.ini"), "[A]\r\nk=v\r\n");
}

TEST_F(IniFile, WhatWasWrittenIsReadAtOnce) {
    Put("a.ini", "[A]\r\nk=1\r\n");
    EXPECT_EQ(Read(WIDE("a.ini")), WIDE("1"));
    for (const WideText value : {WIDE("2"), WIDE("3"), WIDE("4")}) {
        EXPECT_TRUE(Write(WIDE("A"), WIDE("k"), value.c_str(), WIDE("a.ini")));
        EXPECT_EQ(Read(WIDE("a.ini")), value);
    }
}

TEST_F(IniFile, IsFoundWhateverTheCaseOfItsPath) {
    Put("VXconfig/VxConfig.ini", "[A]\r\nk=v\r\n");
    EXPECT_EQ(Read(WIDE("vxconfig\\VXCONFIG.INI")), WIDE("v"));
    EXPECT_TRUE(Write(WIDE("A"), WIDE("k"), WIDE("w"), WIDE("vxconfig/vxconfig.ini")));
    EXPECT_EQ(Bytes("VXconfig/VxConfig.ini"), "[A]\r\nk=w\r\n");
}

TEST_F(IniFile, AFolderOfThatNameGivesTheFallback) {
    Put("a.ini/b.txt", "");
    EXPECT_EQ(Read(WIDE("a.ini")), WIDE("none"));
    EXPECT_FALSE(Write(WIDE("A"), WIDE("k"), WIDE("v"), WIDE("a.ini")));
}

}  // namespace
