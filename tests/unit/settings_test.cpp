// Values of INI files: where they end, what is deleted in them, and that nothing is ever assumed.
#include "frame/services/settings.h"
#include "simhost/system/windows.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

const WideText kFile = WIDE("C:\\Work\\a.ini");

class Settings : public Workbench {
protected:
    Settings() {
        TheWindows().AddModule(WIDE("vorlatix5.1.dll"),
                               workbench::kModuleFolder + WIDE("\\vorlatix5.1.dll"));
    }
};

TEST_F(Settings, AreEmptyWithoutFileSectionOrKey) {
    EXPECT_EQ(ReadIniValue(kFile, WIDE("A"), WIDE("value")), WIDE(""));
    Write(kFile, "[A]\r\nvalue=1\r\n");
    EXPECT_EQ(ReadIniValue(kFile, WIDE("B"), WIDE("value")), WIDE(""));
    EXPECT_EQ(ReadIniValue(kFile, WIDE("A"), WIDE("path")), WIDE(""));
    EXPECT_EQ(ReadIniValue(kFile, WIDE("A"), WIDE("value")), WIDE("1"));
    EXPECT_EQ(ConfigValue(WIDE("NoSuchSection"), Place::BesideModule), WIDE(""));
}

TEST_F(Settings, AreCutAfter254Characters) {
    Write(kFile, "[A]\r\nvalue=" + std::string(254, 'x') + "\r\npath=" + std::string(255, 'y') +
                     "\r\ncontent=" + std::string(5000, 'z') + "\r\n");
    EXPECT_EQ(ReadIniValue(kFile, WIDE("A"), WIDE("value")), WideText(254, WideChar{'x'}));
    EXPECT_EQ(ReadIniValue(kFile, WIDE("A"), WIDE("path")), WideText(254, WideChar{'y'}));
    EXPECT_EQ(ReadIniValue(kFile, WIDE("A"), WIDE("content")), WideText(254, WideChar{'z'}));
}

TEST_F(Settings, AreCutBeforeTheirBlanksAreDeleted) {
    // 200 blanks inside count: 1, the blanks and 53 of the 100 letters are read.
    Setting("Long", "1" + std::string(200, ' ') + std::string(100, 'x'));
    EXPECT_EQ(ConfigValue(WIDE("Long"), Place::BesideModule),
              WIDE("1") + WideText(53, WideChar{'x'}));
}

TEST_F(Settings, KeepTheirBlanksWhereTheyArePaths) {
    Write(kFile, "[A0Asmpath]\r\npath=C:\\My templates\\a 0.drw\r\n");
    EXPECT_EQ(ReadIniValue(kFile, WIDE("A0Asmpath"), WIDE("path")),
              WIDE("C:\\My templates\\a 0.drw"));
}

TEST_F(Settings, LoseTheirBlanksWhereTheyAreChoices) {
    Setting("Choice", "\" as  UG \"");
    EXPECT_EQ(ConfigValue(WIDE("Choice"), Place::BesideModule), WIDE("asUG"));
    Setting("Choice", " 1 ");
    EXPECT_EQ(ConfigValue(WIDE("Choice"), Place::BesideModule), WIDE("1"));
    Setting("Choice", "   ");
    EXPECT_EQ(ConfigValue(WIDE("Choice"), Place::BesideModule), WIDE(""));
}

TEST_F(Settings, AreReadInThePlaceThatIsNamed) {
    Setting("Choice", "module");
    TextFolderSetting("Choice", "text");
    EXPECT_EQ(ConfigValue(WIDE("Choice"), Place::BesideModule), WIDE("module"));
    EXPECT_EQ(ConfigValue(WIDE("Choice"), Place::TextFolder), WIDE("text"));
}

TEST_F(Settings, AreReadWithTheirOwnKeyOnly) {
    Write(workbench::kModuleFolder + WIDE("\\VXconfig\\VxConfig.ini"),
          "[Choice]\r\npath=p\r\ncontent=c\r\n");
    EXPECT_EQ(ConfigValue(WIDE("Choice"), Place::BesideModule), WIDE(""));
}

TEST_F(Settings, AreReadByOneCallWithTheEmptyTextAsDefault) {
    Setting("Choice", "1");
    host().journal.Start();
    ConfigValue(WIDE("Choice"), Place::BesideModule);
    host().journal.Stop();
    ASSERT_EQ(Calls().size(), 3u);
    EXPECT_EQ(Calls()[0], R"(GetModuleHandleW(name="vorlatix5.1.dll") = pointer)");
    EXPECT_EQ(Calls()[2],
              R"(GetPrivateProfileStringW(section="Choice", key="value", fallback="", value="1", )"
              R"(size=255, path="C:\Plug-in\VXconfig\VxConfig.ini") = 1)");
}

TEST_F(Settings, AreEmptyWhenTheyCannotBeRead) {
    Setting("Choice", "1");
    Fail("GetPrivateProfileStringW");
    EXPECT_EQ(ConfigValue(WIDE("Choice"), Place::BesideModule), WIDE(""));
}

TEST_F(Settings, MayBeChinese) {
    Write(kFile, "[A]\r\nvalue=\xCF\xEE \xC4\xBF\r\n");
    EXPECT_EQ(ReadIniValue(kFile, WIDE("A"), WIDE("value")), WIDE("项 目"));
}

TEST_F(Settings, AreWrittenInOneCallThatMakesTheFile) {
    host().journal.Start();
    WriteIniValue(kFile, WIDE("A"), WIDE("value"), WIDE("项目"));
    host().journal.Stop();
    EXPECT_EQ(host().journal.Names(), std::vector<std::string>{"WritePrivateProfileStringW"});
    EXPECT_EQ(ReadIniValue(kFile, WIDE("A"), WIDE("value")), WIDE("项目"));
    EXPECT_NE(Read(kFile).find("value=\xCF\xEE\xC4\xBF"), std::string::npos);
}

TEST_F(Settings, AreWrittenQuietlyWhereNothingCanBeWritten) {
    WriteIniValue(WIDE("C:\\No such folder\\a.ini"), WIDE("A"), WIDE("value"), WIDE("1"));
    EXPECT_EQ(Boxes(), std::vector<std::string>{});
}

}  // namespace
