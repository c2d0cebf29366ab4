// What the button ApplyBt of VxExport writes, under which names, and what it asks of the host.
#include <algorithm>
#include <filesystem>

#include "simhost/core/meanwhile.h"
#include "simhost/system/windows.h"
#include "tests/export/engine_bench.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using Engine = workbench::EngineBench;
using workbench::GeneralView;
using workbench::Joined;
using workbench::Names;
using workbench::SheetsOf;

// --- The start and the end ---

TEST_F(Engine, WithoutASelectionNothingIsRead) {
    Check("~ Activate `VxExport` `ApplyBt`\n@ expect box 请先选择需要导出的工程图\n@ ok\n");
    EXPECT_EQ(Boxes(), Names{"\t\t请先选择需要导出的工程图\t\t"});
    EXPECT_EQ(AllBoxes()[0].flags, 0x40000u);
    EXPECT_EQ(LinesOf("ProUICheckbuttonGetState").size(), 8u);
    EXPECT_EQ(LinesOf("ProUIInputpanelValueGet"), Names{});
    EXPECT_EQ(LinesOf("ProDirectoryCurrentGet"), Names{});
}

TEST_F(Engine, WithoutAFormatEveryDrawingIsFetchedAndItsNameComposed) {
    const Names calls = Export({"1"});
    EXPECT_EQ(calls, Joined({Names(8, "ProUICheckbuttonGetState"),
                             {"ProUITableSelectednamesGet", "ProStringarrayFree",
                              "ProUIInputpanelValueGet", "ProUIInputpanelValueGet",
                              "ProDirectoryCurrentGet", "ProUITableCellLabelGet", "ProMdlRetrieve",
                              "ProDrawingSolidsCollect", "ProArraySizeGet", "ProArrayFree",
                              "ProMdlToModelitem", "ProParameterInit", "ProParameterValueGet",
                              "ProMdlEraseNotDisplayed"}}));
    EXPECT_EQ(Boxes(), Names{"\t工程图批量导出已完成|岚枢QQ②群:100200301，①群:10020030\t"});
    EXPECT_EQ(AllBoxes()[0].flags, 0x40000u);
    Names states;
    for (const std::string& line : LinesOf("ProUICheckbuttonGetState")) {
        const std::size_t from = line.find("component=\"") + 11;
        states.push_back(line.substr(from, line.find('"', from) - from));
    }
    EXPECT_EQ(states, (Names{"DWGCheck", "PDFCheck", "DXFCheck", "STPCheck", "IGSCheck",
                             "PDFOptionCheck", "PDFBlackCheck", "MultiSheetCheck"}));
}

TEST_F(Engine, AFormatWhoseButtonIsNotToldIsOff) {
    Formats({"DWGCheck", "PDFCheck", "DXFCheck", "STPCheck", "IGSCheck"});
    Fail("ProUICheckbuttonGetState", {.n = 1, .forGood = true});
    const Names calls = Export({"1"});
    EXPECT_EQ(calls.back(), "ProMdlEraseNotDisplayed");
    for (const WideChar* format :
         {WIDE("DWG"), WIDE("PDF"), WIDE("DXF"), WIDE("STP"), WIDE("IGS")}) {
        EXPECT_FALSE(Exists(WideText(WIDE("C:\\Work\\")) + format));
    }
}

TEST_F(Engine, ThePatternIsReadBeforeTheSeparator) {
    Export({"1"});
    const Names lines = LinesOf("ProUIInputpanelValueGet");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NE(lines[0].find("component=\"Export_name\""), std::string::npos) << lines[0];
    EXPECT_NE(lines[1].find("component=\"separator\""), std::string::npos) << lines[1];
}

TEST_F(Engine, TheEndIsToldWhenTheFilesAreThere) {
    Formats({"DWGCheck"});
    Naming("图纸名称", "null");
    Check(
        "~ Activate `VxExport` `PDFCheck` 0\n~ Activate `VxExport` `selAll`\n"
        "~ Activate `VxExport` `ApplyBt`\n@ expect box 工程图批量导出已完成\n"
        "@ expect file C:\\Work\\DWG\\a.dwg\n@ ok\n");
}

