// The spreadsheet application behind the automation door, and the files that it writes and reads.
// On Windows the plug-in goes to COM, and no files of this kind are written there.
#ifndef _WIN32

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <zip.h>

#include "simhost/core/text.h"
#include "simhost/spreadsheet/spreadsheets.h"
#include "simhost/windows/simulated.h"
#include "tests/support/places.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using Names = std::vector<std::string>;

ExcelArgument Text(const WideChar* text) {
    return {EXCEL_TEXT, text, 0};
}
ExcelArgument Whole(int number) {
    return {EXCEL_WHOLE, nullptr, number};
}
ExcelArgument Flag(bool flag) {
    return {EXCEL_FLAG, nullptr, flag};
}
constexpr ExcelArgument kMissing = {EXCEL_MISSING, nullptr, 0};

class SpreadsheetApplication : public workbench::Workbench {
protected:
    void TearDown() override {
        for (ExcelObject object : taken_) ExcelRelease(object);
        leavesSpreadsheets_ = true;
        Workbench::TearDown();
    }

    // Objects are given up at the end of the test.
    ExcelObject Take(ExcelObject object) {
        if (object) taken_.push_back(object);
        return object;
    }
    ExcelObject Get(ExcelObject object, int member, std::vector<ExcelArgument> arguments = {}) {
        return Take(ExcelGet(object, member, arguments.data(), int(arguments.size())));
    }
    ExcelObject Call(ExcelObject object, int member, std::vector<ExcelArgument> arguments = {}) {
        return Take(ExcelCall(object, member, arguments.data(), int(arguments.size())));
    }
    static int Put(ExcelObject object, int member, ExcelArgument value) {
        return ExcelPut(object, member, &value);
    }
    static ExcelResult Value(ExcelObject object, int member) {
        ExcelResult result{};
        EXPECT_EQ(ExcelRead(object, member, nullptr, 0, &result), 0);
        return result;
    }

    void NewBook() {
        application_ = Take(ExcelCreate(WIDE("Excel.Application")));
        workbooks_ = Get(application_, 572);
        workbook_ = Call(workbooks_, 181, {kMissing});
        sheet_ = Get(Get(workbook_, 485), 170, {Whole(1)});
    }
    // Opens a file and gives its active sheet.
    ExcelObject Opened(const WideText& path) {
        application_ = Take(ExcelCreate(WIDE("Excel.Application")));
        workbook_ =
            Call(Get(application_, 572), 1923, {Text(path.c_str()), kMissing, kMissing, kMissing});
        return Get(workbook_, 307);
    }
    ExcelObject Cell(const WideChar* name) { return Get(sheet_, 197, {Text(name), Text(name)}); }
    ExcelResult CellValue(ExcelObject sheet, int row, int column) {
        return Value(Get(Get(sheet, 238), 170, {Whole(row), Whole(column)}), 1388);
    }

    ExcelObject application_ = nullptr, workbooks_ = nullptr, workbook_ = nullptr, sheet_ = nullptr;
    std::vector<ExcelObject> taken_;
};

TEST_F(SpreadsheetApplication, IsKnownByOneProgramId) {
    EXPECT_EQ(ExcelCreate(WIDE("Word.Application")), nullptr);
    EXPECT_NE(Take(ExcelCreate(WIDE("Excel.Application"))), nullptr);
    TheSpreadsheets().installed = false;
    EXPECT_EQ(ExcelCreate(WIDE("Excel.Application")), nullptr);
}

TEST_F(SpreadsheetApplication, ATextStaysATextOnlyInACellOfTextFormat) {
    NewBook();
    Put(Cell(WIDE("A1")), 1388, Text(WIDE("12.50")));
    Put(Cell(WIDE("B1")), 193, Text(WIDE("@")));
    Put(Cell(WIDE("B1")), 1388, Text(WIDE("12.50")));
    Put(Cell(WIDE("C1")), 1388, Text(WIDE("12 mm")));
    EXPECT_EQ(Value(Cell(WIDE("A1")), 1388).kind, EXCEL_REAL);
    EXPECT_EQ(Value(Cell(WIDE("A1")), 1388).real, 12.5);
    EXPECT_EQ(Value(Cell(WIDE("B1")), 1388).text, WIDE("12.50"));
    EXPECT_EQ(Value(Cell(WIDE("C1")), 1388).text, WIDE("12 mm"));
    EXPECT_EQ(Value(Cell(WIDE("D9")), 1388).kind, EXCEL_OTHER);
}

