// The exports of one click from outside: where the files go, what they are named, and how little
// is said.
#include "simhost/model/drawing.h"
#include "tests/export/folders.h"

namespace {

using namespace simhost;
using workbench::FolderBench;
using workbench::Names;

constexpr const char* kDesktop = "C:\\Users\\Designer\\Desktop";

class OneClick : public FolderBench {
protected:
    void SetUp() override {
        FolderBench::SetUp();
        MakeFolder(kDesktop);
    }
    // A drawing with so many sheets, each with its number as a note; open.
    Model& OpenDrawing(int sheets, const std::string& name = "plan") {
        Model& drawing = workbench::MakeModel(name, PRO_MDL_DRAWING);
        for (int i = 0; i < sheets; ++i) drawing.drawingData.sheets.emplace_back();
        Open(drawing);
        return drawing;
    }
    // The calls of a command and of the lines after it.
    Names CallsOf(const std::string& command, const std::string& then = "") {
        Record();
        Play("~ Command `" + command + "`\n" + then);
        return CallsOfTheAction();
    }
    // What the calls of an operation were given as their file.
    Names Paths(const std::string& operation, const std::string& argument) {
        Names paths;
        for (const std::string& line : Lines(operation)) {
            const std::size_t from = line.find(argument + "=\"") + argument.size() + 2;
            paths.push_back(line.substr(from, line.find('"', from) - from));
        }
        return paths;
    }
    Names Desktop() { return FilesOf(kDesktop); }
};

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

// --- VxExportStp ---

class ExportStp : public OneClick {
protected:
    Names Press(const std::string& then = "") { return CallsOf("VxExportStp", then); }
    Names Files() { return Paths("ProOutputFileWrite", "file"); }
    std::string Message() { return Utf8(host().messages.last()); }
};

constexpr const char* kExported = "STP 模型已导出";

TEST_F(ExportStp, PutsAPartOntoTheDesktopAndSaysSoInTheMessageLine) {
    for (const char* value : {"deskTop", "DESKTOP", " desk top"}) {
        Setting("VxExportStpDir", value);
        Open(Part("plate"));
        Press();
        EXPECT_EQ(Desktop(), Names{"PLATE.stp"}) << value;
        EXPECT_EQ(Message(), kExported) << value;
        std::filesystem::remove(Real(std::string(kDesktop) + "\\PLATE.stp"));
        Play("@ close\n@ erase plate.prt");
    }
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(ExportStp, AsksForAnyOtherDestination) {
    Open(Part("plate"));
    for (const char* value : {"", "byUser", "elsewhere"}) {
        Setting("VxExportStpDir", value);
        Press("@ answer C:\\Out");
        EXPECT_EQ(Paths("ProDirectoryChoose", "title"), Names{"请选择STP文件导出位置"}) << value;
        EXPECT_EQ(Files(), Names{"C:\\Out\\PLATE.stp"}) << value;
    }
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"PLATE.stp"});
    EXPECT_EQ(Directory(), "C:\\Work");
}

TEST_F(ExportStp, AsksWithoutSettings) {
    std::filesystem::remove(Real("C:\\Plug-in\\VXconfig\\VxConfig.ini"));
    Open(Part("plate"));
    Press("@ answer C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"PLATE.stp"});
}

TEST_F(ExportStp, EndsInSilenceWhenThePromptIsLeft) {
    Open(Part("plate"));
    const std::string before = Message();
    Press("@ quit");
    EXPECT_EQ(Files(), Names{});
    EXPECT_EQ(Message(), before);
}

TEST_F(ExportStp, GoesOnWithNoFolderAfterAPromptThatFailsOtherwise) {
    Open(Part("plate"));
    Fail("ProDirectoryChoose");
    Press();
    EXPECT_EQ(Files(), Names{"\\PLATE.stp"});
    EXPECT_EQ(Message(), kExported);
}

TEST_F(ExportStp, MakesItsCallsInTheirOrder) {
    Open(Part("plate"));
    EXPECT_EQ(Press("@ answer C:\\Out"),
              (Names{"ProMdlCurrentGet", "ProMdlTypeGet", "ProMdlNameGet", "GetModuleHandleW",
                     "GetModuleFileNameW", "GetPrivateProfileStringW", "ProDirectoryChoose",
                     "ProOutputFileWrite", "ProMessageDisplay"}));
    EXPECT_EQ(Lines("ProOutputFileWrite"),
              Names{"ProOutputFileWrite(model=plate.prt, file=\"C:\\Out\\PLATE.stp\", format=22, "
                    "first=null, second=null, third=null, fourth=null) = 0"});
}

TEST_F(ExportStp, WritesAnAssemblyIntoOneFile) {
    Open(workbench::MakeModels("top: a, sub(b)"));
    Press("@ answer C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"TOP.stp"});
}

TEST_F(ExportStp, TakesTheAssemblyOfAManufacturingModelAndItsName) {
    Open(workbench::MakeModels("mill.mfg: top(a)"));
    Press("@ answer C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"TOP.stp"});
}

TEST_F(ExportStp, OfAManufacturingModelWithoutAnAssemblyWritesNothingAndTellsAllTheSame) {
    Open(workbench::MakeModels("mill.mfg: top(a)"));
    Fail("ProMfgAssemGet");
    Press("@ answer C:\\Out");
    EXPECT_EQ(Files(), Names{});
    EXPECT_EQ(Lines("ProMdlNameGet"), Names{});
    EXPECT_EQ(Message(), kExported);
}

TEST_F(ExportStp, HandsADrawingToTheWriterWhereTheRuleIsGoneRound) {
    Setting("VxExportStpDir", "deskTop");
    OpenDrawing(1);
    EXPECT_EQ(host().commands.Access("VxExportStp"), ACCESS_INVISIBLE);
    Record();
    Play("@ mapped key VxExportStp");
    Recorded();
    ASSERT_EQ(Files(), Names{std::string(kDesktop) + "\\PLAN.stp"});
    EXPECT_NE(Lines("ProOutputFileWrite").at(0).find(") = -2"), std::string::npos);
    EXPECT_EQ(Desktop(), Names{});
    EXPECT_EQ(Message(), kExported);
}

TEST_F(ExportStp, TellsOfAnExportEvenIfNothingWasWritten) {
    Open(Part("plate"));
    Write(WIDE("C:\\Out\\PLATE.stp"), "old");
    Play("@ hold C:\\Out\\PLATE.stp");
    Press("@ answer C:\\Out");
    EXPECT_EQ(Bytes("C:\\Out\\PLATE.stp"), "old");
    EXPECT_EQ(Message(), kExported);
    Play("@ let go C:\\Out\\PLATE.stp");
}

TEST_F(ExportStp, DoesNothingAtAllWithoutAModel) {
    Record();
    Play("@ mapped key VxExportStp");
    EXPECT_EQ(Recorded(), Names{"ProMdlCurrentGet"});
}

TEST_F(ExportStp, TakesANameAsItIsAndNotAsAFormat) {
    Open(Part("50%D%S 轴"));
    Press("@ answer C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"50%D%S 轴.stp"});
}

}  // namespace
