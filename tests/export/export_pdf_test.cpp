// PDF, STEP and IGES files of VxExport: which are written, and what is asked of the host.
#include <algorithm>
#include <filesystem>

#include "simhost/system/windows.h"
#include "tests/export/engine_bench.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::GeneralView;
using workbench::Joined;
using workbench::Names;
using workbench::SheetsOf;

class EnginePdf : public workbench::EngineBench {
protected:
    // The lines of the two calls that set options, in their order: "0=1".
    Names Options() {
        Names options;
        for (const std::string& line : Calls()) {
            const bool sets = line.find("propertySet(") != std::string::npos;
            if (!sets) continue;
            const std::size_t number = line.find("option=") + 7, value = line.find("value=") + 6;
            options.push_back(line.substr(number, line.find(',', number) - number) + "=" +
                              line.substr(value, line.find(')', value) - value));
        }
        return options;
    }
    Names WindowNames() {
        Names names;
        for (const simhost::Window& window : host().session.windows()) {
            if (window.model) names.push_back(window.model->FileName());
        }
        return names;
    }
    static constexpr const char* kProfile = "C:\\Work\\vxdop.dop";
};

TEST_F(EnginePdf, IsOneFileThroughAWindowThatGoesAgain) {
    Formats({"PDFCheck"});
    Play("@ open box.prt");
    const Names calls = After(Export({"2"}), "ProPDFoptionsAlloc");
    EXPECT_EQ(calls, (Names{"ProPDFoptionsAlloc", "ProPDFoptionsIntpropertySet",
                            "ProPDFoptionsBoolpropertySet", "ProPDFoptionsBoolpropertySet",
                            "ProDrawingSheetsCount", "ProObjectwindowCreate", "ProPDFExport",
                            "ProWindowDelete", "ProPDFoptionsFree", "ProMdlEraseNotDisplayed"}));
    EXPECT_EQ(Options(), (Names{"0=0", "5=0", "25=1"}));
    EXPECT_EQ(Files(WIDE("PDF")), Names{"P-1_b.pdf"});
    EXPECT_EQ(WindowNames(), Names{"box.prt"});
    ASSERT_EQ(LinesOf("ProObjectwindowCreate").size(), 1u);
    EXPECT_NE(LinesOf("ProObjectwindowCreate")[0].find("name=\"b\", type=4"), std::string::npos);
    EXPECT_EQ(LinesOf("ProPDFExport"),
              Names{"ProPDFExport(model=b.drw, file=\"C:\\Work\\PDF\\b.pdf\", "
                    "options=PDF options 0=0 1=0 5=0 25=1 28=0) = 0"});
    EXPECT_EQ(LinesOf("MoveFileA"), Names{"MoveFileA(from=\"C:\\Work\\PDF\\b.pdf\", "
                                          "to=\"C:\\Work\\PDF\\P-1_b.pdf\") = 1"});
}

TEST_F(EnginePdf, OptionsComeBeforeTheFolderAndTheFileMovesAfterItsWindowHasGone) {
    Formats({"PDFCheck"});
    Export({"2"});
    EXPECT_EQ(Order({"ProPDFoptionsBoolpropertySet", "CreateDirectoryW", "ProDrawingSheetsCount",
                     "ProPDFExport", "ProWindowDelete", "MoveFileA", "ProPDFoptionsFree"}),
              (Names{"ProPDFoptionsBoolpropertySet", "ProPDFoptionsBoolpropertySet",
                     "CreateDirectoryW", "ProDrawingSheetsCount", "ProPDFExport", "ProWindowDelete",
                     "MoveFileA", "ProPDFoptionsFree"}));
}

TEST_F(EnginePdf, OptionsFollowTheButtons) {
    Formats({"PDFCheck", "PDFOptionCheck", "PDFBlackCheck"});
    Export({"1"});
    EXPECT_EQ(Options(), (Names{"0=1", "1=2", "5=0", "25=1"}));
    // A button that the host does not know is none that is off.
    Formats({"PDFCheck"});
    Fail("ProUICheckbuttonGetState", {.n = 6});
    Export({"1"});
    EXPECT_EQ(Options(), (Names{"0=1", "5=0", "25=1"}));
}

