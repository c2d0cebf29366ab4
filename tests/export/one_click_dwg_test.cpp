// VxExportDwg from outside: where the files go, what they are named, and how little is said.
#include "simhost/core/disk.h"
#include "simhost/model/drawing.h"
#include "tests/export/one_click.h"

namespace {

using namespace simhost;
using workbench::kDesktop;
using workbench::Names;
using workbench::OneClick;

// --- VxExportDwg: where to ---

class ExportDwg : public OneClick {
protected:
    Names Press(const std::string& then = "") { return CallsOf("VxExportDwg", then); }
    Names Files() { return Paths("Pro2dExport", "file"); }
};

TEST_F(ExportDwg, PutsADrawingOfOneSheetOntoTheDesktop) {
    Setting("VxExportDwgDIr", "deskTop");
    OpenDrawing(1);
    Press();
    EXPECT_EQ(Desktop(), Names{"PLAN.dwg"});
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(ExportDwg, ReadsTheDestinationInWhateverLettersAndWithoutItsBlanks) {
    OpenDrawing(1);
    for (const char* value : {"DESKTOP", "desktop", " desk Top "}) {
        std::filesystem::remove(Real(std::string(kDesktop) + "\\PLAN.dwg"));
        Setting("VxExportDwgDIr", value);
        Press();
        EXPECT_EQ(Desktop(), Names{"PLAN.dwg"}) << value;
    }
    for (const char* value : {"byUser", "BYUSER", "b y User"}) {
        std::filesystem::remove(Real("C:\\Out\\PLAN.dwg"));
        Setting("VxExportDwgDIr", value);
        Press("@ answer C:\\Out");
        EXPECT_EQ(FilesOf("C:\\Out"), Names{"PLAN.dwg"}) << value;
    }
}

TEST_F(ExportDwg, DoesNothingForAnyOtherDestinationAndSaysNothing) {
    OpenDrawing(1);
    for (const char* value : {"", "elsewhere", "deskTops", "desk"}) {
        Setting("VxExportDwgDIr", value);
        const Names calls = Press();
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProDirectoryChoose"), 0) << value;
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "Pro2dExport"), 0) << value;
    }
    EXPECT_EQ(Desktop(), Names{});
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(ExportDwg, DoesNothingWithoutSettings) {
    std::filesystem::remove(Real("C:\\Plug-in\\VXconfig\\VxConfig.ini"));
    OpenDrawing(1);
    Press();
    EXPECT_EQ(Files(), Names{});
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(ExportDwg, ReadsTheSettingBesideTheModuleByItsOwnSpelling) {
    TextFolderSetting("VxExportDwgDIr", "deskTop");
    Setting("VxExportDwgDIr", "");
    Setting("VxExportDwgDir2", "deskTop");
    Setting("VxExportPdfDIr", "deskTop");
    Setting("VxExportStpDir", "deskTop");
    OpenDrawing(1);
    Press();
    EXPECT_EQ(Files(), Names{});
    Press();
    ASSERT_EQ(Lines("GetPrivateProfileStringW").size(), 1u);
    EXPECT_NE(Lines("GetPrivateProfileStringW").at(0).find("VxExportDwgDIr"), std::string::npos);
}

TEST_F(ExportDwg, AsksForAFolderAndTakesItAsItComes) {
    Setting("VxExportDwgDIr", "byUser");
    OpenDrawing(1);
    Press("@ answer C:\\Out\\");
    EXPECT_EQ(Paths("ProDirectoryChoose", "title"), Names{"请选择DWG文件导出位置"});
    EXPECT_EQ(Files(), Names{"C:\\Out\\\\PLAN"});
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"PLAN.dwg"});
    EXPECT_EQ(Directory(), "C:\\Work");
}

