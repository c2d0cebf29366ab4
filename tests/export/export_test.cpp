// The dialog VxExport from outside: its rows, columns, selection and settings. What its buttons
// fill in and what is exported are other files'.
#include <algorithm>
#include <filesystem>

#include "simhost/core/meanwhile.h"
#include "simhost/system/windows.h"
#include "tests/export/export_dialog.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::ExportDialog;
using workbench::Joined;
using workbench::Names;
using workbench::SheetsOf;

constexpr const char* kNoDrawings =
    "@ expect box \"当前工作目录下无工程图\"\n@ expect caption none\n@ ok\n";
constexpr const char* kNoModels =
    "@ expect box \"当前工作目录下无模型\"\n@ expect caption none\n@ ok\n";

class ExportRows : public ExportDialog {
protected:
    void RemoveDrawings() {
        for (const WideChar* file : {WIDE("a.drw.1"), WIDE("b.drw.2"), WIDE("b.drw.3")}) {
            Remove(file);
        }
    }
};

// --- Opening ---

TEST_F(ExportRows, WithoutADrawingThereIsNoDialog) {
    RemoveDrawings();
    EXPECT_EQ(CallsOf(std::string("~ Command `VxExport`\n") + kNoDrawings), Names{"ProFilesList"});
    EXPECT_EQ(AllBoxes().back().flags, 0u);
}

TEST_F(ExportRows, WithoutAModelThereIsNoneEither) {
    Remove(WIDE("box.prt.1"));
    Remove(WIDE("pin.prt.1"));
    CallsOf(std::string("~ Command `VxExport`\n") + kNoModels);
    EXPECT_EQ(LinesOf("ProFilesList").size(), 2u);
    EXPECT_EQ(LinesOf("ProUIDialogCreate"), Names{});
}

TEST_F(ExportRows, OpensInThisOrder) {
    const Names listing = {"ProFilesList", "ProArraySizeGet"};
    const Names row = {"ProUITableRowsInsert", "ProUITableCellLabelSet", "ProUITableCellLabelSet"};
    EXPECT_EQ(Check(""),
              Joined({listing,
                      listing,
                      {"ProUIDialogCreate", "ProUIRadiogroupSelectActionSet"},
                      Names(8, "ProUIPushbuttonActivateActionSet"),
                      {"ProUIDialogCloseActionSet", "ProUITableColumnsInsert",
                       "ProUITableColumnlabelsSet"},
                      // Without rows there are no names to be given back.
                      {"ProFilenameParse", "ProUITableRownamesGet"},
                      row,
                      {"ProFilenameParse", "ProUITableRownamesGet", "ProStringarrayFree"},
                      row,
                      {"ProUITableSelectionpolicySet", "ProUITableColumnselectionpolicySet",
                       "ProUIInputpanelValueSet", "ProUIInputpanelValueSet", "ProUIDialogActivate",
                       "ProUIDialogExit", "ProUIDialogDestroy"},
                      Names(4, "ProArrayFree")}));
    ASSERT_EQ(LinesOf("ProFilesList").size(), 2u);
    EXPECT_NE(LinesOf("ProFilesList")[0].find("(folder=null, filter=\"*.drw\", versions=1"),
              std::string::npos);
    EXPECT_NE(LinesOf("ProFilesList")[1].find("(folder=null, filter=\"*.prt,*.asm\", versions=1"),
              std::string::npos);
    EXPECT_NE(LinesOf("ProUITableSelectionpolicySet").at(0).find("policy=3"), std::string::npos);
    EXPECT_NE(LinesOf("ProUITableColumnselectionpolicySet").at(0).find("policy=3"),
              std::string::npos);
    EXPECT_NE(LinesOf("ProUIDialogExit").at(0).find("status=0"), std::string::npos);
}

TEST_F(ExportRows, HaveTheDrawingsOfTheFolderWithTheirNumbers) {
    Check(
        "@ expect columns drw_list \"序号|图纸名称|代号|名称|图幅大小|页数\"\n"
        "@ expect rows drw_list 2\n@ expect row drw_list 1 \"1|a||||\"\n"
        "@ expect row drw_list 2 \"2|b||||\"\n");
}

