// VxExportPdf from outside: its fixed options, the file that is moved, and the one that stays.
#include "tests/export/one_click.h"

namespace {

using namespace simhost;
using workbench::kDesktop;
using workbench::Names;
using workbench::OneClick;

// --- VxExportPdf ---

class ExportPdf : public OneClick {
protected:
    Names Press(const std::string& then = "") { return CallsOf("VxExportPdf", then); }
    Names Targets() { return Paths("MoveFileW", "to"); }
};

TEST_F(ExportPdf, PutsADrawingOntoTheDesktopAndLeavesNothingElsewhere) {
    Setting("VxExportPdfDIr", "deskTop");
    OpenDrawing(1);
    Press();
    EXPECT_EQ(Desktop(), Names{"PLAN.pdf"});
    EXPECT_FALSE(Bytes(std::string(kDesktop) + "\\PLAN.pdf").empty());
    EXPECT_EQ(FilesOf("C:\\Work"), Names{});
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(ExportPdf, ReadsTheDestinationInWhateverLettersAndWithoutItsBlanks) {
    OpenDrawing(1);
    Setting("VxExportPdfDIr", " DESK top");
    Press();
    EXPECT_EQ(Desktop(), Names{"PLAN.pdf"});
    Setting("VxExportPdfDIr", "by USER");
    Press("@ answer C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"PLAN.pdf"});
}

TEST_F(ExportPdf, DoesNothingForAnyOtherDestinationAndSaysNothing) {
    OpenDrawing(1);
    Setting("VxExportDwgDIr", "deskTop");
    for (const char* value : {"", "elsewhere"}) {
        Setting("VxExportPdfDIr", value);
        const Names calls = Press();
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProPDFoptionsAlloc"), 0) << value;
        EXPECT_EQ(Targets(), Names{}) << value;
    }
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(ExportPdf, AsksWithTheTitleOfTheOtherCommand) {
    Setting("VxExportPdfDIr", "byUser");
    OpenDrawing(1);
    Press("@ answer C:\\Out");
    EXPECT_EQ(Paths("ProDirectoryChoose", "title"), Names{"请选择DWG文件导出位置"});
}

TEST_F(ExportPdf, EndsInSilenceWhenThePromptIsLeft) {
    Setting("VxExportPdfDIr", "byUser");
    OpenDrawing(1);
    const Names calls = Press("@ quit");
    EXPECT_EQ(calls.back(), "ProDirectoryChoose");
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(ExportPdf, SetsFourFixedOptionsOnceAndLeavesTheRecord) {
    Setting("VxExportPdfDIr", "byUser");
    OpenDrawing(2);
    EXPECT_EQ(Press("@ answer C:\\Out"),
              (Names{"ProMdlCurrentGet", "GetModuleHandleW", "GetModuleFileNameW",
                     "GetPrivateProfileStringW", "ProMdlNameGet", "ProDrawingSheetsCount",
                     "ProDirectoryChoose", "ProPDFoptionsAlloc", "ProPDFoptionsIntpropertySet",
                     "ProPDFoptionsIntpropertySet", "ProPDFoptionsBoolpropertySet",
                     "ProPDFoptionsBoolpropertySet", "ProPDFExport", "MoveFileW", "ProPDFExport",
                     "MoveFileW"}));
    const auto ends = [&](const std::string& operation) {
        Names texts;
        for (const std::string& line : Lines(operation)) {
            texts.push_back(line.substr(line.find("option=")));
        }
        return texts;
    };
    EXPECT_EQ(ends("ProPDFoptionsIntpropertySet"),
              (Names{"option=0, value=0) = 0", "option=1, value=2) = 0"}));
    EXPECT_EQ(ends("ProPDFoptionsBoolpropertySet"),
              (Names{"option=5, value=0) = 0", "option=25, value=1) = 0"}));
    EXPECT_EQ(Paths("ProPDFExport", "file"), (Names{"temp.pdf", "temp.pdf"}));
    EXPECT_EQ(Paths("MoveFileW", "from"), (Names{"temp.pdf", "temp.pdf"}));
    EXPECT_EQ(Targets(), (Names{"C:\\Out\\PLAN-1.pdf", "C:\\Out\\PLAN-2.pdf"}));
}

TEST_F(ExportPdf, WritesAFileForEachSheetAndAllSheetsIntoEach) {
    Setting("VxExportPdfDIr", "byUser");
    OpenDrawing(3);
    Press("@ answer C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), (Names{"PLAN-1.pdf", "PLAN-2.pdf", "PLAN-3.pdf"}));
    EXPECT_EQ(Bytes("C:\\Out\\PLAN-1.pdf"), Bytes("C:\\Out\\PLAN-3.pdf"));
}

TEST_F(ExportPdf, KeepsAFileThatIsThereAndLeavesTheNewOneInTheWorkingFolder) {
    Setting("VxExportPdfDIr", "byUser");
    OpenDrawing(1);
    Write(WIDE("C:\\Out\\PLAN.pdf"), "old");
    MakeFolder("C:\\Elsewhere");
    Play("@ directory C:\\Elsewhere");
    Press("@ answer C:\\Out");
    EXPECT_EQ(Bytes("C:\\Out\\PLAN.pdf"), "old");
    EXPECT_EQ(FilesOf("C:\\Elsewhere"), Names{"temp.pdf"});
    EXPECT_EQ(Boxes(), Names{});
    // The next one goes over it.
    std::filesystem::remove(Real("C:\\Out\\PLAN.pdf"));
    Press("@ answer C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"PLAN.pdf"});
    EXPECT_EQ(FilesOf("C:\\Elsewhere"), Names{});
}

TEST_F(ExportPdf, MovesWhatIsThereEvenAfterAnExportThatFailed) {
    Setting("VxExportPdfDIr", "byUser");
    OpenDrawing(2);
    Fail("ProPDFExport");
    Press("@ answer C:\\Out");
    EXPECT_EQ(Targets().size(), 2u);
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"PLAN-2.pdf"});
}

TEST_F(ExportPdf, DoesNotExportWithoutItsOptions) {
    Setting("VxExportPdfDIr", "byUser");
    OpenDrawing(1);
    Fail("ProPDFoptionsAlloc");
    Press("@ answer C:\\Out");
    EXPECT_EQ(Lines("ProPDFExport"), Names{});
    EXPECT_EQ(Lines("ProPDFoptionsIntpropertySet"), Names{});
    EXPECT_EQ(FilesOf("C:\\Out"), Names{});
}

TEST_F(ExportPdf, TakesANameOutsideTheCodePageAndNoneAsAFormat) {
    Setting("VxExportPdfDIr", "byUser");
    OpenDrawing(1, "50%D%S ÀŸ");
    Press("@ answer C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{"50%D%S ÀŸ.pdf"});
}

TEST_F(ExportPdf, TouchesNoOptionOfTheHost) {
    Setting("VxExportPdfDIr", "byUser");
    OpenDrawing(1);
    Press("@ answer C:\\Out");
    EXPECT_EQ(Lines("ProConfigoptGet"), Names{});
    Play("@ expect option dwg_export_format none");
}

TEST_F(ExportPdf, OfAPartWritesNothing) {
    Setting("VxExportPdfDIr", "byUser");
    Open(Part("plate"));
    Play("@ mapped key VxExportPdf\n@ answer C:\\Out");
    EXPECT_EQ(FilesOf("C:\\Out"), Names{});
}

TEST_F(ExportPdf, DoesNothingAtAllWithoutAModel) {
    Record();
    Play("@ mapped key VxExportPdf");
    EXPECT_EQ(Recorded(), Names{"ProMdlCurrentGet"});
}

}  // namespace