TEST_F(Engine, DrawingsComeInTheOrderOfTheirCharacters) {
    // In the table z stands before 中, small letters are folded; here capitals come first.
    for (const char* name : {"z", "Z2", "中"}) {
        WriteDrawing(std::string(name) + ".drw.1", SheetsOf(1));
    }
    Export();
    Names order;
    for (const std::string& line : LinesOf("ProMdlRetrieve")) {
        const std::size_t from = line.find("name=\"") + 6;
        order.push_back(line.substr(from, line.find('"', from) - from));
    }
    EXPECT_EQ(order, (Names{"Z2", "a", "b", "z", "中"}));
}

TEST_F(Engine, ADrawingThatIsThereTwiceIsExportedOnce) {
    DoMeanwhile("ProDirectoryCurrentGet", 1, [] {
        std::string dialog = "VxExport", table = "drw_list", row = "2", column = "drw_name";
        WideText name = WIDE("a");
        ProUITableCellLabelSet(dialog.data(), table.data(), row.data(), column.data(), name.data());
    });
    Export();
    EXPECT_EQ(LinesOf("ProMdlRetrieve").size(), 1u);
}

TEST_F(Engine, WhatCannotBeFetchedOrShowsNothingIsPassedOverAndTheEndIsTheSame) {
    Formats({"DWGCheck"});
    Write(WIDE("C:\\Work\\a.drw.2"), "no drawing");
    WriteDrawing("b.drw.4", SheetsOf(1));
    Export();
    EXPECT_EQ(LinesOf("ProDrawingSolidsCollect").size(), 1u);
    EXPECT_EQ(LinesOf("ProMdlEraseNotDisplayed"), Names{});
    EXPECT_FALSE(Exists(WIDE("C:\\Work\\DWG")));
    EXPECT_TRUE(Complaints().empty());
}

TEST_F(Engine, MemoryIsClearedAfterTheFirstAndTheThirtyFirst) {
    std::filesystem::remove(host().disk.Real(WIDE("C:\\Work\\a.drw.1")));
    for (int i = 10; i < 72; ++i) {
        WriteDrawing("d" + std::to_string(i) + ".drw.1",
                     SheetsOf(1) + GeneralView(1, "box.prt", 1));
    }
    // The 31st of them, with "b" as the first, is passed over and clears nothing.
    WriteDrawing("d39.drw.2", SheetsOf(1));
    const Names calls = Export();
    Names drawings;
    int fetched = 0;
    for (const std::string& call : calls) {
        fetched += call == "ProMdlRetrieve";
        if (call == "ProMdlEraseNotDisplayed") drawings.push_back(std::to_string(fetched));
    }
    EXPECT_EQ(drawings, (Names{"1", "61"}));
    // A row more, so that another one is the 31st.
    WriteDrawing("c.drw.1", SheetsOf(1) + GeneralView(1, "box.prt", 1));
    fetched = 0;
    drawings.clear();
    for (const std::string& call : Export()) {
        fetched += call == "ProMdlRetrieve";
        if (call == "ProMdlEraseNotDisplayed") drawings.push_back(std::to_string(fetched));
    }
    EXPECT_EQ(drawings, (Names{"1", "31", "61"}));
}

TEST_F(Engine, WhatIsInAWindowSurvivesTheClearing) {
    Play("@ open b.drw");
    Formats({"DWGCheck"});
    Export();
    EXPECT_NE(host().session.FindByFile("b.drw"), nullptr);
    EXPECT_NE(host().session.FindByFile("pin.prt"), nullptr);
    EXPECT_NE(host().session.FindByFile("box.prt"), nullptr);
}

// --- Names ---