TEST_F(EnginePdf, TheWindowOfADrawingThatTheUserHasOpenIsClosed) {
    Formats({"PDFCheck"});
    Play("@ open b.drw");
    Export({"2"});
    EXPECT_NE(LinesOf("ProWindowDelete").at(0).find("= -8"), std::string::npos);
    EXPECT_EQ(LinesOf("ProWindowCurrentClose").size(), 1u);
    EXPECT_EQ(WindowNames(), Names{});
    Play("@ open a.drw\n@ open b.drw\n@ window a.drw");
    Export({"2"});
    EXPECT_EQ(LinesOf("ProWindowCurrentClose"), Names{});
    EXPECT_EQ(WindowNames(), Names{"a.drw"});
}

TEST_F(EnginePdf, WithoutAWindowNoneIsDeleted) {
    Formats({"PDFCheck"});
    Fail("ProObjectwindowCreate");
    Play("@ open a.drw");
    Export({"2"});
    EXPECT_EQ(LinesOf("ProWindowDelete"), Names{});
    EXPECT_EQ(LinesOf("ProWindowCurrentClose"), Names{});
    EXPECT_EQ(WindowNames(), Names{"a.drw"});
    EXPECT_EQ(Files(WIDE("PDF")), Names{"P-1_b.pdf"});
}

TEST_F(EnginePdf, WithoutOptionsNothingIsWritten) {
    Formats({"PDFCheck"});
    Fail("ProPDFoptionsAlloc");
    Export({"1"});
    EXPECT_EQ(Options(), Names{});
    EXPECT_EQ(LinesOf("ProPDFExport"), Names{});
    EXPECT_EQ(LinesOf("ProPDFoptionsFree"), Names{});
    EXPECT_EQ(Files(WIDE("PDF")), Names{});
}

TEST_F(EnginePdf, AFileThatIsThereStaysAndTheNewOneKeepsTheDrawingsName) {
    Formats({"PDFCheck"});
    std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Work\\PDF")));
    Write(WIDE("C:\\Work\\PDF\\P-1_a.pdf"), "old");
    Export({"1"});
    EXPECT_EQ(Read(WIDE("C:\\Work\\PDF\\P-1_a.pdf")), "old");
    EXPECT_EQ(Files(WIDE("PDF")), (Names{"P-1_a.pdf", "a.pdf"}));
}

TEST_F(EnginePdf, OneSheetIsOneFileWhateverTheButtonSays) {
    Formats({"PDFCheck", "MultiSheetCheck"});
    Export({"1"});
    EXPECT_EQ(Options(), (Names{"0=0", "5=0", "25=1"}));
    EXPECT_EQ(Files(WIDE("PDF")), Names{"P-1_a.pdf"});
}

TEST_F(EnginePdf, SheetsOfTheirOwnGoByTheProfileAndLeaveTheirWindow) {
    Formats({"PDFCheck", "MultiSheetCheck"});
    Naming("图纸名称,sheetsize", "_");
    WriteDrawing("b.drw.3",
                 "\n[[sheet]]\nsize = \"A3\"\n\n[[sheet]]\nsize = \"A2\"\n\n[drawing]\n"
                 "projection = \"first-angle\"\n" +
                     GeneralView(1, "box.prt", 1) + GeneralView(2, "pin.prt", 2));
    const Names calls = After(Export({"2"}), "ProDrawingSheetsCount");
    EXPECT_EQ(Names(calls.begin(), calls.begin() + 16),
              (Names{"ProDrawingSheetsCount", "ProPDFoptionsIntpropertySet",
                     "ProDrawingViewsCollect", "ProArraySizeGet", "ProDrawingCurrentSheetSet",
                     "ProDrawingViewSheetGet", "ProDrawingViewSolidGet", "ProMdlToModelitem",
                     "ProMdlNameGet", "ProDrawingSheetTrfGet", "ProObjectwindowCreate",
                     "ProWindowCurrentSet", "ProWindowActivate", "ProWindowMdlGet",
                     "ProDrawingCurrentSheetSet", "ProToolkitApplTextPathGet"}));
    EXPECT_EQ(calls[16], "ProPDFWithProfileExport");
    EXPECT_EQ(Names(calls.end() - 3, calls.end()),
              (Names{"ProArrayFree", "ProPDFoptionsFree", "ProMdlEraseNotDisplayed"}));
    EXPECT_EQ(Options(), (Names{"0=0", "5=0", "25=1", "28=0"}));
    EXPECT_EQ(Files(WIDE("PDF")), (Names{"BOX_A3.pdf", "PIN_A2.pdf"}));
    EXPECT_EQ(WindowNames(), Names{"b.drw"});
    EXPECT_EQ(host().session.CurrentModel()->FileName(), "b.drw");
    EXPECT_EQ(LinesOf("ProPDFExport"), Names{});
    EXPECT_NE(LinesOf("ProPDFWithProfileExport").at(0).find("profile=\"vxdop\") = 0"),
              std::string::npos);
    EXPECT_EQ(LinesOf("CopyFileW"), Names{"CopyFileW(from=\"C:\\App Text\\VXconfig\\vxdop.dop\", "
                                          "to=\"C:\\Work\\vxdop.dop\", failIfExists=1) = 1"});
    EXPECT_EQ(LinesOf("PathFileExistsW").size(), 2u);
}