TEST_F(SpreadsheetApplication, AFileThatItHasWrittenReadsBackTheSame) {
    NewBook();
    Put(Cell(WIDE("B2")), 193, Text(WIDE("@")));
    Put(Cell(WIDE("B2")), 1388, Text(WIDE("螺栓 <M12> & \"x\" ")));
    Put(Cell(WIDE("C2")), 1388, Whole(-7));
    Put(Cell(WIDE("D3")), 1388, Flag(true));
    Call(workbook_, 175, {Text(WIDE("C:\\Work\\copy.xlsx"))});
    const ExcelObject sheet = Opened(WIDE("C:\\Work\\copy.xlsx"));
    EXPECT_EQ(CellValue(sheet, 2, 2).text, WIDE("螺栓 <M12> & \"x\" "));
    EXPECT_EQ(CellValue(sheet, 2, 3).real, -7);
    EXPECT_EQ(CellValue(sheet, 3, 4).kind, EXCEL_FLAG);
    EXPECT_EQ(CellValue(sheet, 3, 4).whole, 1);
    const ExcelObject used = Get(sheet, 412);
    EXPECT_EQ(TheSpreadsheets().Describe(used), "Range B2:D3");
    EXPECT_EQ(Value(Get(used, 258), 118).whole, 2);
}

TEST_F(SpreadsheetApplication, TellsTheUserAndNotTheTerminalThatAFileIsNotWritten) {
    NewBook();
    std::filesystem::create_symlink("/dev/full", host().disk.Real(WIDE("C:\\Work\\full.xlsx")));
    testing::internal::CaptureStderr();
    Call(workbook_, 175, {Text(WIDE("C:\\Work\\full.xlsx"))});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    ASSERT_EQ(host().shown.size(), 1u);
    EXPECT_EQ(Utf8(host().shown[0].text),
              "C:\\Work\\full.xlsx is not saved: No space left on device");
}

TEST_F(SpreadsheetApplication, TellsTheUserThatThereIsNoPlaceForATemporaryFile) {
    NewBook();
    const char* before = std::getenv("TMPDIR");
    const std::string kept = before ? before : "";
    setenv("TMPDIR", "/dev/null/nowhere", 1);
    Call(workbook_, 175, {Text(WIDE("C:\\Work\\list.xlsx"))});
    before ? setenv("TMPDIR", kept.c_str(), 1) : unsetenv("TMPDIR");
    ASSERT_EQ(host().shown.size(), 1u);
    EXPECT_EQ(Utf8(host().shown[0].text),
              "C:\\Work\\list.xlsx is not saved: no temporary file can be made");
}

TEST_F(SpreadsheetApplication, HoldsAFileAsLongAsItIsOpen) {
    NewBook();
    Call(workbook_, 175, {Text(WIDE("C:\\Work\\copy.xlsx"))});
    EXPECT_FALSE(Simulated().IsHeld(host().disk.Real(WIDE("C:\\Work\\copy.xlsx"))));
    Opened(WIDE("C:\\Work\\copy.xlsx"));
    EXPECT_TRUE(Simulated().IsHeld(host().disk.Real(WIDE("C:\\Work\\copy.xlsx"))));
    Call(workbook_, 277);
    EXPECT_FALSE(Simulated().IsHeld(host().disk.Real(WIDE("C:\\Work\\copy.xlsx"))));
}

TEST_F(SpreadsheetApplication, OpensNothingThatIsNoSpreadsheet) {
    Write(WIDE("C:\\Work\\text.xlsx"), "not a spreadsheet");
    EXPECT_EQ(Opened(WIDE("C:\\Work\\text.xlsx")), nullptr);
    EXPECT_EQ(Opened(WIDE("C:\\Work\\missing.xlsx")), nullptr);
}

TEST_F(SpreadsheetApplication, AStepOnNoObjectFailsAndSaysNothing) {
    EXPECT_EQ(ExcelGet(nullptr, 572, nullptr, 0), nullptr);
    EXPECT_EQ(ExcelCall(nullptr, 302, nullptr, 0), nullptr);
    EXPECT_NE(Put(nullptr, 558, Flag(false)), 0);
    ExcelResult result{};
    EXPECT_NE(ExcelRead(nullptr, 1388, nullptr, 0, &result), 0);
    EXPECT_EQ(result.kind, EXCEL_OTHER);
    ExcelRelease(nullptr);
}

