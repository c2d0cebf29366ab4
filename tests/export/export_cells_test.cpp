// The buttons of VxExport that fill cells of its table: parameters of models, sizes and numbers of
// sheets.
#include <algorithm>
#include <filesystem>

#include "simhost/core/meanwhile.h"
#include "tests/export/export_dialog.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::Names;
using workbench::SheetsOf;

class ExportCells : public workbench::ExportDialog {};

TEST_F(ExportCells, OfSheetsHaveTheirSizesAndTheirNumber) {
    WriteDrawing("b.drw.3",
                 "\n[[sheet]]\nsize = \"A3\"\n\n[[sheet]]\nsize = \"A1\"\n"
                 "\n[[sheet]]\nsize = \"A2\"\n\n[drawing]\nprojection = \"first-angle\"\n");
    Write(WIDE("C:\\Work\\c.drw.1"), "no drawing");
    Check(
        "~ Activate `VxExport` `VxLoadDrwInfo`\n@ expect row drw_list 1 \"1|a|||A3|1\"\n"
        "@ expect row drw_list 2 \"2|b|||A3,A1,A2|3\"\n@ expect row drw_list 3 \"3|c||||\"\n");
    EXPECT_TRUE(Complaints().empty());
}

TEST_F(ExportCells, OfSheetsAreWrittenCountFirst) {
    Remove(WIDE("b.drw.2"));
    Remove(WIDE("b.drw.3"));
    const Names calls = Check("~ Activate `VxExport` `VxLoadDrwInfo`\n");
    const auto from = std::find(calls.begin(), calls.end(), "ProUITableCellLabelGet");
    EXPECT_EQ(Names(from, std::min(from + 6, calls.end())),
              (Names{"ProUITableCellLabelGet", "ProMdlRetrieve", "ProDrawingSheetsCount",
                     "ProUITableCellLabelSet", "ProDrawingSheetTrfGet", "ProUITableCellLabelSet"}));
    EXPECT_NE(LinesOf("ProUITableCellLabelSet").back().find("\"sheet_size\""), std::string::npos);
}

TEST_F(ExportCells, OfSheetsThatTheHostDoesNotCountHaveTheFirstSizeAndNoSheets) {
    Fail("ProDrawingSheetsCount");
    Check(
        "~ Activate `VxExport` `VxLoadDrwInfo`\n@ expect row drw_list 1 \"1|a|||A3|0\"\n"
        "@ expect row drw_list 2 \"2|b|||A3,A3,A3|3\"\n");
}

TEST_F(ExportCells, OfParametersShowEachKindAsItsText) {
    Configure("tableCols", "content", "r,s,i,y,n,none");
    Model& part = BoxPart("A", 1, 1, 1);
    part.parameters.Set(RealParameter(WIDE("r"), 2.0 / 3));
    part.parameters.Set(TextParameter(WIDE("s"), WIDE("文字")));
    part.parameters.Set(WholeParameter(WIDE("i"), -12));
    part.parameters.Set(FlagParameter(WIDE("y"), true));
    part.parameters.Set(FlagParameter(WIDE("n"), false));
    host().session.Save(part);
    Check(
        "~ Activate `VxExport` `VxLoadParams`\n"
        "@ expect row drw_list 1 \"1|a|0.667|文字|-12|是|否|||\"\n");
}

TEST_F(ExportCells, OfAPartAndAnAssemblyOfOneNameAreThePartsWhereItHasThem) {
    Model& assembly = workbench::MakeModel("A", PRO_MDL_ASSEMBLY);
    Model& part = BoxPart("A", 1, 1, 1);
    assembly.parameters.Set(TextParameter(WIDE("代号"), WIDE("asm")));
    assembly.parameters.Set(TextParameter(WIDE("名称"), WIDE("asm")));
    part.parameters.Set(TextParameter(WIDE("代号"), WIDE("prt")));
    host().session.Save(assembly);
    host().session.Save(part);
    Check("~ Activate `VxExport` `VxLoadParams`\n@ expect row drw_list 1 \"1|a|prt|asm||\"\n");
}

TEST_F(ExportCells, OfParametersAreFoundWhateverTheLettersOfTheNameButNotOfTheExtension) {
    Model& part = BoxPart("A", 1, 1, 1);
    part.parameters.Set(TextParameter(WIDE("代号"), WIDE("found")));
    host().session.Save(part);
    std::filesystem::rename(host().disk.Real(WIDE("C:\\Work\\a.drw.1")),
                            host().disk.Real(WIDE("C:\\Work")) / "A.drw.1");
    Check("~ Activate `VxExport` `VxLoadParams`\n@ expect row drw_list 1 \"1|A|found|||\"\n");
    std::filesystem::rename(host().disk.Real(WIDE("C:\\Work\\a.prt.1")),
                            host().disk.Real(WIDE("C:\\Work")) / "a.PRT.1");
    Check("~ Activate `VxExport` `VxLoadParams`\n@ expect row drw_list 1 \"1|A||||\"\n");
}