TEST_F(EnginePdf, AProfileInTheWorkingFolderIsTheUsers) {
    Formats({"PDFCheck", "MultiSheetCheck"});
    Write(WIDE("C:\\Work\\vxdop.dop"), "sheets = \"all\"\n");
    Export({"2"});
    EXPECT_EQ(LinesOf("CopyFileW"), Names{});
    EXPECT_EQ(Read(WIDE("C:\\Work\\vxdop.dop")), "sheets = \"all\"\n");
}

TEST_F(EnginePdf, SheetsOfTheirOwnWithoutViewsAreLeftWithTheOptions) {
    Formats({"PDFCheck", "STPCheck", "MultiSheetCheck"});
    WriteDrawing("b.drw.3", SheetsOf(2) + "models = [\"box.prt\"]\n");
    const Names calls = Export({"2"});
    EXPECT_EQ(calls.back(), "ProDrawingViewsCollect");
    EXPECT_EQ(LinesOf("ProPDFoptionsFree"), Names{});
    EXPECT_FALSE(Exists(WIDE("C:\\Work\\STP")));
}

TEST_F(EnginePdf, AWindowThatCannotBeHadOrAskedLeavesTheDrawingAsItIs) {
    Formats({"PDFCheck", "MultiSheetCheck"});
    Naming("图纸名称", "_");
    Fail("ProObjectwindowCreate", {.n = 1, .forGood = true});
    Export({"2"});
    EXPECT_EQ(LinesOf("ProWindowCurrentSet"), Names{});
    EXPECT_EQ(Files(WIDE("PDF")), (Names{"BOX.pdf", "PIN.pdf"}));
    std::filesystem::remove_all(host().disk.Real(WIDE("C:\\Work\\PDF")));
    Operation::ForgetFaults();
    Fail("ProWindowMdlGet", {.n = 1, .forGood = true});
    Export({"2"});
    EXPECT_EQ(Files(WIDE("PDF")), (Names{"BOX.pdf", "PIN.pdf"}));
}

// --- STEP and IGES ---

class EngineSolids : public workbench::EngineBench {
protected:
    // What was written: "a.stp of box.prt by 22".
    Names Written() {
        Names written;
        for (const std::string& line : LinesOf("ProOutputFileWrite")) {
            const std::size_t model = line.find("model=") + 6, file = line.find("file=\"") + 6;
            const std::string path = line.substr(file, line.find('"', file) - file);
            const std::size_t code = line.find("format=") + 7;
            written.push_back(path.substr(path.rfind('\\') + 1) + " of " +
                              line.substr(model, line.find(',', model) - model) + " by " +
                              line.substr(code, 2));
        }
        return written;
    }
};

