// What the simulated Windows does with INI files beyond what can be asked of a real one: it keeps
// foreign lines byte by byte, notices every change, is quick, and can be told to fail.
#include "tests/simhost/windows_place.h"

#ifndef _WIN32

#include <ctime>

#include "simhost/windows/ini_text.h"

using namespace simhost;

namespace {

TEST(IniLookup, IgnoresCaseInEveryScript) {
    const IniTable table("[\xA6\xA1]\r\n\xA7\xA1=v\r\n");  // capital alpha, capital Cyrillic a
    ASSERT_NE(table.Find(WIDE("\u03b1"), WIDE("\u0430")), nullptr);
    EXPECT_EQ(*table.Find(WIDE("\u03b1"), WIDE("\u0430")), WIDE("v"));
}

TEST(IniLookup, FindsNoComment) {
    const IniTable table("[A]\r\n;k=v\r\n");
    EXPECT_EQ(table.Find(WIDE("A"), WIDE(";k")), nullptr);
}

TEST(IniLookup, TakesAUtf8MarkForTwoCharactersOfText) {
    // EF BB and BF 5B are characters of code page 936: the bracket is gone, and so is the header.
    const IniTable table("\xEF\xBB\xBF[A]\r\nk=v\r\n[B]\r\nj=w\r\n");
    EXPECT_EQ(table.Find(WIDE("A"), WIDE("k")), nullptr);
    EXPECT_NE(table.Find(WIDE("B"), WIDE("j")), nullptr);
    EXPECT_EQ(table.Sections(), std::vector<WideText>{WIDE("B")});
}

TEST(IniChange, KeepsEmptyLinesBetweenSections) {
    EXPECT_EQ(WithIniKey("[A]\r\nk=1\r\n\r\n[B]\r\nj=1\r\n", WIDE("A"), WIDE("n"), WIDE("v")),
              "[A]\r\nk=1\r\nn=v\r\n\r\n[B]\r\nj=1\r\n");
    EXPECT_EQ(WithIniKey("\r\n[A]\r\n\r\nk=1\r\n", WIDE("A"), WIDE("k"), WIDE("v")),
              "\r\n[A]\r\n\r\nk=v\r\n");
}

TEST(IniChange, PutsTheFirstKeyBelowItsHeader) {
    EXPECT_EQ(WithIniKey("[A]\r\n\r\n[B]\r\n", WIDE("A"), WIDE("n"), WIDE("v")),
              "[A]\r\nn=v\r\n\r\n[B]\r\n");
}

TEST(IniChange, KeepsBytesThatNoEncodingKnows) {
    EXPECT_EQ(
        WithIniKey("\xFF\x81 x\r\n[A]\r\nj=\xD6 \xFF\r\nk=1\r\n", WIDE("A"), WIDE("k"), WIDE("v")),
        "\xFF\x81 x\r\n[A]\r\nj=\xD6 \xFF\r\nk=v\r\n");
}

TEST(IniChange, KeepsTheEndsOfLines) {
    EXPECT_EQ(WithIniKey("[A]\nk=1\nj=2\n", WIDE("A"), WIDE("k"), WIDE("v")), "[A]\nk=v\nj=2\n");
}

TEST(IniChange, WritesAKeyWithoutSectionAboveTheFirstHeader) {
    EXPECT_EQ(WithIniKey("[A]\r\n", WIDE(""), WIDE("k"), WIDE("v")), "k=v\r\n[A]\r\n");
}

TEST(IniChange, DeletesTheCommentsOfASectionWithIt) {
    EXPECT_EQ(WithoutIniSection("[A]\r\n; a\r\nk=1\r\n\r\n[B]\r\n; b\r\n", WIDE("A")),
              "[B]\r\n; b\r\n");
}

TEST(IniChange, WritesWhatItReads) {
    for (const WideText value : {WIDE("v"), WIDE("\u4e2d\u6587 1"), WIDE("'x\""), WIDE("a=b;c")}) {
        for (const std::string& before : {BytesOf(""), BytesOf("\xFF\xFE")}) {
            const std::string after = WithIniKey(before, WIDE("PDFCheck]"), WIDE("k"), value);
            const IniTable table(after);
            ASSERT_NE(table.Find(WIDE("PDFCheck]"), WIDE("k")), nullptr);
            EXPECT_EQ(*table.Find(WIDE("PDFCheck]"), WIDE("k")), value);
        }
    }
}

class SimulatedIni : public WindowsPlace {
protected:
    static constexpr DWORD kBuffer = 64;