TEST_F(ExportRows, ComeAfterTheLastOneAndHaveTheirNumbersFirst) {
    WriteDrawing("c.drw.1", SheetsOf(1));
    Check("@ expect rows drw_list 3\n");
    Names rows, columns;
    for (const std::string& line : LinesOf("ProUITableRowsInsert")) {
        rows.push_back(line.substr(line.find("after=")));
    }
    for (const std::string& line : LinesOf("ProUITableCellLabelSet")) {
        columns.push_back(line.substr(line.find("row=")));
    }
    EXPECT_EQ(rows, (Names{"after=\"\", names=[\"1\"]) = 0", "after=\"1\", names=[\"2\"]) = 0",
                           "after=\"2\", names=[\"3\"]) = 0"}));
    EXPECT_EQ(columns, (Names{"row=\"1\", column=\"num\", label=\"1\") = 0",
                              "row=\"1\", column=\"drw_name\", label=\"a\") = 0",
                              "row=\"2\", column=\"num\", label=\"2\") = 0",
                              "row=\"2\", column=\"drw_name\", label=\"b\") = 0",
                              "row=\"3\", column=\"num\", label=\"3\") = 0",
                              "row=\"3\", column=\"drw_name\", label=\"c\") = 0"}));
}

TEST_F(ExportRows, AreThereWithASingleModelInTheFolder) {
    Remove(WIDE("pin.prt.1"));
    Check("@ expect rows drw_list 2\n@ expect no box\n");
}

TEST_F(ExportRows, ARefusedCreationActivationOrDestructionIsTold) {
    Fail("ProUIDialogCreate");
    CallsOf("~ Command `VxExport`\n@ expect box \"UIDialog Create error!\"\n@ ok\n");
    EXPECT_EQ(LinesOf("ProArrayFree").size(), 4u);
    Fail("ProUIDialogActivate");
    CallsOf("~ Command `VxExport`\n@ expect box \"UIDialog Activate error!\"\n@ ok\n");
    EXPECT_EQ(LinesOf("ProUIDialogDestroy"), Names{});
    EXPECT_EQ(LinesOf("ProArrayFree").size(), 4u);
    std::string name = "VxExport";
    ProUIDialogDestroy(name.data());
    Fail("ProUIDialogDestroy");
    CallsOf(
        "~ Command `VxExport`\n~ Close `VxExport`\n"
        "@ expect box \"UIDialog Destroy error!\"\n@ ok\n");
    EXPECT_EQ(LinesOf("ProArrayFree").size(), 4u);
    ProUIDialogDestroy(name.data());
}

TEST_F(ExportRows, CloseEndsTheDialogWithStatusZero) {
    CallsOf("~ Command `VxExport`\n~ Activate `VxExport` `Close`\n");
    ASSERT_EQ(LinesOf("ProUIDialogExit").size(), 1u);
    EXPECT_NE(LinesOf("ProUIDialogExit")[0].find("status=0"), std::string::npos);
}

// --- Columns and settings ---

class ExportSettings : public ExportDialog {
protected:
    void ExpectColumns(const std::string& value, const std::string& between) {
        Configure("tableCols", "content", value);
        Check("@ expect columns drw_list \"序号|图纸名称" + between + "|图幅大小|页数\"\n");
    }
    // The calls that set panels and check buttons at the opening: "DWGCheck set".
    Names SetAtOpening() {
        Check("");
        Names set;
        for (const std::string& line : LinesOf("ProUICheckbuttonSet")) set.push_back("1 " + line);
        for (const std::string& line : LinesOf("ProUICheckbuttonUnset")) set.push_back("0 " + line);
        return set;
    }
};

TEST_F(ExportSettings, ColumnsComeFromTheListAsItIsSplit) {
    ExpectColumns("", "");
    ExpectColumns("a,b", "|a|b");
    ExpectColumns("a，b", "|a|b");
    ExpectColumns("a,,b,", "|a|b");
    ExpectColumns("长度,宽 度,高度", "|长度|宽");
    ExpectColumns("长度, 宽度", "|长度|");
}

