// VxExportStp from outside: the desktop or a prompt, one file, one message.
#include "tests/export/one_click.h"

namespace {

using namespace simhost;
using workbench::kDesktop;
using workbench::Names;
using workbench::OneClick;

// --- VxExportStp ---

class ExportStp : public OneClick {
protected:
    void SetUp() override {
        OneClick::SetUp();
        Setting("VxExportStpDir", "byUser");
    }
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
    Play("@ let go C:\\Out\\PLATE.stp");
    EXPECT_EQ(Bytes("C:\\Out\\PLATE.stp"), "old");
    EXPECT_EQ(Message(), kExported);
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