    WideText Read(const WideChar* key = WIDE("k"), const WideChar* fallback = WIDE("none"),
                  WideView path = WIDE("C:\\a.ini")) const {
        WideChar value[kBuffer];
        const DWORD length = GetPrivateProfileStringW(WIDE("A"), key, fallback, value, kBuffer,
                                                      WideText(path).c_str());
        return WideText(value, length);
    }
    bool Write(const WideChar* value) const {
        return WritePrivateProfileStringW(WIDE("A"), WIDE("k"), value, WIDE("C:\\a.ini"));
    }
    void MakeOld() const {
        const auto past = std::filesystem::file_time_type::clock::now() - std::chrono::seconds(5);
        std::filesystem::last_write_time(folder() / "a.ini", past);
    }
};

TEST_F(SimulatedIni, ChangedWithinOneStepOfTheClockIsReadAfresh) {
    // Many file systems give changes that follow quickly on one another the same time stamp.
    const auto stamp = std::filesystem::file_time_type::clock::now() + std::chrono::seconds(5);
    for (const char digit : {'1', '2', '3'}) {
        Put("a.ini", std::string("[A]\r\nk=") + digit + "\r\n");
        std::filesystem::last_write_time(folder() / "a.ini", stamp);
        EXPECT_EQ(Read(), WideText(1, static_cast<WideChar>(digit)));
    }
}

TEST_F(SimulatedIni, ChangedLongAfterTheFirstReadIsReadAfresh) {
    Put("a.ini", "[A]\r\nk=1\r\n");
    MakeOld();
    EXPECT_EQ(Read(), WIDE("1"));
    EXPECT_EQ(Read(), WIDE("1"));
    Put("a.ini", "[A]\r\nk=2\r\n");
    EXPECT_EQ(Read(), WIDE("2"));
    std::filesystem::remove(folder() / "a.ini");
    EXPECT_EQ(Read(), WIDE("none"));
}

TEST_F(SimulatedIni, IsReadOftenAndQuickly) {
    std::string palette;
    for (int i = 0; i < 5000; ++i) palette += "[" + std::to_string(i) + "]\r\nvalue=1.2.3\r\n";
    Put("a.ini", palette + "[A]\r\nk=v\r\n");
    MakeOld();
    const std::clock_t start = std::clock();
    for (int i = 0; i < 20000; ++i) EXPECT_EQ(Read(), WIDE("v"));
    // Reading the file's 10 000 lines each time would take minutes.
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
}

TEST_F(SimulatedIni, AFallbackOfBlanksIsEmpty) {
    EXPECT_EQ(Read(WIDE("k"), WIDE("   ")), WIDE(""));
}

TEST_F(SimulatedIni, WithoutAPathGivesTheFallback) {
    WideChar value[8] = {};
    EXPECT_EQ(GetPrivateProfileStringW(WIDE("A"), WIDE("k"), WIDE("fb"), value, 8, nullptr), 2u);
    EXPECT_EQ(WideText(value), WIDE("fb"));
    EXPECT_FALSE(WritePrivateProfileStringW(WIDE("A"), WIDE("k"), WIDE("v"), nullptr));
}

TEST_F(SimulatedIni, HeldByAnotherProgramGivesTheFallbackAndIsNotWritten) {
    Put("a.ini", "[A]\r\nk=1\r\n");
    EXPECT_EQ(Read(), WIDE("1"));
    TheWindows().Hold(WIDE("c:\\A.INI"));
    EXPECT_EQ(Read(), WIDE("none"));
    EXPECT_FALSE(Write(WIDE("2")));
    TheWindows().Release(WIDE("C:\\a.ini"));
    EXPECT_EQ(Read(), WIDE("1"));
    EXPECT_TRUE(Write(WIDE("2")));
}

TEST_F(SimulatedIni, ThatIsReadOnlyIsNotWritten) {
    Put("a.ini", "[A]\r\nk=1\r\n");
    std::filesystem::permissions(folder() / "a.ini", std::filesystem::perms::owner_read);
    EXPECT_FALSE(Write(WIDE("2")));
    EXPECT_EQ(Read(), WIDE("1"));
}

TEST_F(SimulatedIni, WithoutAPlaceForTheValueIsAComplaint) {
    EXPECT_EQ(
        GetPrivateProfileStringW(WIDE("A"), WIDE("k"), WIDE("fb"), nullptr, 8, WIDE("C:\\a.ini")),
        0u);
    EXPECT_EQ(TakeComplaints(), std::vector<std::string>{
                                    "GetPrivateProfileStringW: the place for the value is null"});
}

TEST_F(SimulatedIni, AReadThatIsToldToFailGivesTheFallback) {
    Put("a.ini", "[A]\r\nk=v\r\n");
    Operation::Fail({"GetPrivateProfileStringW", 2});
    EXPECT_EQ(Read(), WIDE("v"));
    EXPECT_EQ(Read(WIDE("k"), WIDE("fb ")), WIDE("fb"));
    EXPECT_EQ(Read(), WIDE("v"));
    EXPECT_EQ(Operation::FiredFaults(), 1u);
}

TEST_F(SimulatedIni, AWriteThatIsToldToFailChangesNothing) {
    Put("a.ini", "[A]\r\nk=v\r\n");
    Operation::Fail({"WritePrivateProfileStringW"});
    EXPECT_FALSE(Write(WIDE("w")));
    EXPECT_EQ(Bytes("a.ini"), "[A]\r\nk=v\r\n");
    EXPECT_TRUE(Write(WIDE("w")));
}

TEST_F(SimulatedIni, IsRecordedInTheJournal) {
    Put("a.ini", "[A]\r\nk=v\r\n");
    TheHost().journal.Start();
    Read();
    WideChar unterminated = '#';
    GetPrivateProfileStringW(WIDE("A"), WIDE("k"), nullptr, &unterminated, 0, WIDE("C:\\a.ini"));
    Write(nullptr);
    TheHost().journal.Stop();
    EXPECT_EQ(
        TheHost().journal.lines(),
        (std::vector<std::string>{
            R"(GetPrivateProfileStringW(section="A", key="k", fallback="none", value="v", )"
            R"(size=64, path="C:\a.ini") = 1)",
            R"(GetPrivateProfileStringW(section="A", key="k", fallback=null, value="", size=0, )"
            R"(path="C:\a.ini") = 0)",
            R"(WritePrivateProfileStringW(section="A", key="k", value=null, path="C:\a.ini") = 1)",
        }));
}

}  // namespace

#endif