TEST_F(ExportSettings, WithoutAFileThereAreFourColumnsEmptyPanelsAndButtonsLeftAlone) {
    std::filesystem::remove(
        host().disk.Real(workbench::kModuleFolder + WIDE("\\VXconfig\\VxDrawingsIni.ini")));
    Check("@ expect columns drw_list \"序号|图纸名称|图幅大小|页数\"\n");
    for (const std::string& line : LinesOf("ProUIInputpanelValueSet")) {
        EXPECT_NE(line.find("value=\"\") = 0"), std::string::npos) << line;
    }
    EXPECT_EQ(LinesOf("ProUICheckbuttonSet"), Names{});
    EXPECT_EQ(LinesOf("ProUICheckbuttonUnset"), Names{});
}

TEST_F(ExportSettings, ColumnsAreLabelledFromTheFirstToTheLast) {
    Check("");
    const Names lines = LinesOf("ProUITableColumnlabelsSet");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("[\"序号\", \"图纸名称\", \"代号\", \"名称\", \"图幅大小\", \"页数\"]"),
              std::string::npos)
        << lines[0];
}

TEST_F(ExportSettings, ColumnsThatCannotBeInsertedGetNoLabels) {
    Fail("ProUITableColumnsInsert");
    Check("@ expect columns drw_list \"序号|图纸名称|图幅大小|页数\"\n");
}

TEST_F(ExportSettings, PanelsLoseTheirBlanks) {
    Configure("drwNames", "content", "sheet size, 代 号");
    Configure("Separator", "content", "- -");
    Check("");
    const Names lines = LinesOf("ProUIInputpanelValueSet");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NE(lines[0].find("\"Export_name\", value=\"sheetsize,代号\""), std::string::npos)
        << lines[0];
    EXPECT_NE(lines[1].find("\"separator\", value=\"--\""), std::string::npos) << lines[1];
}

TEST_F(ExportSettings, OneSetsAndZeroClearsInTheOrderOfTheButtons) {
    for (const char* button : {"DWGCheck", "STPCheck", "PDFOptionCheck", "MultiSheetCheck"}) {
        Configure(button, "value", "1");
    }
    for (const char* button : {"DXFCheck", "PDFBlackCheck"}) Configure(button, "value", "0");
    Configure("IGSCheck", "value", "yes");
    host().journal.Clear();
    host().journal.Start();
    Play("~ Command `VxExport`\n~ Close `VxExport`");
    host().journal.Stop();
    Names set;
    for (const std::string& line : Calls()) {
        if (line.find("ProUICheckbutton") == std::string::npos) continue;
        const std::size_t from = line.find("component=\"") + 11;
        const std::string name = line.substr(from, line.find('"', from) - from);
        set.push_back(name + (line.find("Unset(") != std::string::npos ? " 0" : " 1"));
    }
    EXPECT_EQ(set, (Names{"DWGCheck 1", "DXFCheck 0", "STPCheck 1", "PDFOptionCheck 1",
                          "PDFBlackCheck 0", "MultiSheetCheck 1"}));
}

TEST_F(ExportSettings, FillThePanelsBeforeTheyReachTheButtons) {
    Configure("DWGCheck", "value", "1");
    Configure("MultiSheetCheck", "value", "0");
    const Names calls = Check("");
    const auto from = std::find(calls.begin(), calls.end(), "ProUIInputpanelValueSet");
    EXPECT_EQ(Names(from, std::min(from + 5, calls.end())),
              (Names{"ProUIInputpanelValueSet", "ProUIInputpanelValueSet", "ProUICheckbuttonSet",
                     "ProUICheckbuttonUnset", "ProUIDialogActivate"}));
}

TEST_F(ExportSettings, OfPdfIsReadAndSetUnderANameWithABracketTooMany) {
    Configure("PDFCheck", "value", "0");
    Check("");
    EXPECT_EQ(LinesOf("ProUICheckbuttonUnset"), Names{});
    Configure("PDFCheck]", "value", "0");
    Check("");
    ASSERT_EQ(LinesOf("ProUICheckbuttonUnset").size(), 1u);
    EXPECT_NE(LinesOf("ProUICheckbuttonUnset")[0].find("\"PDFCheck]\") = -4"), std::string::npos);
}