TEST_F(SpreadsheetApplication, ComplainsAboutWhatTheRealOneWouldNotTake) {
    NewBook();
    EXPECT_EQ(Get(sheet_, 999), nullptr);
    EXPECT_EQ(Get(workbook_, 175), nullptr);
    EXPECT_EQ(Get(sheet_, 197, {Text(WIDE("A1"))}), nullptr);
    EXPECT_EQ(Get(sheet_, 197, {Whole(1), Whole(2)}), nullptr);
    EXPECT_NE(Put(application_, 558, Whole(0)), 0);
    EXPECT_EQ(Complaints(),
              (Names{"ExcelGet: Worksheet has no member 999",
                     "ExcelGet: Workbook.SaveCopyAs (175) is not used like this",
                     "ExcelGet: Worksheet.Range takes 2 arguments, not 1",
                     "ExcelGet: argument 1 of Worksheet.Range is of the wrong kind",
                     "ExcelPut: argument 1 of Application.Visible is of the wrong kind"}));
    EXPECT_EQ(Get(sheet_, 197, {Text(WIDE("1A")), Text(WIDE("A1"))}), nullptr);
    EXPECT_EQ(Complaints(), Names{});
}

TEST_F(SpreadsheetApplication, FindsOutWhatIsUsedAfterItsEnd) {
    NewBook();
    const ExcelObject cell = ExcelGet(sheet_, 238, nullptr, 0);
    ExcelRelease(cell);
    EXPECT_EQ(ExcelGet(cell, 146, nullptr, 0), nullptr);
    ExcelRelease(cell);
    Call(application_, 302);
    EXPECT_EQ(Get(sheet_, 238), nullptr);
    EXPECT_EQ(Complaints(), (Names{"ExcelGet: an object that was released",
                                   "ExcelRelease: an object that was released",
                                   "ExcelGet: the application has quit"}));
    EXPECT_EQ(TheSpreadsheets().NotQuit(), Names{});
}

TEST_F(SpreadsheetApplication, ListsTheApplicationsThatNobodyHasQuit) {
    NewBook();
    EXPECT_EQ(TheSpreadsheets().NotQuit(), Names{"Application 1 with 1 workbooks"});
    EXPECT_EQ(TheSpreadsheets().NotReleased().size(), taken_.size());
}

// --- Files of other programs ---

// A package with the parts of a small workbook as another writer would make them: a prefix for the
// namespace, texts inside the cells, cells and rows without names, the second sheet the active one.
void WriteForeignFile(const std::string& path) {
    struct Part {
        const char* name;
        const char* text;
    };
    static const Part kParts[] = {
        {"xl/workbook.xml",
         "<x:workbook xmlns:x='m' xmlns:r='r'><x:bookViews><x:workbookView activeTab='1'/>"
         "</x:bookViews><x:sheets><x:sheet name='one' sheetId='1' r:id='rId8'/>"
         "<x:sheet name='two' sheetId='2' r:id='rId9'/></x:sheets></x:workbook>"},
        {"xl/_rels/workbook.xml.rels",
         "<Relationships><Relationship Id='rId8' Type='t/worksheet' Target='worksheets/a.xml'/>"
         "<Relationship Id='rId9' Type='t/worksheet' Target='/xl/worksheets/b.xml'/>"
         "<Relationship Id='rId1' Type='t/sharedStrings' Target='texts.xml'/></Relationships>"},
        {"xl/texts.xml",
         "<sst><si><t>plain</t></si><si><r><t xml:space='preserve'>in </t></r><r><t>runs</t></r>"
         "<rPh><t>reading</t></rPh></si></sst>"},
        {"xl/worksheets/a.xml", "<worksheet><sheetData/></worksheet>"},
        {"xl/worksheets/b.xml",
         "<worksheet><sheetData><row><c t='s'><v>1</v></c><c t='inlineStr'><is><t>here</t></is></c>"
         "<c><v>1.5E1</v></c></row><row r='4'><c r='C4' t='str'><f>A1</f><v>made</v></c>"
         "<c t='b'><v>0</v></c></row></sheetData></worksheet>"},
    };
    zip_t* zip = zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
    ASSERT_NE(zip, nullptr);
    for (const Part& part : kParts) {
        zip_source_t* source = zip_source_buffer(zip, part.text, std::strlen(part.text), 0);
        ASSERT_GE(zip_file_add(zip, part.name, source, 0), 0);
    }
    ASSERT_EQ(zip_close(zip), 0);
}