TEST_F(ExportCells, OfParametersAreNotThoseOfAnAssemblyWhereTheFileIsNone) {
    Model& assembly = workbench::MakeModel("A", PRO_MDL_ASSEMBLY);
    assembly.parameters.Set(TextParameter(WIDE("代号"), WIDE("in memory")));
    Write(WIDE("C:\\Work\\a.PRT.1"), "listed, but neither prt nor asm");
    Check("~ Activate `VxExport` `VxLoadParams`\n@ expect row drw_list 1 \"1|a||||\"\n");
    EXPECT_NE(LinesOf("ProFilesList").back().find("a.PRT"), std::string::npos);
    EXPECT_EQ(LinesOf("ProMdlRetrieve"), Names{});
}

TEST_F(ExportCells, OfParametersAreNotLookedUpWhereTheHostDoesNotTellWhere) {
    Model& part = BoxPart("A", 1, 1, 1);
    part.parameters.Set(TextParameter(WIDE("代号"), WIDE("P-1")));
    host().session.Save(part);
    Fail("ProMdlToModelitem");
    const std::string load = "~ Activate `VxExport` `VxLoadParams`\n";
    Check(load + "@ expect row drw_list 1 \"1|a||||\"\n");
    EXPECT_EQ(LinesOf("ProParameterInit"), Names{});
    Check(load + "@ expect row drw_list 1 \"1|a|P-1|||\"\n");
}

TEST_F(ExportCells, OfParametersAreThoseOfTheWorkingFolderOnly) {
    Configure("tableCols", "content", "代号");
    Model& part = BoxPart("ELSEWHERE", 1, 1, 1);
    part.parameters.Set(TextParameter(WIDE("代号"), WIDE("unseen")));
    WriteDrawing("elsewhere.drw.1", SheetsOf(1));
    Open(part);
    Check(
        "~ Select `VxExport` `SelDirRadio` 1 `curMdl`\n~ Activate `VxExport` `VxLoadParams`\n"
        "@ expect row drw_list 1 \"1|ELSEWHERE|||\"\n");
}

TEST_F(ExportCells, OfParametersAreAskedForOnceForEachFileOfTheName) {
    BoxPart("A", 1, 1, 1);
    host().session.Save(*host().session.FindByFile("a.prt"));
    const Names calls = Check("~ Activate `VxExport` `VxLoadParams`\n");
    const auto from = std::find(calls.rbegin(), calls.rend(), "ProFilesList").base();
    EXPECT_EQ(Names(from, calls.end() - 2),
              (Names{"ProArraySizeGet", "ProUITableColumnlabelsGet", "ProFilenameParse",
                     "ProFilenameParse", "ProFilenameParse", "ProUITableCellLabelGet",
                     "ProMdlRetrieve", "ProMdlToModelitem", "ProParameterInit", "ProParameterInit",
                     "ProUITableCellLabelGet", "ProArrayFree", "ProArrayFree", "ProUIDialogExit",
                     "ProUIDialogDestroy", "ProArrayFree", "ProArrayFree"}));
}

TEST_F(ExportCells, OfAnEmptyTableAreNotFilled) {
    Open(*host().session.FindByFile("pin.prt"));
    const std::string none = "@ expect box 当前工作目录中无工程图\n@ ok\n";
    Check("~ Select `VxExport` `SelDirRadio` 1 `curMdl`\n~ Activate `VxExport` `VxLoadDrwInfo`\n" +
          none + "~ Activate `VxExport` `VxLoadParams`\n" + none);
    EXPECT_EQ(Boxes(), Names(2, "\t\t当前工作目录中无工程图\t\t"));
    EXPECT_EQ(AllBoxes()[0].flags, 0x40000u);
    EXPECT_EQ(LinesOf("ProFilesList").size(), 2u);
}

TEST_F(ExportCells, OfParametersStayWhereTheFolderHasNoModelsAnyMore) {
    DoMeanwhile("WinExec", 1, [&] {
        Remove(WIDE("box.prt.1"));
        Remove(WIDE("pin.prt.1"));
    });
    Check(
        "~ Activate `VxExport` `VxOpenDrwIni`\n~ Activate `VxExport` `VxLoadParams`\n"
        "@ expect no box\n@ expect row drw_list 1 \"1|a||||\"\n");
    EXPECT_EQ(LinesOf("ProFilesList").size(), 3u);
    EXPECT_EQ(LinesOf("ProUITableColumnlabelsGet"), Names{});
}

}  // namespace