TEST_F(ExportSettings, AreOpenedInTheEditorWhileTheDialogStays) {
    Check("~ Activate `VxExport` `VxOpenDrwIni`\n@ expect dialog VxExport\n");
    ASSERT_EQ(TheWindows().programs.size(), 1u);
    EXPECT_EQ(Utf8(TheWindows().programs[0]),
              "notepad.exe C:\\Plug-in\\VXconfig\\VxDrawingsIni.ini");
}

TEST_F(ExportSettings, ReadAnewGiveOtherColumnsAndPanelsAndKeepRowsAndButtons) {
    Model& part = BoxPart("A", 1, 1, 1);
    part.parameters.Set(TextParameter(WIDE("代号"), WIDE("P-1")));
    part.parameters.Set(TextParameter(WIDE("名称"), WIDE("盒")));
    host().session.Save(part);
    DoMeanwhile("WinExec", 1, [] {
        Configure("tableCols", "content", "名称");
        Configure("drwNames", "content", "代 号");
        Configure("Separator", "content", "=");
        Configure("DWGCheck", "value", "1");
    });
    const Names calls = Check(
        "~ Activate `VxExport` `VxLoadParams`\n@ expect row drw_list 1 \"1|a|P-1|盒||\"\n"
        "~ Activate `VxExport` `VxOpenDrwIni`\n~ Activate `VxExport` `VxUpdateIni`\n"
        "@ expect columns drw_list \"序号|图纸名称|名称|图幅大小|页数\"\n"
        "@ expect row drw_list 1 \"1|a|||\"\n"
        "~ Activate `VxExport` `VxLoadParams`\n@ expect row drw_list 1 \"1|a|盒||\"\n");
    EXPECT_EQ(LinesOf("ProUICheckbuttonSet"), Names{});
    EXPECT_NE(LinesOf("ProUIInputpanelValueSet").at(2).find("value=\"代号\""), std::string::npos);
    EXPECT_NE(LinesOf("ProUIInputpanelValueSet").at(3).find("value=\"=\""), std::string::npos);
    const auto from = std::find(calls.begin(), calls.end(), "ProUITableColumnnamesGet");
    EXPECT_EQ(Names(from, std::min(from + 7, calls.end())),
              (Names{"ProUITableColumnnamesGet", "ProStringarrayFree", "ProUITableColumnsDelete",
                     "ProUITableColumnsInsert", "ProUITableColumnlabelsSet",
                     "ProUIInputpanelValueSet", "ProUIInputpanelValueSet"}));
    EXPECT_NE(LinesOf("ProUITableColumnsDelete").at(0).find("[\"param1\", \"param2\"]"),
              std::string::npos);
}

TEST_F(ExportSettings, ReadAnewAreReadBeforeTheOldColumnsGo) {
    DoMeanwhile("ProUITableColumnsDelete", 1, [] { Configure("tableCols", "content", "名称"); });
    const std::string again = "~ Activate `VxExport` `VxUpdateIni`\n@ expect columns drw_list ";
    Check(again + "\"序号|图纸名称|代号|名称|图幅大小|页数\"\n" + again +
          "\"序号|图纸名称|名称|图幅大小|页数\"\n");
}

TEST_F(ExportSettings, ReadAnewWithoutParameterColumnsDeleteNone) {
    Configure("tableCols", "content", "");
    Check(
        "~ Activate `VxExport` `VxUpdateIni`\n"
        "@ expect columns drw_list \"序号|图纸名称|图幅大小|页数\"\n");
    EXPECT_EQ(LinesOf("ProUITableColumnsDelete"), Names{});
}

TEST_F(ExportSettings, ReadAnewKeepTheColumnsThatTheHostDoesNotName) {
    Fail("ProUITableColumnnamesGet");
    Check("~ Activate `VxExport` `VxUpdateIni`\n");
    EXPECT_EQ(LinesOf("ProUITableColumnsDelete"), Names{});
}

// --- Selection ---