TEST_F(ExportDwg, EndsInSilenceWhenThePromptIsLeft) {
    Setting("VxExportDwgDIr", "byUser");
    OpenDrawing(1);
    Press("@ quit");
    EXPECT_EQ(Files(), Names{});
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(ExportDwg, GoesOnWithNoFolderAfterAPromptThatFailsOtherwise) {
    Setting("VxExportDwgDIr", "byUser");
    OpenDrawing(1);
    Fail("ProDirectoryChoose");
    Press();
    EXPECT_EQ(Files(), Names{"\\PLAN"});
}

TEST_F(ExportDwg, GoesOnWithNoFolderWhereTheDesktopIsNotToBeHad) {
    Setting("VxExportDwgDIr", "deskTop");
    OpenDrawing(1);
    Fail("SHGetSpecialFolderPathW");
    Press();
    EXPECT_EQ(Files(), Names{"\\PLAN"});
}

// --- VxExportDwg: which files ---

TEST_F(ExportDwg, WritesAFileForEachSheetAndInEachTheCurrentOne) {
    Setting("VxExportDwgDIr", "deskTop");
    Model& drawing = OpenDrawing(3);
    DrawingOf(drawing).currentSheet = 2;
    const Names calls = Press();
    EXPECT_EQ(Files(),
              (Names{std::string(kDesktop) + "\\PLAN-1", std::string(kDesktop) + "\\PLAN-2",
                     std::string(kDesktop) + "\\PLAN-3"}));
    EXPECT_EQ(Desktop(), (Names{"PLAN-1.dwg", "PLAN-2.dwg", "PLAN-3.dwg"}));
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProDrawingCurrentSheetSet"), 0);
    EXPECT_EQ(DrawingOf(drawing).currentSheet, 2);
    const std::string first = Bytes(std::string(kDesktop) + "\\PLAN-1.dwg");
    EXPECT_FALSE(first.empty());
    EXPECT_EQ(Bytes(std::string(kDesktop) + "\\PLAN-3.dwg"), first);
}

TEST_F(ExportDwg, NumbersFromTwoSheetsOn) {
    Setting("VxExportDwgDIr", "deskTop");
    OpenDrawing(2);
    Press();
    EXPECT_EQ(Desktop(), (Names{"PLAN-1.dwg", "PLAN-2.dwg"}));
}

TEST_F(ExportDwg, TakesANameAsItIsAndNotAsAFormat) {
    Setting("VxExportDwgDIr", "deskTop");
    OpenDrawing(2, "50%D%S 图");
    Press();
    EXPECT_EQ(Desktop(), (Names{"50%D%S 图-1.dwg", "50%D%S 图-2.dwg"}));
}

TEST_F(ExportDwg, GoesOnWithTheNextSheetAfterOneThatFails) {
    Setting("VxExportDwgDIr", "deskTop");
    OpenDrawing(3);
    Fail("Pro2dExport", {.n = 2});
    Press();
    EXPECT_EQ(Desktop(), (Names{"PLAN-1.dwg", "PLAN-3.dwg"}));
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(ExportDwg, WritesNothingWhereTheSheetsAreNotCounted) {
    Setting("VxExportDwgDIr", "deskTop");
    OpenDrawing(3);
    Fail("ProDrawingSheetsCount");
    Press();
    EXPECT_EQ(Files(), Names{});
}

TEST_F(ExportDwg, WritesUnderNoNameWhereTheHostTellsNone) {
    Setting("VxExportDwgDIr", "deskTop");
    OpenDrawing(1);
    Fail("ProMdlNameGet");
    Press();
    EXPECT_EQ(Files(), Names{std::string(kDesktop) + "\\"});
}

TEST_F(ExportDwg, DoesNotHandThePathThatNoRecordHolds) {
    Setting("VxExportDwgDIr", "byUser");
    std::string folder = "C:\\";
    while (folder.size() < 200) folder += "0123456789012345678901234567890123456789\\";
    folder += std::string(254 - folder.size(), 'x');
    MakeFolder(folder);
    OpenDrawing(1, "1234");
    Press("@ answer " + folder);
    EXPECT_EQ(Files(), Names{folder + "\\1234"});  // 259 characters
    OpenDrawing(1, "12345");
    Press("@ answer " + folder);
    EXPECT_EQ(Files(), Names{});
}

TEST_F(ExportDwg, KeepsTheFileThatAnotherProgramHoldsOrThatAFullDiskHas) {
    Setting("VxExportDwgDIr", "deskTop");
    OpenDrawing(1);
    const std::string file = std::string(kDesktop) + "\\PLAN.dwg";
    Write(Wide(file), "old");
    Play("@ hold " + file);
    Press();
    EXPECT_EQ(Bytes(file), "old");
    Play("@ let go " + file);
    LimitDisk(1);
    Press();
    LimitDisk({});
    EXPECT_EQ(Bytes(file), "old");
    EXPECT_EQ(Desktop(), Names{"PLAN.dwg"});
}

// --- VxExportDwg: the format, and the order of calls ---

TEST_F(ExportDwg, ChoosesAFormatWhereNoneIsChosenEvenIfNothingIsWritten) {
    OpenDrawing(1);
    Press();
    Play("@ expect option dwg_export_format 2000");
}

TEST_F(ExportDwg, KeepsTheFormatThatIsChosen) {
    Setting("VxExportDwgDIr", "deskTop");
    OpenDrawing(1);
    for (const char* value : {"2018", "\"\""}) {
        Play(std::string("@ option dwg_export_format ") + value);
        Press();
        EXPECT_EQ(Lines("ProConfigoptSet"), Names{}) << value;
        Play(std::string("@ expect option dwg_export_format ") + value);
    }
}

TEST_F(ExportDwg, ChoosesTheFormatBeforeItReadsAnythingElse) {
    Setting("VxExportDwgDIr", "byUser");
    OpenDrawing(2);
    const Names calls = Press("@ answer C:\\Out");
    EXPECT_EQ(calls,
              (Names{"ProMdlCurrentGet", "ProConfigoptGet", "ProConfigoptSet", "GetModuleHandleW",
                     "GetModuleFileNameW", "GetPrivateProfileStringW", "ProMdlNameGet",
                     "ProDrawingSheetsCount", "ProDirectoryChoose", "Pro2dExport", "Pro2dExport"}));
    EXPECT_EQ(Lines("ProConfigoptSet"),
              Names{"ProConfigoptSet(option=\"dwg_export_format\", value=\"2000\") = 0"});
    EXPECT_EQ(Lines("Pro2dExport").at(0).substr(0, 22), "Pro2dExport(format=34,");
}

TEST_F(ExportDwg, DoesNothingAtAllWithoutAModel) {
    Record();
    Play("@ mapped key VxExportDwg");
    EXPECT_EQ(Recorded(), Names{"ProMdlCurrentGet"});
    Play("@ expect option dwg_export_format none");
}

TEST_F(ExportDwg, OfAPartAsksAndFindsNoSheets) {
    Setting("VxExportDwgDIr", "byUser");
    Open(Part("plate"));
    Record();
    Play("@ mapped key VxExportDwg\n@ answer C:\\Out");
    Recorded();
    EXPECT_EQ(Lines("ProDrawingSheetsCount").size(), 1u);
    EXPECT_EQ(Files(), Names{});
    EXPECT_EQ(Boxes(), Names{});
}

}  // namespace