class EngineNames : public Engine {
protected:
    void SetUp() override {
        Engine::SetUp();
        Formats({"DXFCheck"});
    }
    // The file that comes of drawing A under a pattern.
    std::string NameOf(const std::string& pattern, const std::string& separator) {
        Naming(pattern, separator);
        Export({"1"});
        const Names files = Files(WIDE("DXF"));
        std::filesystem::remove_all(host().disk.Real(WIDE("C:\\Work\\DXF")));
        return files.size() == 1 ? files[0] : std::to_string(files.size()) + " files";
    }
};

TEST_F(EngineNames, HaveTheSeparatorBetweenTheItems) {
    EXPECT_EQ(NameOf("代号,图纸名称,sheetsize", "_"), "P-1_a_A3.dxf");
    EXPECT_EQ(NameOf("sheetsize，名称", "+"), "A3+盒.dxf");
    EXPECT_EQ(NameOf("图纸名称", "_"), "a.dxf");
    EXPECT_EQ(NameOf("SheetSize,图纸名称", "_"), "a.dxf");  // no parameter of that name
}

TEST_F(EngineNames, HaveABlankWhereNoSeparatorIsGivenAndNothingForNull) {
    EXPECT_EQ(NameOf("代号,图纸名称", ""), "P-1 a.dxf");
    for (const char* null : {"NULL", "null", "nUlL"}) {
        EXPECT_EQ(NameOf("代号,图纸名称", null), "P-1a.dxf");
    }
    EXPECT_EQ(NameOf("代号,图纸名称", "NULLS"), "P-1NULLSaULLS.dxf");
}

TEST_F(EngineNames, KeepAllButOneCharacterOfALongSeparatorAtTheirEnd) {
    EXPECT_EQ(NameOf("代号,图纸名称", "--"), "P-1--a-.dxf");
    EXPECT_EQ(NameOf("代号", "abc"), "P-1bc.dxf");
}

TEST_F(EngineNames, HaveNeitherTextNorSeparatorForAMissingParameter) {
    EXPECT_EQ(NameOf("none,代号,none,图纸名称,none", "_"), "P-1_a.dxf");
    EXPECT_EQ(NameOf("none", "_"), ".dxf");
    EXPECT_EQ(NameOf("", "_"), ".dxf");
    // A cut name would be that of another parameter.
    Model& box = *host().session.Retrieve("box.prt");
    box.parameters.Set(TextParameter(WideText(31, WideChar{'N'}), WIDE("cut")));
    host().session.Save(box);
    EXPECT_EQ(NameOf("图纸名称," + std::string(32, 'N'), "_"), "a.dxf");
}

TEST_F(EngineNames, EndAtABlankInThePanel) {
    Naming("", "_");
    Check(
        "~ Activate `VxExport` `PDFCheck` 0\n~ Input `VxExport` `Export_name` `代号 x,图纸名称`\n"
        "~ Activate `VxExport` `selAll`\n~ Activate `VxExport` `ApplyBt`\n@ ok\n");
    EXPECT_EQ(Files(WIDE("DXF")).front(), "P-1-1.dxf");
}

TEST_F(EngineNames, ShowEachKindOfParameter) {
    Model& box = *host().session.Retrieve("box.prt");
    box.parameters.Set(RealParameter(WIDE("r"), 12));
    box.parameters.Set(WholeParameter(WIDE("i"), 7));
    box.parameters.Set(FlagParameter(WIDE("y"), true));
    box.parameters.Set(FlagParameter(WIDE("n"), false));
    box.parameters.Set(TextParameter(WIDE("e"), WIDE("")));
    host().session.Save(box);
    EXPECT_EQ(NameOf("r,i,y,n,e,图纸名称", "_"), "12.000_7_是_否__a.dxf");
}

TEST_F(EngineNames, ThatWindowsOrTheCodePageHasNotLeaveTheFileUnderTheDrawingsName) {
    Model& box = *host().session.Retrieve("box.prt");
    box.parameters.Set(TextParameter(WIDE("slash"), WIDE("a/b")));
    box.parameters.Set(TextParameter(WIDE("korean"), WIDE("한글")));
    host().session.Save(box);
    EXPECT_EQ(NameOf("slash", "_"), "a.dxf");
    EXPECT_EQ(NameOf("korean", "_"), "a.dxf");
    EXPECT_EQ(NameOf(std::string(200, 'x') + ",代号", "_"), "P-1.dxf");
}