TEST_F(SpreadsheetApplication, ReadsTheActiveSheetOfAnotherWritersFile) {
    WriteForeignFile(host().disk.Real(WIDE("C:\\Work\\other.xlsx")).string());
    const ExcelObject sheet = Opened(WIDE("C:\\Work\\other.xlsx"));
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(CellValue(sheet, 1, 1).text, WIDE("in runs"));
    EXPECT_EQ(CellValue(sheet, 1, 2).text, WIDE("here"));
    EXPECT_EQ(CellValue(sheet, 1, 3).real, 15);
    EXPECT_EQ(CellValue(sheet, 4, 3).text, WIDE("made"));
    EXPECT_EQ(CellValue(sheet, 4, 4).kind, EXCEL_FLAG);
    EXPECT_EQ(Value(Get(Get(sheet, 412), 258), 118).whole, 4);
    EXPECT_EQ(Value(Get(workbook_, 494), 118).whole, 2);
}

// One table of a title, a gap and a row of a text, a text, 12, 1.5 and yes, saved by openpyxl and
// by LibreOffice Calc.
TEST_F(SpreadsheetApplication, ReadsTheFilesOfTheUsualPrograms) {
    for (const char* file : {"openpyxl.xlsx", "libreoffice.xlsx"}) {
        const auto from =
            std::filesystem::path(workbench::kSourceFolder) / "tests/simhost/data" / file;
        const WideText path = WIDE("C:\\Work\\") + Wide(file);
        std::filesystem::copy_file(from, host().disk.Real(path));
        const ExcelObject sheet = Opened(path);
        ASSERT_NE(sheet, nullptr) << file;
        EXPECT_EQ(CellValue(sheet, 1, 1).text, WIDE("批量重命名")) << file;
        EXPECT_EQ(CellValue(sheet, 3, 1).text, WIDE("1")) << file;
        EXPECT_EQ(CellValue(sheet, 3, 2).text, WIDE("螺栓 M12")) << file;
        EXPECT_EQ(CellValue(sheet, 3, 3).real, 12) << file;
        EXPECT_EQ(CellValue(sheet, 3, 4).real, 1.5) << file;
        EXPECT_EQ(CellValue(sheet, 3, 5).whole, 1) << file;
        EXPECT_EQ(Value(Get(Get(sheet, 412), 258), 118).whole, 3) << file;
    }
}

TEST(BookSheet, WhatIsCentredByColumnsHoldsForCellsToCome) {
    BookSheet sheet;
    sheet.At(1, 1).text = "before";
    sheet.CentreColumns(1, 2);
    EXPECT_TRUE(sheet.Find(1, 1)->style.centred);
    EXPECT_TRUE(sheet.At(5, 1).style.centred);
    EXPECT_TRUE(sheet.At(5, 2).style.centred);
    EXPECT_FALSE(sheet.At(5, 3).style.centred);
}

TEST(CellNames, AreLettersAndANumber) {
    int row = 0, column = 0;
    EXPECT_TRUE(ParseCellName("A1", &row, &column));
    EXPECT_EQ(std::pair(row, column), std::pair(1, 1));
    EXPECT_TRUE(ParseCellName("AB12", &row, &column));
    EXPECT_EQ(std::pair(row, column), std::pair(12, 28));
    EXPECT_TRUE(ParseCellName("XFD1048576", &row, &column));
    for (const char* wrong : {"", "A", "1", "A0", "a1", "A1B", "XFE1", "A1048577", "@1"}) {
        EXPECT_FALSE(ParseCellName(wrong, &row, &column)) << wrong;
    }
    EXPECT_EQ(CellNameOf(12, 28), "AB12");
    EXPECT_EQ(CellNameOf(1, 26), "Z1");
    EXPECT_EQ(CellNameOf(1, 16384), "XFD1");
}

}  // namespace

#endif
