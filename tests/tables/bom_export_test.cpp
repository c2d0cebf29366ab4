// The export of the bill of materials: what goes to the spreadsheet application, and the file that
// comes of it.
#include <gtest/gtest.h>

#include "simhost/core/disk.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/system/windows.h"
#include "tests/tables/bom_bench.h"
#include "tests/tables/export_steps.h"

namespace {

using namespace simhost;
using workbench::BomBench;
using workbench::kCloseBom;
using workbench::Names;

constexpr const char* kExport = "~ Command `VxBom`\n~ Activate `VxBom` `VxExportBom`\n";
const WideText kFile = WIDE("C:\\Work\\list.xlsx");

class BomExport : public BomBench {
protected:
    void Export(const std::string& answers = "@ answer C:\\Work\\list.xlsx\n") {
        Play(kExport + answers + kCloseBom);
    }
    bool Exists(const WideText& path) { return std::filesystem::exists(host().disk.Real(path)); }
    Book Written(const WideText& path = kFile) { return ReadXlsx(host().disk.Real(path).string()); }
    static std::string TextAt(const Book& book, int row, int column) {
        const BookCell* cell = book.sheets[0]->Find(row, column);
        if (!cell) return "-";
        return cell->kind == BookCell::Kind::Text ? cell->text : "(no text)";
    }
};

TEST_F(BomExport, WritesTitleLabelsAndRows) {
    Export();
    const Book book = Written();
    EXPECT_EQ(TextAt(book, 1, 1), "TOP BOM");
    EXPECT_EQ(TextAt(book, 2, 1), "序号");
    EXPECT_EQ(TextAt(book, 2, 2), "模型名称");
    EXPECT_EQ(TextAt(book, 2, 3), "模型数量");
    EXPECT_EQ(TextAt(book, 3, 1), "1");
    EXPECT_EQ(TextAt(book, 3, 2), "TOP");
    EXPECT_EQ(TextAt(book, 6, 2), "GEAR");
    EXPECT_EQ(TextAt(book, 6, 3), "4");
    EXPECT_EQ(book.sheets[0]->rows(), 6);
    EXPECT_EQ(book.sheets[0]->columns(), 3);
}

TEST_F(BomExport, OpensTheFileAndShowsNoBox) {
    Export();
    EXPECT_EQ(TheWindows().programs,
              std::vector<WideText>{WIDE("open C:\\Work\\list.xlsx (show 1)")});
    EXPECT_EQ(Boxes(), std::vector<std::string>{});
}

TEST_F(BomExport, KeepsTheDecimalsOfNumbers) {
    Columns("长度");
    top_->parameters.Set(RealParameter(WIDE("长度"), 1.5));
    Export();
    EXPECT_EQ(TextAt(Written(), 3, 2), "1.500");
}

TEST_F(BomExport, TakesTheTableAsItStandsOnTheScreen) {
    Play("~ Command `VxBom`\n" + workbench::LoadLevels("1") +
         "~ Activate `VxBom` `VxExportBom`\n@ answer C:\\Work\\list.xlsx\n" + kCloseBom);
    const Book book = Written();
    EXPECT_EQ(TextAt(book, 2, 3), "层级2");
    EXPECT_EQ(TextAt(book, 5, 3), "3");
    EXPECT_EQ(book.sheets[0]->rows(), 5);
}

TEST_F(BomExport, AnEmptyTableGivesTitleAndLabels) {
    Play(
        "~ Command `VxBom`\n~ Activate `VxBom` `VxUpdateBomIni`\n"
        "~ Activate `VxBom` `VxExportBom`\n@ answer C:\\Work\\list.xlsx\n" +
        std::string(kCloseBom));
    const Book book = Written();
    EXPECT_EQ(TextAt(book, 1, 1), "TOP BOM");
    EXPECT_EQ(TextAt(book, 2, 2), "模型名称");
    EXPECT_EQ(book.sheets[0]->rows(), 2);
}

TEST_F(BomExport, TheTitleIsTheModelOnTheScreenNow) {
    Play(
        "~ Command `VxBom`\n~ Activate `VxBom` `bom_list` 2 `2` `num`\n"
        "~ Activate `VxBom` `VxExportBom`\n@ answer C:\\Work\\list.xlsx\n" +
        std::string(kCloseBom));
    EXPECT_EQ(TextAt(Written(), 1, 1), "BOLT BOM");
}

// --- The dialog for the file ---

TEST_F(BomExport, AsksOnTheDesktopForASpreadsheet) {
    Record();
    Export("@ quit\n");
    Recorded();
    EXPECT_EQ(Lines("GetSaveFileNameW"),
              Names{"GetSaveFileNameW(owner=pointer, "
                    "filter=\"EXCEL文件(*.xlsx)\\0*.xlsx\\0 All Files (*.*) \\0*.*\\0\", "
                    "extension=\".xlsx\", "
                    "folder=\"C:\\Users\\Designer\\Desktop\", flags=6, path=\"\") = 0"});
    EXPECT_EQ(Lines("ExcelCreate"), Names{});
}

TEST_F(BomExport, AsksAlsoWhereNoWindowIsActive) {
    Fail("GetActiveWindow");
    Export();
    EXPECT_EQ(TextAt(Written(), 1, 1), "TOP BOM");
}

TEST_F(BomExport, ANameAloneLiesOnTheDesktopAndGetsItsExtension) {
    Export("@ answer 明细\n");
    EXPECT_TRUE(Exists(WIDE("C:\\Users\\Designer\\Desktop\\明细.xlsx")));
}

TEST_F(BomExport, AFileThatIsThereIsReplacedWhenTheUserSaysSo) {
    Write(kFile, "old");
    Export("@ answer C:\\Work\\list.xlsx\n@ answer yes\n");
    EXPECT_EQ(TextAt(Written(), 1, 1), "TOP BOM");
}

TEST_F(BomExport, AFileThatIsThereStaysWhenTheUserDoesNot) {
    Write(kFile, "old");
    Export("@ answer C:\\Work\\list.xlsx\n@ answer no\n@ quit\n");
    EXPECT_EQ(Read(kFile), "old");
}

TEST_F(BomExport, AFileThatAnotherProgramHoldsIsNamedAndLeftAlone) {
    Write(kFile, "old");
    TheWindows().Hold(kFile);
    Record();
    Export(
        "@ answer C:\\Work\\list.xlsx\n@ answer yes\n"
        "@ expect box \"C:\\\\Work\\\\list.xlsx文件已在excel打开，请关闭后重试\"\n"
        "@ expect caption 岚枢工具\n@ ok\n");
    Recorded();
    EXPECT_EQ(Read(kFile), "old");
    EXPECT_EQ(Lines("ExcelCreate"), Names{});
    EXPECT_EQ(Lines("CreateFileW"),
              Names{"CreateFileW(path=\"C:\\Work\\list.xlsx\", access=2032127, share=1, "
                    "security=null, creation=3, attributes=128, pattern=null) = pointer"});
    EXPECT_EQ(Lines("GetLastError"), Names{"GetLastError() = 32"});
}

TEST_F(BomExport, AFileThatMayNotBeWrittenCountsAsHeld) {
    Write(kFile, "old");
    const auto real = host().disk.Real(kFile);
    std::filesystem::permissions(real, std::filesystem::perms::owner_read);
    Record();
    Export(
        "@ answer C:\\Work\\list.xlsx\n@ answer yes\n"
        "@ expect box 文件已在excel打开\n@ ok\n");
    Recorded();
    EXPECT_EQ(Lines("GetLastError"), Names{"GetLastError() = 5"});
    EXPECT_EQ(Read(kFile), "old");
}

TEST_F(BomExport, AFileThatStaysThoughItIsFreeIsWrittenOver) {
    Write(kFile, "old");
    Fail("DeleteFileW");
    Export("@ answer C:\\Work\\list.xlsx\n@ answer yes\n");
    EXPECT_EQ(TextAt(Written(), 1, 1), "TOP BOM");
}

TEST_F(BomExport, AFolderThatIsNotThereGivesNoFileAndNoBox) {
    Export("@ answer C:\\Nowhere\\list.xlsx\n");
    EXPECT_FALSE(Exists(WIDE("C:\\Nowhere")));
    EXPECT_EQ(TheWindows().programs, std::vector<WideText>{});
}

// --- The application ---

TEST_F(BomExport, WithoutTheApplicationItSaysSo) {
    Write(kFile, "old");
    TheSpreadsheets().installed = false;
    Export("@ answer C:\\Work\\list.xlsx\n@ answer yes\n@ expect box \"创建Excel失败\"\n@ ok\n");
    EXPECT_EQ(AllBoxes()[0].flags, 0x30u);
    EXPECT_FALSE(AllBoxes()[0].hasCaption);
    // The old file was deleted before.
    EXPECT_FALSE(Exists(kFile));
}

std::string ManyColumns(int count) {
    std::string list = "模型名称";
    for (int i = 2; i <= count; ++i) list += ",p" + std::to_string(i);
    return list;
}

TEST_F(BomExport, TwentySixColumnsGoOut) {
    Columns(ManyColumns(25));
    Export();
    const Book book = Written();
    EXPECT_EQ(TextAt(book, 2, 26), "p25");
    EXPECT_EQ(book.sheets[0]->columns(), 26);
}

TEST_F(BomExport, TwentySevenColumnsAreTooManyAndLeaveTheApplicationOpen) {
    Columns(ManyColumns(26));
    Write(kFile, "old");
    Export(
        "@ answer C:\\Work\\list.xlsx\n@ answer yes\n"
        "@ expect box \"bom表格列数不得大于26列\"\n@ expect caption none\n@ ok\n");
    EXPECT_EQ(AllBoxes()[0].flags, 0u);
    EXPECT_FALSE(Exists(kFile));
    EXPECT_EQ(TheSpreadsheets().NotQuit(), Names{"Application 1 with 1 workbooks"});
    leavesSpreadsheets_ = true;
}

TEST_F(BomExport, GoesThroughTheApplicationInThePrescribedOrder) {
    Open(Assembly("empty"));
    Columns("模型名称");
    Record();
    Export();
    Recorded();
    Names calls;
    for (const std::string& call : Lines("Excel*")) {
        if (call.substr(0, 12) != "ExcelRelease") calls.push_back(call);
    }
    EXPECT_EQ(calls, workbench::StepsOfEmptyBom("C:\\Work\\list.xlsx"));
}

TEST_F(BomExport, ThePathIsAskedAndTheLabelsAreReadBeforeTheApplicationIsMade) {
    Record();
    Export();
    Names order;
    for (const std::string& name : Recorded()) {
        const bool wanted = name == "GetSaveFileNameW" || name == "ProUITableColumnlabelsGet" ||
                            name == "ExcelCreate";
        if (wanted) order.push_back(name);
    }
    // The first question for the labels is that of the dialog, which fills its table as it opens.
    EXPECT_EQ(order, (Names{"ProUITableColumnlabelsGet", "GetSaveFileNameW",
                            "ProUITableColumnlabelsGet", "ExcelCreate"}));
}

TEST_F(BomExport, OnlyMarkedCellsAreFilled) {
    Columns("模型名称,材料");
    Record();
    Export();
    Recorded();
    // TOP and SUB are rows 3 and 5 of the sheet; their missing material in column C stays white.
    Names filled;
    for (const std::string& line : Lines("ExcelPut")) {
        if (line.find("ColorIndex") != std::string::npos) filled.push_back(line);
    }
    const auto fill = [](const std::string& cell) {
        return "ExcelPut(object=Interior " + cell + ", member=ColorIndex, value=(35)) = 0";
    };
    EXPECT_EQ(filled, (Names{fill("A3"), fill("B3"), fill("A5"), fill("B5")}));
}

TEST_F(BomExport, GivesUpEverythingButTheApplicationBeforeItQuits) {
    Record();
    Export();
    Recorded();
    Names end = Lines("Excel*");
    end.erase(end.begin(), end.end() - 6);
    EXPECT_EQ(
        end,
        (Names{"ExcelRelease(object=\"Worksheet\") = 0", "ExcelRelease(object=\"Sheets\") = 0",
               "ExcelRelease(object=\"Workbook\") = 0", "ExcelRelease(object=\"Workbooks\") = 0",
               "ExcelCall(object=Application 1, member=Quit, arguments=(), result=null) = "
               "null",
               "ExcelRelease(object=\"Application 1\") = 0"}));
}

TEST_F(BomExport, AfterAFailedStepTheOthersAreStillDone) {
    Fail("ExcelCall");  // no workbook is added
    Record();
    Export();
    Recorded();
    EXPECT_FALSE(Exists(kFile));
    // What hangs on the workbook does nothing; the application quits all the same.
    EXPECT_EQ(Lines("ExcelPut").back(), "ExcelPut(object=null, member=Saved, value=(true)) = -1");
    EXPECT_EQ(Lines("ExcelCall").back(),
              "ExcelCall(object=Application 1, member=Quit, arguments=(), result=null) = null");
    EXPECT_EQ(TheSpreadsheets().NotQuit(), Names{});
}

TEST_F(BomExport, ACellThatFailsIsEmptyAndTheOthersAreWritten) {
    // Of the cells, each in turn: its range is the fourth of these calls per cell in the sheet's
    // first columns; the one of B3 is told by its argument below.
    Columns("模型名称");
    Record();
    Export();
    Recorded();
    const Names gets = Lines("ExcelGet");
    const auto b3 = std::find_if(gets.begin(), gets.end(), [](const std::string& line) {
        return line.find("\"B3\"") != std::string::npos;
    });
    Fail("ExcelGet", {.n = unsigned(b3 - gets.begin()) + 1});
    Export("@ answer C:\\Work\\list.xlsx\n@ answer yes\n");
    const Book book = Written();
    EXPECT_EQ(TextAt(book, 3, 1), "1");
    EXPECT_NE(TextAt(book, 3, 2), "TOP");
    EXPECT_EQ(TextAt(book, 4, 2), "BOLT");
}

TEST_F(BomExport, TheTableStaysAsItIsAndCanGoOutAgain) {
    Export(
        "@ answer C:\\Work\\first.xlsx\n"
        "@ expect rows bom_list 4\n@ expect row bom_list 4 \"4|GEAR|4\"\n"
        "@ expect row colours bom_list 3 17 17 17\n"
        "~ Activate `VxBom` `VxExportBom`\n@ answer C:\\Work\\list.xlsx\n");
    EXPECT_EQ(TextAt(Written(WIDE("C:\\Work\\first.xlsx")), 6, 2), "GEAR");
    EXPECT_EQ(TextAt(Written(), 6, 2), "GEAR");
}

}  // namespace