TEST_F(Engine, ADrawingOfWhichTheHostNamesNoModelsIsPassedOver) {
    Formats({"STPCheck"});
    Fail("ProDrawingSolidsCollect", {.n = 1, .status = PRO_TK_NO_ERROR});
    const Names calls = Export({"1"});
    EXPECT_EQ(calls.back(), "ProDrawingSolidsCollect");
    EXPECT_FALSE(Exists(WIDE("C:\\Work\\STP")));
}

// --- DWG and DXF ---

TEST_F(Engine, DwgAsksForItsReleaseFolderSheetsAndThenForTheFile) {
    Formats({"DWGCheck"});
    host().journal.Clear();
    const Names calls = After(Export({"1"}), "ProConfigoptGet");
    EXPECT_EQ(calls, (Names{"ProConfigoptGet", "ProConfigoptSet", "ProDrawingSheetsCount",
                            "Pro2dExportdataAlloc", "Pro2dExportdataSheetoptionSet",
                            "Pro2dExportdataModelspacesheetSet", "Pro2dExport",
                            "ProMdlEraseNotDisplayed"}));
    EXPECT_EQ(LinesOf("CreateDirectoryW"),
              Names{"CreateDirectoryW(path=\"C:\\Work\\DWG\\\", security=null) = 1"});
    EXPECT_EQ(Order({"ProConfigoptSet", "CreateDirectoryW", "ProDrawingSheetsCount", "Pro2dExport",
                     "MoveFileA"}),
              (Names{"ProConfigoptSet", "CreateDirectoryW", "ProDrawingSheetsCount", "Pro2dExport",
                     "MoveFileA"}));
    EXPECT_EQ(LinesOf("Pro2dExport"),
              Names{"Pro2dExport(format=34, file=\"C:\\Work\\DWG\\a.dwg\", drawing=a.drw, "
                    "data=option 3, sheet 1) = 0"});
    EXPECT_EQ(LinesOf("MoveFileA"), Names{"MoveFileA(from=\"C:\\Work\\DWG\\a.dwg\", "
                                          "to=\"C:\\Work\\DWG\\P-1_a.dwg\") = 1"});
    EXPECT_EQ(Option(), "2000");
    EXPECT_EQ(Files(WIDE("DWG")), Names{"P-1_a.dwg"});
}

TEST_F(Engine, AReleaseThatIsSetIsKeptAndDxfSetsItToo) {
    Formats({"DXFCheck"});
    Export({"1"});
    EXPECT_EQ(Option(), "2000");
    Play("@ option dwg_export_format 2013");
    Export({"1"});
    EXPECT_EQ(Option(), "2013");
    EXPECT_NE(LinesOf("Pro2dExport").at(0).find("format=9, file=\"C:\\Work\\DXF\\a.dxf\""),
              std::string::npos);
}

TEST_F(Engine, TwoSheetsAreNumberedAlready) {
    Formats({"DWGCheck"});
    DoMeanwhile("ProDrawingSolidsCollect", 1,
                [&] { host().session.FindByFile("b.drw")->drawingData.sheets.resize(2); });
    Export({"2"});
    EXPECT_EQ(Files(WIDE("DWG")), (Names{"P-1_b-1.dwg", "P-1_b-2.dwg"}));
}