class ExportSelection : public ExportDialog {
protected:
    // The rows of the calls of one operation, "1 2".
    std::string RowsOf(const std::string& operation) {
        std::string rows;
        for (const std::string& line : LinesOf(operation)) {
            const std::size_t from = line.find("row=\"") + 5;
            rows += line.substr(from, line.find('"', from) - from) + " ";
        }
        return rows;
    }
    void ExpectPress(const std::string& before, const std::string& button,
                     const std::string& selected, const std::string& cleared) {
        Check(before + "~ Activate `VxExport` `" + button + "`\n");
        EXPECT_EQ(RowsOf("ProUITableRowCellsSelect"), selected);
        EXPECT_EQ(RowsOf("ProUITableRowCellsDeselect"), cleared);
    }
    static constexpr const char* kSecond = "~ Select `VxExport` `drw_list` 2 `2` `num`\n";
};

TEST_F(ExportSelection, AllAreSelectedWhenNoneIs) {
    ExpectPress("", "selAll", "1 2 ", "");
}

TEST_F(ExportSelection, AllAreClearedWhenOneIsSelected) {
    ExpectPress(kSecond, "selAll", "", "1 2 ");
}

TEST_F(ExportSelection, AllTwiceIsNone) {
    Check(
        "~ Activate `VxExport` `selAll`\n~ Activate `VxExport` `selAll`\n"
        "~ Activate `VxExport` `ApplyBt`\n@ expect box 请先选择需要导出的工程图\n@ ok\n");
    EXPECT_EQ(Boxes(), Names{"\t\t请先选择需要导出的工程图\t\t"});
}

TEST_F(ExportSelection, ReversedSelectsAllAndClearsWhatWas) {
    ExpectPress(kSecond, "reverseSel", "1 2 ", "2 ");
    ExpectPress("", "reverseSel", "1 2 ", "");
}

TEST_F(ExportSelection, ReversedTwiceIsWhatItWas) {
    const std::string press = "~ Activate `VxExport` `reverseSel`\n";
    // Of the first press the row 1 is left, so that the second one clears it.
    ExpectPress(kSecond + press, "reverseSel", "1 2 1 2 ", "2 1 ");
}

TEST_F(ExportSelection, ReversedDoesNothingWithoutTheNamesOfTheRows) {
    // The first two questions are those of the rows at the opening.
    Fail("ProUITableRownamesGet", {.n = 3});
    ExpectPress(kSecond, "reverseSel", "", "");
    EXPECT_EQ(LinesOf("ProUITableSelectednamesGet"), Names{});
}

// --- Where the rows come from ---

class ExportSource : public ExportRows {
protected:
    static std::string Source(const std::string& name) {
        return "~ Select `VxExport` `SelDirRadio` 1 `" + name + "`\n";
    }
    static constexpr const char* kNoModel =
        "\t当前模型不是组件/制造或零件，无法获取工程图|岚枢QQ②群:100200301，①群:10020030\t";
};

TEST_F(ExportSource, OfTheModelAreItsOwnDrawingAndThoseOfItsDirectComponents) {
    Model& top = workbench::MakeModels("top: sub(pin2), bush x2, none, shut!suppressed");
    for (const char* drawing : {"top", "sub", "pin2", "bush", "shut"}) {
        WriteDrawing(std::string(drawing) + ".drw.1", SheetsOf(1));
    }
    Open(top);
    std::vector<Model*> models;
    for (const char* name : {"top", "sub", "bush"}) models.push_back(&workbench::ModelNamed(name));
    workbench::SortByHandle(&models);
    std::string rows;
    for (std::size_t i = 0; i < models.size(); ++i) {
        const std::string number = std::to_string(i + 1);
        rows += "@ expect row drw_list " + number + " \"" + number + "|" + Utf8(models[i]->name) +
                "||||\"\n";
    }
    Check(Source("curMdl") + "@ expect rows drw_list 3\n" + rows);
    // Each model is asked for once, whatever becomes of it; none is shown in a window.
    EXPECT_EQ(LinesOf("ProMdlRetrieve").size(), 4u);
    EXPECT_EQ(host().session.windows().size(), 1u);
    EXPECT_EQ(LinesOf("ProUITableSelectionpolicySet").size(), 2u);
}