TEST_F(EngineSolids, StepAloneIsTheFirstSolidUnderTheDrawingsName) {
    Formats({"STPCheck"});
    const Names calls = After(Export({"2"}), "ProOutputFileWrite");
    EXPECT_EQ(Written(), Names{"b.stp of box.prt by 22"});
    EXPECT_EQ(Files(WIDE("STP")), Names{"b.stp"});
    EXPECT_EQ(calls, (Names{"ProOutputFileWrite", "ProMdlEraseNotDisplayed"}));
    EXPECT_NE(LinesOf("ProOutputFileWrite")[0].find("null, second=null, third=null, fourth=null"),
              std::string::npos)
        << LinesOf("ProOutputFileWrite")[0];
    EXPECT_EQ(LinesOf("ProDrawingSheetsCount"), Names{});
    EXPECT_EQ(LinesOf("MoveFileA"), Names{});
}

TEST_F(EngineSolids, StepAndIgesAreOneFileEach) {
    Formats({"STPCheck", "IGSCheck"});
    Export({"2"});
    EXPECT_EQ(Written(), (Names{"b.stp of box.prt by 22", "b.igs of box.prt by 21"}));
}

TEST_F(EngineSolids, IgesAloneGoesSheetBySheetAndNobodyHasCountedThem) {
    Formats({"IGSCheck"});
    const Names calls = After(Export({"2"}), "ProDrawingViewsCollect");
    EXPECT_EQ(calls, (Names{"ProDrawingViewsCollect", "ProArraySizeGet", "ProArrayFree",
                            "ProMdlEraseNotDisplayed"}));
    EXPECT_EQ(Written(), Names{});
    EXPECT_TRUE(Exists(WIDE("C:\\Work\\IGS")));
}

TEST_F(EngineSolids, IgesGoesByTheButtonOfStepAndByTheCountOfAnotherFormat) {
    Formats({"DXFCheck", "IGSCheck"});
    Export({"2"});
    // Sheet 2 shows nothing.
    EXPECT_EQ(Written(), (Names{"BOX.igs of box.prt by 21", "PIN.igs of pin.prt by 21"}));
    EXPECT_EQ(LinesOf("ProDrawingCurrentSheetSet").size(), 3u);
    Formats({"DXFCheck", "STPCheck", "IGSCheck", "MultiSheetCheck"});
    Export({"2"});
    EXPECT_EQ(Written(), (Names{"BOX.stp of box.prt by 22", "PIN.stp of pin.prt by 22",
                                "b.igs of box.prt by 21"}));
}

TEST_F(EngineSolids, SheetsAreAskedInThisOrder) {
    Formats({"DXFCheck", "STPCheck", "MultiSheetCheck"});
    WriteDrawing("b.drw.3", SheetsOf(1) + GeneralView(1, "pin.prt", 1));
    const Names calls = After(Export({"2"}), "ProDrawingViewsCollect");
    EXPECT_EQ(calls,
              (Names{"ProDrawingViewsCollect", "ProArraySizeGet", "ProDrawingCurrentSheetSet",
                     "ProDrawingViewSheetGet", "ProDrawingViewSolidGet", "ProMdlNameGet",
                     "ProOutputFileWrite", "ProArrayFree", "ProMdlEraseNotDisplayed"}));
}

TEST_F(EngineSolids, WithoutViewsTheDrawingIsLeft) {
    Formats({"STPCheck", "IGSCheck", "MultiSheetCheck"});
    WriteDrawing("b.drw.3", SheetsOf(1) + "models = [\"box.prt\"]\n");
    const Names calls = Export({"2"});
    EXPECT_EQ(calls.back(), "ProDrawingViewsCollect");
    EXPECT_FALSE(Exists(WIDE("C:\\Work\\IGS")));
    // So it is with an empty list.
    Fail("ProDrawingViewsCollect", {.n = 1, .forGood = true, .status = PRO_TK_NO_ERROR});
    Export({"2"});
    EXPECT_FALSE(Exists(WIDE("C:\\Work\\IGS")));
}

TEST_F(EngineSolids, AFileThatCannotBeWrittenStaysAndTheEndIsTheSame) {
    Formats({"STPCheck"});
    std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Work\\STP")));
    Write(WIDE("C:\\Work\\STP\\b.stp"), "old");
    TheWindows().Hold(WIDE("C:\\Work\\STP\\b.stp"));
    Export({"2"});
    TheWindows().Release(WIDE("C:\\Work\\STP\\b.stp"));
    EXPECT_EQ(Read(WIDE("C:\\Work\\STP\\b.stp")), "old");
}

}  // namespace