TEST_F(Engine, SeveralSheetsAreNumberedAndNoneBecomesTheCurrentOne) {
    Formats({"DWGCheck"});
    const Names calls = Export({"2"});
    EXPECT_EQ(Files(WIDE("DWG")), (Names{"P-1_b-1.dwg", "P-1_b-2.dwg", "P-1_b-3.dwg"}));
    EXPECT_EQ(LinesOf("ProDrawingCurrentSheetSet"), Names{});
    EXPECT_EQ(LinesOf("ProDrawingViewsCollect"), Names{});
    Names sheets;
    for (const std::string& line : LinesOf("Pro2dExport")) {
        sheets.push_back(line.substr(line.find("data=")));
    }
    EXPECT_EQ(sheets, (Names{"data=option 3, sheet 1) = 0", "data=option 3, sheet 2) = 0",
                             "data=option 3, sheet 3) = 0"}));
}

TEST_F(Engine, SheetsOfTheirOwnAreNamedAfterWhatTheyShow) {
    Formats({"DXFCheck", "MultiSheetCheck"});
    Naming("图纸名称,sheetsize,代号", "_");
    // Sheet 2 shows nothing: it is named after what sheet 1 shows.
    WriteDrawing("b.drw.3",
                 "\n[[sheet]]\nsize = \"A3\"\n\n[[sheet]]\nsize = \"A2\"\n"
                 "\n[[sheet]]\nsize = \"A1\"\n\n[drawing]\nprojection = "
                 "\"first-angle\"\n" +
                     GeneralView(1, "box.prt", 1) + GeneralView(2, "pin.prt", 3));
    const Names calls = After(Export({"2"}), "ProDrawingViewsCollect");
    EXPECT_EQ(Files(WIDE("DXF")), (Names{"BOX_A2_P-1.dxf", "BOX_A3_P-1.dxf", "PIN_A1.dxf"}));
    EXPECT_EQ(
        Names(calls.begin(), calls.begin() + 15),
        (Names{"ProDrawingViewsCollect", "ProArraySizeGet", "ProDrawingCurrentSheetSet",
               "ProDrawingViewSheetGet", "ProDrawingViewSolidGet", "ProMdlToModelitem",
               "ProMdlNameGet", "ProDrawingSheetTrfGet", "ProParameterInit", "ProParameterValueGet",
               "Pro2dExportdataAlloc", "Pro2dExportdataSheetoptionSet",
               "Pro2dExportdataModelspacesheetSet", "Pro2dExport", "ProDrawingCurrentSheetSet"}));
    EXPECT_EQ(LinesOf("ProDrawingCurrentSheetSet").size(), 3u);
}

TEST_F(Engine, AFinalFileIsNotReplacedAndTheNextSheetWritesOverTheOneThatWaits) {
    Formats({"DXFCheck", "MultiSheetCheck"});
    Naming("图纸名称", "_");
    std::filesystem::create_directories(host().disk.Real(WIDE("C:\\Work\\DXF")));
    Write(WIDE("C:\\Work\\DXF\\BOX.dxf"), "old");
    Export({"2"});
    EXPECT_EQ(Read(WIDE("C:\\Work\\DXF\\BOX.dxf")), "old");
    EXPECT_EQ(Files(WIDE("DXF")), (Names{"BOX.dxf", "PIN.dxf"}));
    // Once more: now all three names are taken.
    Export({"2"});
    EXPECT_EQ(Files(WIDE("DXF")), (Names{"BOX.dxf", "PIN.dxf", "b.dxf"}));
}

TEST_F(Engine, ASheetWithoutAViewAtTheBeginningHasTheFirstSolid) {
    Formats({"DXFCheck", "MultiSheetCheck"});
    Naming("图纸名称,sheetsize", "_");
    WriteDrawing("b.drw.3",
                 "\n[[sheet]]\nsize = \"A3\"\n\n[[sheet]]\nsize = \"A2\"\n\n[drawing]\n"
                 "projection = \"first-angle\"\nmodels = [\"box.prt\", \"pin.prt\"]\n" +
                     GeneralView(1, "pin.prt", 2));
    Export({"2"});
    EXPECT_EQ(Files(WIDE("DXF")), (Names{"BOX_A3.dxf", "PIN_A2.dxf"}));
}

