// The buttons of VxRename that write the table as a spreadsheet and read it back.
#include <gtest/gtest.h>

#include <functional>

#include "simhost/core/disk.h"
#include "simhost/core/meanwhile.h"
#include "simhost/core/operation.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/system/windows.h"
#include "simhost/ui/table.h"
#include "tests/support/places.h"
#include "tests/tables/rename_bench.h"

namespace {

using namespace simhost;
using workbench::Names;
using workbench::RenameBench;

const WideText kNames = WIDE("C:\\Work\\names.xlsx");
constexpr const char* kExportNames =
    "~ Activate `VxRename` `VxExportTab`\n@ answer C:\\Work\\names.xlsx\n";
constexpr const char* kLoad = "~ Activate `VxRename` `VxLoadTab`\n@ answer C:\\Work\\names.xlsx\n";

class RenameExchange : public RenameBench {
protected:
    Book Written() { return ReadXlsx(host().disk.Real(kNames).string()); }
    static std::string At(const Book& book, int row, int column) {
        const BookCell* cell = book.sheets[0]->Find(row, column);
        if (!cell || cell->kind == BookCell::Kind::Empty) return "-";
        if (cell->kind == BookCell::Kind::Text) return cell->text;
        return "(" + std::to_string(cell->number) + ")";
    }
    // A spreadsheet of a title, labels and these rows of texts; "#12.5" is a number, "" an empty
    // cell, "?" a flag.
    void Sheet(const std::vector<Names>& rows) {
        Book book;
        book.sheets.push_back(std::make_unique<BookSheet>());
        BookSheet& sheet = *book.sheets[0];
        Put(&sheet.At(1, 1), "title");
        Put(&sheet.At(2, 1), "labels");
        for (std::size_t row = 0; row < rows.size(); ++row) {
            for (std::size_t column = 0; column < rows[row].size(); ++column) {
                Put(&sheet.At(int(row) + 3, int(column) + 1), rows[row][column]);
            }
        }
        WriteXlsx(book, host().disk.Real(kNames).string());
    }
    void ExpectLoaded(const std::string& lines) { Check(kLoad + lines); }
    // What the loading says about a text that is too long; the workbook is left as it is.
    void ExpectTooLong(const std::string& text) {
        leavesSpreadsheets_ = true;
        Check(std::string(kLoad) + "@ expect box \"新名称 " + text +
              " 长度大于32位，名称无效，请修改后再操作\"\n@ ok\n");
        ASSERT_EQ(AllBoxes().size(), 1u);
        EXPECT_EQ(AllBoxes()[0].flags, 0x40000u);
        EXPECT_EQ(TheSpreadsheets().NotQuit(), Names{"Application 1 with 1 workbooks"});
        EXPECT_EQ(TheSpreadsheets().NotReleased(), Names{});
        EndTheApplication();
    }
    // As a designer ends it who finds it among the tasks.
    static void EndTheApplication() {
        RestartSpreadsheets();
        TheWindows().Release(kNames);
    }

private:
    static void Put(BookCell* cell, const std::string& text) {
        if (text.empty()) return;
        cell->kind = BookCell::Kind::Text;
        cell->text = text;
        if (text == "?") cell->kind = BookCell::Kind::Flag;
        if (text[0] != '#') return;
        cell->kind = BookCell::Kind::Number;
        cell->number = std::stod(text.substr(1));
    }
};

// --- Writing ---

TEST_F(RenameExchange, WritesTitleLabelsAndWhatTheCellsShow) {
    Check("~ Input `VxRename` `input2` `cover`\n" + std::string(kExportNames));
    const Book book = Written();
    EXPECT_EQ(At(book, 1, 1), "TOP 重命名");
    EXPECT_EQ(At(book, 2, 1), "序号");
    EXPECT_EQ(At(book, 2, 4), "新名称");
    EXPECT_EQ(At(book, 3, 1), "(1.000000)");
    EXPECT_EQ(At(book, 4, 2), "PLATE");
    EXPECT_EQ(At(book, 4, 3), "prt");
    // What is typed into a field is not what its cell shows.
    EXPECT_EQ(At(book, 4, 4), "-");
    EXPECT_EQ(At(book, 7, 2), "SKEL");
    EXPECT_EQ(book.sheets[0]->rows(), 7);
    EXPECT_EQ(TheWindows().programs,
              std::vector<WideText>{WIDE("open C:\\Work\\names.xlsx (show 1)")});
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(RenameExchange, WritesNoColourAndNoFormatOfNumbers) {
    Record();
    Check(kExportNames);
    Recorded();
    for (const std::string& line : Lines("ExcelPut")) {
        EXPECT_EQ(line.find("NumberFormat"), std::string::npos) << line;
        EXPECT_EQ(line.find("ColorIndex"), std::string::npos) << line;
    }
    EXPECT_EQ(Lines("ProUITableCellBackgroundColorGet"), Names{});
    EXPECT_EQ(Lines("GetSaveFileNameW"), Names{});
    EXPECT_EQ(Lines("DeleteFileW"), Names{});
    EXPECT_EQ(Lines("ProFileSave"),
              Names{"ProFileSave(title=\"导出表格\", filter=\"*.xls\", folder=null, "
                    "proposed=null, path=\"C:\\Work\\names.xlsx\") = 0"});
}

TEST_F(RenameExchange, NamesThatLookLikeNumbersBecomeNumbers) {
    Model& other = workbench::MakeModels("1: 001, inf, 10-20");
    Open(other);
    Check(kExportNames);
    const Book book = Written();
    EXPECT_EQ(At(book, 4, 2), "(1.000000)");
    EXPECT_EQ(At(book, 5, 2), "INF");
    EXPECT_EQ(At(book, 6, 2)[0], '(');
}

TEST_F(RenameExchange, RowsGoBeforeTheFileOrTheFilterIsAskedFor) {
    // The last ones: opening the dialog comes before.
    const auto order = [&](const std::string& lines, std::ptrdiff_t last) {
        Record();
        Check(lines);
        Names operations;
        for (const std::string& line : Recorded()) {
            const std::string name = line.substr(line.find_first_not_of(' '));
            for (const char* each : {"ProUITableRowsDelete", "GetOpenFileNameW",
                                     "ProUIInputpanelValueSet", "ProUIInputpanelValueGet"}) {
                if (name.starts_with(each)) operations.emplace_back(each);
            }
        }
        return Names(operations.end() - last, operations.end());
    };
    EXPECT_EQ(order("~ Activate `VxRename` `VxLoadTab`\n@ quit\n", 2),
              (Names{"ProUITableRowsDelete", "GetOpenFileNameW"}));
    EXPECT_EQ(
        order("~ Activate `VxRename` `UpdateRenameIni`\n", 3),
        (Names{"ProUIInputpanelValueSet", "ProUITableRowsDelete", "ProUIInputpanelValueGet"}));
}

TEST_F(RenameExchange, AsksForNameFileLabelsAndRowsBeforeTheApplicationAndWritesDownwards) {
    Sheet({{"1", "PLATE", "prt", "cover"}});
    Record();
    Check(kLoad + std::string(kExportNames));
    Names steps;
    for (const std::string& line : Recorded()) {
        for (const char* each : {"ProMdlCurrentGet", "ProFileSave", "ProUITableColumnlabelsGet",
                                 "ProUITableRowlabelsGet", "ExcelCreate"}) {
            if (line == each) steps.emplace_back(each);
        }
    }
    // What came before the dialog was open and what the loading did is not of interest here.
    const auto from = std::find(steps.rbegin(), steps.rend(), "ProFileSave").base() - 2;
    EXPECT_EQ(Names(from, steps.end()),
              (Names{"ProMdlCurrentGet", "ProFileSave", "ProUITableColumnlabelsGet",
                     "ProUITableRowlabelsGet", "ExcelCreate"}));
    Names values;
    for (const std::string& line : Lines("ExcelPut")) {
        if (line.find("member=Value2") != std::string::npos) {
            values.push_back(
                line.substr(line.find("value=") + 6, line.find(")) = ") - line.find("value=") - 6));
        }
    }
    EXPECT_EQ(values, (Names{"(\"TOP 重命名\"", "(\"序号\"", "(\"原名称\"", "(\"类型\"",
                             "(\"新名称\"", "(\"1\"", "(\"PLATE\"", "(\"prt\"", "(\"cover\""}));
}

TEST_F(RenameExchange, ReadsTheTextOfACellBeforeItLooksForItsPlaceInTheSheet) {
    Sheet({{"1", "PLATE", "prt", "cover"}});
    Record();
    Check(kLoad + std::string(kExportNames));
    Names steps;
    for (const std::string& line : Recorded()) {
        for (const char* each : {"ProUITableCellLabelGet", "ExcelGet", "ExcelPut"}) {
            if (line == each) steps.emplace_back(each);
        }
    }
    const auto first = std::find(steps.begin(), steps.end(), "ProUITableCellLabelGet");
    ASSERT_GE(steps.end() - first, 6);
    EXPECT_EQ(Names(first, first + 6), (Names{"ProUITableCellLabelGet", "ExcelGet", "ExcelPut",
                                              "ProUITableCellLabelGet", "ExcelGet", "ExcelPut"}));
}

TEST_F(RenameExchange, ALoadedTableGoesOutWithItsNewNames) {
    Sheet({{"1", "PLATE", "prt", "cover"}});
    Check(kLoad + std::string(kExportNames));
    EXPECT_EQ(At(Written(), 3, 4), "cover");
}

TEST_F(RenameExchange, AnEmptyTableGivesTitleAndLabels) {
    Sheet({});
    Check(kLoad + std::string(kExportNames));
    EXPECT_EQ(Written().sheets[0]->rows(), 2);
}

TEST_F(RenameExchange, ThePathIsTakenAsItIsTypedAndAFileThereIsReplacedUnasked) {
    Write(WIDE("C:\\Work\\names"), "old");
    Check("~ Activate `VxRename` `VxExportTab`\n@ answer C:\\Work\\names\n");
    EXPECT_EQ(At(ReadXlsx(host().disk.Real(WIDE("C:\\Work\\names")).string()), 1, 1), "TOP 重命名");
}

TEST_F(RenameExchange, LeavingTheDialogForTheFileEndsTheExport) {
    Record();
    Check("~ Activate `VxRename` `VxExportTab`\n@ quit\n");
    Recorded();
    EXPECT_EQ(Lines("ExcelCreate"), Names{});
    EXPECT_EQ(Lines("CreateFileW"), Names{});
}

TEST_F(RenameExchange, AnUnknownPathEndsTheExportToo) {
    Record();
    Fail("ProFileSave");
    Check("~ Activate `VxRename` `VxExportTab`\n");
    Recorded();
    EXPECT_EQ(Lines("ExcelCreate"), Names{});
}

TEST_F(RenameExchange, WhoLeavesTheDialogExportsNothingEvenIfAPathWasTyped) {
    Operation::Fail({"ProFileSave", 1, false, PRO_TK_USER_ABORT, /*afterWork=*/true});
    Record();
    Check(kExportNames);
    Recorded();
    EXPECT_EQ(Lines("ExcelCreate"), Names{});
}

TEST_F(RenameExchange, WithoutACurrentModelTheTitleHasNoName) {
    // The second question; the first one opened the dialog.
    Fail("ProMdlCurrentGet", {.n = 2});
    Record();
    Check(kExportNames);
    Recorded();
    EXPECT_EQ(At(Written(), 1, 1), " 重命名");
}

TEST_F(RenameExchange, TwentySixColumnsGoOutAndNotTwentySeven) {
    const auto widen = [&](int columns) {
        auto* table = dynamic_cast<Table*>(host().dialogs.Active()->Find("mdl_list"));
        Names names;
        for (int i = 0; i < columns; ++i) names.push_back("more" + std::to_string(i));
        table->InsertColumns("new_name", names);
    };
    DoMeanwhile("ProUITableColumnlabelsGet", 1, [&] { widen(22); });
    Check(kExportNames);
    EXPECT_EQ(At(Written(), 2, 26), "more21");
    std::filesystem::remove(host().disk.Real(kNames));
    leavesSpreadsheets_ = true;
    DoMeanwhile("ProUITableColumnlabelsGet", 1, [&] { widen(23); });
    Check(std::string(kExportNames) + "@ expect box \"bom表格列数不得大于26列\"\n@ ok\n");
    EXPECT_EQ(AllBoxes()[0].flags, 0u);
    EXPECT_FALSE(Exists(kNames));
    EXPECT_EQ(TheSpreadsheets().NotQuit(), Names{"Application 2 with 1 workbooks"});
}

TEST_F(RenameExchange, AFileThatIsHeldIsNamedAndLeftAlone) {
    Write(kNames, "old");
    TheWindows().Hold(kNames);
    Check(kExportNames + std::string("@ expect box \"C:\\\\Work\\\\names.xlsx文件已在excel打开，"
                                     "请关闭后重试\"\n@ expect caption 岚枢工具\n@ ok\n"));
    TheWindows().Release(kNames);
    EXPECT_EQ(Read(kNames), "old");
}

TEST_F(RenameExchange, WithoutTheApplicationTheExportSaysSoWithAWarning) {
    TheSpreadsheets().installed = false;
    Check(kExportNames + std::string("@ expect box \"创建Excel失败\"\n@ ok\n"));
    EXPECT_EQ(AllBoxes()[0].flags, 0x30u);
}

// --- Reading ---

TEST_F(RenameExchange, ReadsARowForEachOfTheSheetFromTheThirdOn) {
    Sheet({{"1", "TOP", "asm", "TOP"}, {"2", "PLATE", "prt", "cover"}});
    ExpectLoaded(
        "@ expect rows mdl_list 2\n"
        "@ expect row mdl_list 1 \"1|TOP|asm|TOP\"\n"
        "@ expect row mdl_list 2 \"2|PLATE|prt|cover\"\n"
        "@ expect cell mdl_list 2 new_name cover\n"
        "~ Input `VxRename` `inputImport2` `lid`\n"
        "@ expect cell mdl_list 2 new_name lid\n");
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(RenameExchange, AsksForTheFileWithAFilterWhoseLastLabelHasNoPattern) {
    Record();
    Check("~ Activate `VxRename` `VxLoadTab`\n@ quit\n@ expect rows mdl_list 0\n");
    Recorded();
    EXPECT_EQ(Lines("GetOpenFileNameW"),
              Names{"GetOpenFileNameW(owner=pointer, filter=\"Microsoft Excel "
                    "2000(*.xls)\\0*.xls\\0所有文件(*.*)\\0\", extension=\"xls\", folder=null, "
                    "flags=6, path=\"\") = 0"});
    bool told = false;
    for (const Shown& shown : host().shown) {
        told = told || shown.text == WIDE("请选择需要加载的批量重命名表格文件");
    }
    EXPECT_TRUE(told);
    EXPECT_EQ(Lines("ExcelCreate"), Names{});
}

TEST_F(RenameExchange, ANameWithoutAnEndingGetsItsOwn) {
    Sheet({{"1", "PLATE", "prt", "cover"}});
    std::filesystem::copy_file(host().disk.Real(kNames),
                               host().disk.Real(WIDE("C:\\Work\\other.xls")));
    // What lies under .xls is known by its contents.
    Check("~ Activate `VxRename` `VxLoadTab`\n@ answer other\n@ expect rows mdl_list 1\n");
}

TEST_F(RenameExchange, RenamesWhatWasLoadedByTheFieldsThatCameWithIt) {
    Sheet({{"7", "PLATE", "prt", "cover"}, {"", "BOLT", "prt", "BOLT"}});
    Start(kLoad);
    EXPECT_EQ(plate_->FileName(), "cover.prt");
    EXPECT_EQ(bolt_->FileName(), "bolt.prt");
}

TEST_F(RenameExchange, TheFieldsOfLoadedRowsShowTheirModelWhenTheyGetTheFocus) {
    Sheet({{"1", "TOP", "asm", "a"}, {"2", "SUB", "ASM", "b"}, {"3", "BOLT", "prt", "c"}});
    Record();
    ExpectLoaded(
        "~ FocusIn `VxRename` `inputImport2`\n@ expect focus mdl_list 2 new_name\n"
        "~ FocusIn `VxRename` `inputImport3`\n"
        "~ Arm `VxRename` `mdl_list` 2 `1` `num`\n");
    Recorded();
    const Names shown = Lines("ProMdlDisplay");
    ASSERT_EQ(shown.size(), 4u);
    EXPECT_EQ(shown[0], "ProMdlDisplay(model=sub.asm) = 0");
    EXPECT_EQ(shown[1], "ProMdlDisplay(model=bolt.prt) = 0");
    EXPECT_EQ(shown[2], "ProMdlDisplay(model=top.asm) = 0");
}

TEST_F(RenameExchange, TheFieldsOfOpenedRowsShowNothing) {
    Record();
    Check("~ FocusIn `VxRename` `input2`\n");
    Recorded();
    EXPECT_EQ(Lines("ProMdlDisplay").size(), 1u);
}

TEST_F(RenameExchange, NumbersComeWithoutTheirDecimals) {
    Sheet({{"#12", "#12.9", "#-3.5", "#0.25"}, {"#1e15", "#2.9999999", "#-0.5", "#1e20"}});
    ExpectLoaded(
        "@ expect row mdl_list 1 \"12|12|-3|0\"\n"
        "@ expect row mdl_list 2 \"1000000000000000|3|-0|100000000000000000000\"\n");
}

TEST_F(RenameExchange, AnEmptyCellKeepsTheTextReadBefore) {
    Sheet({{"", "", "prt", ""}, {"?", "BOLT", "", "?"}});
    ExpectLoaded(
        // The very first one begins with nothing.
        "@ expect row mdl_list 1 \"||prt|prt\"\n"
        "@ expect row mdl_list 2 \"prt|BOLT|BOLT|BOLT\"\n");
}

TEST_F(RenameExchange, EachRowGoesAfterTheOneBeforeAndARowThatFailsIsPassedOver) {
    Sheet({{"1", "TOP", "asm", "a"}, {"2", "PLATE", "prt", "b"}, {"3", "BOLT", "prt", "c"}});
    Record();
    // The fifth row of the assembly comes first, as the dialog opens.
    Fail("ProUITableRowsInsert", {.n = 5 + 2});
    ExpectLoaded("@ expect rows mdl_list 2\n@ expect row mdl_list 3 \"3|BOLT|prt|c\"\n");
    Recorded();
    const Names inserted = Lines("ProUITableRowsInsert");
    ASSERT_EQ(inserted.size(), 8u);
    const auto previous = [&](std::size_t at) {
        const std::size_t from = inserted[at].find("after=");
        return inserted[at].substr(from, inserted[at].find(',', from) - from);
    };
    EXPECT_EQ(previous(5), "after=\"\"");
    EXPECT_EQ(previous(6), "after=\"1\"");
    EXPECT_EQ(previous(7), "after=\"1\"");
}

TEST_F(RenameExchange, ASecondLoadBeginsWithNothingAndTakesTheSameFields) {
    Sheet({{"1", "PLATE", "prt", "cover"}});
    Check(kLoad + std::string("~ Input `VxRename` `inputImport1` `lid`\n") + kLoad +
          "@ expect rows mdl_list 1\n@ expect cell mdl_list 1 new_name cover\n");
}

TEST_F(RenameExchange, KnowsErrorsDatesAndFormulasAsTheApplicationDoes) {
    std::filesystem::copy_file(
        std::filesystem::path(workbench::kSourceFolder) / "tests/simhost/data/kinds.xlsx",
        host().disk.Real(kNames));
    // One row is used, and it is the third: the count of used rows does not reach it.
    ExpectLoaded("@ expect rows mdl_list 0\n");
}

TEST_F(RenameExchange, ATextOfThirtyTwoCharactersIsReadInAnyColumn) {
    const std::string text(32, 'x');
    Sheet({{text, text, text, text}});
    ExpectLoaded("@ expect row mdl_list 1 \"" + text + "|" + text + "|" + text + "|" + text +
                 "\"\n");
}

TEST_F(RenameExchange, ALongerOneEndsTheLoadingWhicheverItsColumn) {
    const std::string text(33, 'x');
    for (std::size_t column = 0; column < 4; ++column) {
        Names second = {"2", "BOLT", "prt", "screw"};
        second[column] = text;
        Sheet({{"1", "PLATE", "prt", "cover"}, second, {"3", "SUB", "asm", "unit"}});
        host().shown.clear();
        ExpectTooLong(text);
    }
}

TEST_F(RenameExchange, ATextThatIsTooLongIsNotWrittenIntoItsCell) {
    leavesSpreadsheets_ = true;
    Sheet({{"1", std::string(33, 'x'), "prt", "cover"}});
    Check(std::string(kLoad) +
          "@ ok\n@ expect rows mdl_list 1\n@ expect row mdl_list 1 \"1|||\"\n");
    EndTheApplication();
}

TEST_F(RenameExchange, AHugeNumberIsTooLongAsWell) {
    Sheet({{"#1e40"}});
    ExpectTooLong("10000000000000000303786028427003666890752");
}

TEST_F(RenameExchange, WithoutTheApplicationTheLoadingSaysSo) {
    Sheet({{"1", "PLATE", "prt", "cover"}});
    TheSpreadsheets().installed = false;
    Check(std::string(kLoad) +
          "@ expect box \"无法启动Excel服务器!\"\n@ ok\n@ expect rows mdl_list 0\n");
    EXPECT_EQ(AllBoxes()[0].flags, 0u);
    EXPECT_FALSE(AllBoxes()[0].hasCaption);
}

TEST_F(RenameExchange, AFileThatIsNotReadGivesNoRowsAndQuits) {
    const auto load = [&] {
        Check(std::string(kLoad) + "@ expect rows mdl_list 0\n");
        EXPECT_EQ(TheSpreadsheets().NotQuit(), Names{});
        EXPECT_EQ(Boxes(), Names{});
    };
    load();  // there is none
    Write(kNames, "nonsense");
    load();
    Write(kNames, "");
    load();
    Sheet({{"1", "PLATE", "prt", "cover"}});
    TheWindows().Hold(kNames);
    load();
    TheWindows().Release(kNames);
    Check(std::string(kLoad) + "@ expect rows mdl_list 1\n");
}

TEST_F(RenameExchange, TakesTheStepsOfTheApplicationInTheirOrder) {
    Sheet({{"1", "PLATE", "prt", "cover"}});
    Record();
    ExpectLoaded("");
    Recorded();
    Names members;
    for (const std::string& line : Lines("Excel*")) {
        const std::size_t at = line.find("member=");
        if (line.rfind("ExcelRelease", 0) == 0 || at == std::string::npos) continue;
        members.push_back(line.substr(at + 7, line.find(',', at) - at - 7));
    }
    Names cells;
    for (int i = 0; i < 4; ++i) cells.insert(cells.end(), {"Cells", "Item", "Value2"});
    EXPECT_EQ(members, workbench::Joined({{"Workbooks", "Open", "Worksheets", "ActiveSheet",
                                           "UsedRange", "Rows", "Count"},
                                          cells,
                                          {"Close", "Quit"}}));
}

TEST_F(RenameExchange, OpensTheFileWithAllOtherArgumentsMissing) {
    Sheet({});
    Record();
    ExpectLoaded("");
    Recorded();
    std::string arguments = "(\"C:\\Work\\names.xlsx\"";
    for (int i = 0; i < 14; ++i) arguments += ", missing";
    EXPECT_NE(Lines("ExcelCall")[0].find("arguments=" + arguments + ")"), std::string::npos);
}

TEST_F(RenameExchange, PutsTheFieldOfARowAfterItsCells) {
    Sheet({{"1", "PLATE", "prt", "cover"}});
    Record();
    ExpectLoaded("");
    Names order;
    for (const std::string& name : Recorded()) {
        if (name.rfind("ProUI", 0) == 0) order.push_back(name);
    }
    const auto from = std::find(order.begin(), order.end(), "ProUITableRowsDelete");
    ASSERT_NE(from, order.end());
    EXPECT_EQ(Names(from, order.end() - 2),
              (Names{"ProUITableRowsDelete", "ProUITableRowsInsert", "ProUITableCellLabelSet",
                     "ProUITableCellLabelSet", "ProUITableCellLabelSet", "ProUITableCellLabelSet",
                     "ProUITableCellComponentDelete", "ProUITableCellComponentCopy",
                     "ProUIInputpanelValueSet", "ProUIInputpanelFocusinActionSet"}));
    EXPECT_EQ(Lines("ProUITableCellComponentCopy").back(),
              "ProUITableCellComponentCopy(dialog=\"VxRename\", table=\"mdl_list\", row=\"1\", "
              "column=\"new_name\", fromDialog=\"VxRename\", fromComponent=\"name_input\", "
              "name=\"inputImport1\") = 0");
}

TEST_F(RenameExchange, ACellThatCannotBeReadKeepsTheTextBefore) {
    Sheet({{"1", "PLATE", "prt", "cover"}});
    // The count of rows is the first reading.
    Fail("ExcelRead", {.n = 3});
    ExpectLoaded("@ expect row mdl_list 1 \"1|1|prt|cover\"\n");
}

TEST_F(RenameExchange, ThousandsOfRowsComeInInTheirOrder) {
    std::vector<Names> rows;
    for (int i = 1; i <= 2000; ++i) rows.push_back({std::to_string(i), "PLATE", "prt", "P"});
    Sheet(rows);
    ExpectLoaded("@ expect rows mdl_list 2000\n@ expect row mdl_list 2000 \"2000|PLATE|prt|P\"\n");
}

}  // namespace