TEST_F(ExportSource, OfAPartIsOneRowAtMost) {
    Open(*host().session.FindByFile("box.prt"));
    Check(Source("curMdl") + "@ expect rows drw_list 0\n@ expect no box\n");
    WriteDrawing("box.drw.1", SheetsOf(1));
    Check(Source("curMdl") +
          "@ expect rows drw_list 1\n"
          "@ expect row drw_list 1 \"1|BOX||||\"\n" +
          Source("workDir") + "@ expect rows drw_list 3\n");
    // At the opening, and after each change.
    EXPECT_EQ(LinesOf("ProUITableSelectionpolicySet").size(), 3u);
    EXPECT_EQ(LinesOf("ProUITableColumnselectionpolicySet").size(), 3u);
}

TEST_F(ExportSource, OfAManufacturingModelIsTheDrawingOfItsAssembly) {
    workbench::MakeModels("mill.mfg: work(box)");
    WriteDrawing("work.drw.1", SheetsOf(1));
    WriteDrawing("box.drw.1", SheetsOf(1));
    Open(*host().session.FindByFile("mill.mfg"));
    Check(Source("curMdl") +
          "@ expect rows drw_list 1\n"
          "@ expect row drw_list 1 \"1|WORK||||\"\n");
    Fail("ProMfgAssemGet");
    Check(Source("curMdl") + "@ expect rows drw_list 0\n");
}

TEST_F(ExportSource, OfAnyOtherModelIsTold) {
    Play("@ open a.drw");
    Check(Source("curMdl") +
          "@ expect box 当前模型不是组件/制造或零件，无法获取工程图\n@ ok\n"
          "@ expect rows drw_list 0\n");
    EXPECT_EQ(Boxes(), Names{kNoModel});
    EXPECT_EQ(AllBoxes()[0].flags, 0x40000u);
    EXPECT_EQ(LinesOf("ProUITableSelectionpolicySet").size(), 1u);
    Fail("ProMdlCurrentGet");
    Check(Source("curMdl") + "@ expect box 当前模型不是组件/制造或零件，无法获取工程图\n@ ok\n");
}

TEST_F(ExportSource, OfTheFolderAreListedAnewWithTheSameMessages) {
    Open(*host().session.FindByFile("box.prt"));
    DoMeanwhile("WinExec", 1, [&] {
        Remove(WIDE("box.prt.1"));
        Remove(WIDE("pin.prt.1"));
    });
    DoMeanwhile("WinExec", 2, [&] { RemoveDrawings(); });
    const std::string again =
        "~ Activate `VxExport` `VxOpenDrwIni`\n" + Source("curMdl") + Source("workDir");
    Check(again + kNoModels + "@ expect rows drw_list 0\n" + again + kNoDrawings +
          "@ expect rows drw_list 0\n");
    // At the opening, and after the models of each change.
    EXPECT_EQ(LinesOf("ProUITableSelectionpolicySet").size(), 3u);
}

TEST_F(ExportSource, UnknownLeavesTheTableEmpty) {
    Fail("ProUIRadiogroupSelectednamesGet");
    Check(Source("curMdl") + "@ expect rows drw_list 0\n@ expect no box\n");
    EXPECT_EQ(LinesOf("ProUITableSelectionpolicySet").size(), 1u);
    EXPECT_EQ(LinesOf("ProFilesList").size(), 2u);
}

TEST_F(ExportSource, IsAskedForInThisOrder) {
    Open(*host().session.FindByFile("box.prt"));
    const Names calls = Check(Source("curMdl"));
    const auto from = std::find(calls.begin(), calls.end(), "ProUIRadiogroupSelectednamesGet");
    EXPECT_EQ(Names(from, std::min(from + 9, calls.end())),
              (Names{"ProUIRadiogroupSelectednamesGet", "ProUITableColumnlabelsGet",
                     "ProUITableRownamesGet", "ProUITableRowsDelete", "ProStringarrayFree",
                     "ProMdlCurrentGet", "ProMdlTypeGet", "ProMdlNameGet", "ProMdlRetrieve"}));
}

}  // namespace