TEST_F(Engine, AViewWhoseModelIsGoneLeavesTheSolidOfTheSheetBefore) {
    Formats({"DXFCheck", "MultiSheetCheck"});
    Naming("图纸名称,sheetsize", "_");
    WriteDrawing("b.drw.3",
                 "\n[[sheet]]\nsize = \"A3\"\n\n[[sheet]]\nsize = \"A2\"\n\n[drawing]\n"
                 "projection = \"first-angle\"\n" +
                     GeneralView(1, "box.prt", 1) + GeneralView(2, "lost.prt", 2));
    Export({"2"});
    EXPECT_EQ(Files(WIDE("DXF")), (Names{"BOX_A2.dxf", "BOX_A3.dxf"}));
}

TEST_F(Engine, ADrawingWithoutViewsIsLeftWithAllFormatsThatFollowAndTheClearing) {
    Formats({"DWGCheck", "DXFCheck", "PDFCheck", "STPCheck", "MultiSheetCheck"});
    WriteDrawing("b.drw.3", SheetsOf(2) + "models = [\"box.prt\"]\n");
    const Names calls = After(Export({"2"}), "ProConfigoptGet");
    EXPECT_EQ(calls, (Names{"ProConfigoptGet", "ProConfigoptSet", "ProDrawingSheetsCount",
                            "ProDrawingViewsCollect"}));
    EXPECT_EQ(Files(WIDE("DWG")), Names{});
    EXPECT_FALSE(Exists(WIDE("C:\\Work\\DXF")));
    // In one sheet no views are needed before STEP.
    Play("@ erase b.drw");
    WriteDrawing("b.drw.3", SheetsOf(1) + "models = [\"box.prt\"]\n");
    Export({"2"});
    EXPECT_EQ(Files(WIDE("DWG")), Names{"P-1_b.dwg"});
    EXPECT_EQ(Files(WIDE("PDF")), Names{"P-1_b.pdf"});
    EXPECT_EQ(Files(WIDE("STP")), Names{});
}

TEST_F(Engine, AnEmptyListOfViewsIsEnoughForDwgButNotForPdf) {
    Formats({"DXFCheck", "PDFCheck", "MultiSheetCheck"});
    Naming("图纸名称,sheetsize", "_");
    WriteDrawing("b.drw.3", SheetsOf(2) + "models = [\"box.prt\"]\n");
    Fail("ProDrawingViewsCollect", {.n = 1, .forGood = true, .status = PRO_TK_NO_ERROR});
    Export({"2"});
    EXPECT_EQ(Files(WIDE("DXF")), (Names{"BOX_A3.dxf", "b.dxf"}));
    EXPECT_EQ(Files(WIDE("PDF")), Names{});
    EXPECT_EQ(LinesOf("ProPDFoptionsFree"), Names{});
}

TEST_F(Engine, WithoutARecordOfTheExportNoOtherSheetIsWrittenInItsPlace) {
    Formats({"DXFCheck"});
    Fail("Pro2dExportdataAlloc", {.n = 2});
    Export({"2"});
    EXPECT_EQ(Files(WIDE("DXF")), (Names{"P-1_b-1.dxf", "P-1_b-3.dxf"}));
}

TEST_F(Engine, SheetsThatTheHostDoesNotCountAreNotExported) {
    Formats({"DXFCheck"});
    Fail("ProDrawingSheetsCount", {.n = 1, .forGood = true});
    Export({"1"});
    EXPECT_EQ(Files(WIDE("DXF")), Names{});
    EXPECT_TRUE(Exists(WIDE("C:\\Work\\DXF")));
}

TEST_F(Engine, AFileInThePlaceOfTheFolderLosesNothing) {
    Formats({"DXFCheck"});
    Write(WIDE("C:\\Work\\DXF"), "a file");
    Export({"1"});
    EXPECT_EQ(Read(WIDE("C:\\Work\\DXF")), "a file");
    EXPECT_NE(LinesOf("Pro2dExport").at(0).find("= -17"), std::string::npos);
}

}  // namespace
