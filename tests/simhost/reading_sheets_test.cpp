// Reading of spreadsheets that other programs have saved, and of files that are none.
#include <gtest/gtest.h>

// The libraries that read them are native only.
#ifndef _WIN32

#include <chrono>
#include <filesystem>

#include "simhost/core/disk.h"
#include "simhost/spreadsheet/book.h"
#include "tests/support/places.h"

namespace {

using namespace simhost;
namespace fs = std::filesystem;
using Kind = BookCell::Kind;

std::string DataFile(const char* file) {
    return (fs::path(workbench::kSourceFolder) / "tests/simhost/data" / file).string();
}

// Why a file is not read; empty if it is.
std::string WhyNot(const std::string& path) {
    try {
        ReadBook(path);
        return {};
    } catch (const BookFileError& error) {
        return error.what();
    }
}

struct Cell {
    Kind kind;
    double number;
    std::string text;
    bool operator==(const Cell&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Cell& cell) {
    return out << int(cell.kind) << ' ' << cell.number << ' ' << cell.text;
}
Cell At(const Book& book, int row, int column) {
    const BookCell* cell = book.sheets[book.active]->Find(row, column);
    if (!cell) return {Kind::Empty, 0, ""};
    return {cell->kind, cell->number, cell->text};
}

TEST(ReadingSheets, KnowsEveryKindOfCell) {
    const Book book = ReadBook(DataFile("kinds.xlsx"));
    EXPECT_EQ(At(book, 3, 1), (Cell{Kind::Text, 0, "text"}));
    EXPECT_EQ(At(book, 3, 2), (Cell{Kind::Number, 12, ""}));
    EXPECT_EQ(At(book, 3, 3), (Cell{Kind::Number, 12.75, ""}));
    EXPECT_EQ(At(book, 3, 4), (Cell{Kind::Number, 46315, ""}));
    // The same day, six hours into it.
    EXPECT_EQ(At(book, 3, 5), (Cell{Kind::Number, 46315.25, ""}));
    EXPECT_EQ(At(book, 3, 6), (Cell{Kind::Flag, 1, ""}));
    EXPECT_EQ(At(book, 3, 7), (Cell{Kind::Error, 0, "#N/A"}));
    EXPECT_EQ(At(book, 3, 8), (Cell{Kind::Text, 0, "textx"}));
    EXPECT_EQ(At(book, 3, 9), (Cell{Kind::Number, 24, ""}));
    EXPECT_EQ(At(book, 3, 10), (Cell{Kind::Error, 0, "#DIV/0!"}));
    EXPECT_EQ(At(book, 3, 11), (Cell{Kind::Empty, 0, ""}));
    EXPECT_EQ(At(book, 3, 12), (Cell{Kind::Text, 0, "a\rb_x_"}));
    EXPECT_EQ(book.notCalculated, std::vector<std::string>{"K3"});
}

TEST(ReadingSheets, KnowsTheFormatFromBeforeByItsContents) {
    const fs::path renamed = fs::temp_directory_path() / "vx_reading_sheets.xlsx";
    fs::copy_file(DataFile("odd.xls"), renamed, fs::copy_options::overwrite_existing);
    const Book book = ReadBook(renamed.string());
    fs::remove(renamed);
    ASSERT_EQ(book.sheets.size(), 2u);
    EXPECT_EQ(book.sheets[0]->name, "名称");
    EXPECT_EQ(At(book, 3, 1), (Cell{Kind::Text, 0, "批量重命名"}));
    EXPECT_EQ(At(book, 3, 2), (Cell{Kind::Number, 12, ""}));
    EXPECT_EQ(At(book, 3, 3), (Cell{Kind::Number, 12.75, ""}));
    // The library tells flags as numbers, and of formulas nothing.
    EXPECT_EQ(At(book, 3, 4), (Cell{Kind::Number, 1, ""}));
    EXPECT_EQ(At(book, 3, 5), (Cell{Kind::Number, 46315, ""}));
    EXPECT_EQ(At(book, 3, 6), (Cell{Kind::Empty, 0, ""}));
    EXPECT_EQ(At(book, 5, 1), (Cell{Kind::Text, 0, "end"}));
    const Area used = book.sheets[0]->Used();
    EXPECT_EQ(used.r1, 3);
    EXPECT_EQ(used.r2, 5);
}

TEST(ReadingSheets, CountsACellThatOnlyLooksLikeSomethingAsUsed) {
    const Book book = ReadBook(DataFile("styled.xlsx"));
    const Area used = book.sheets[0]->Used();
    EXPECT_EQ(used.r1, 2);
    EXPECT_EQ(used.r2, 5);
    EXPECT_EQ(used.c1, 2);
    EXPECT_EQ(used.c2, 3);
}

TEST(ReadingSheets, GoesToTheLastRowAndColumnAndNotBeyond) {
    const Book book = ReadBook(DataFile("last_row.xlsx"));
    EXPECT_EQ(At(book, kLastSheetRow, 1), (Cell{Kind::Text, 0, "end"}));
    EXPECT_EQ(WhyNot(DataFile("row_beyond_the_last.xlsx")), "there is a row 1048577");
    EXPECT_EQ(WhyNot(DataFile("cell_beyond_the_last.xlsx")), "there is a cell XFE1");
    EXPECT_EQ(WhyNot(DataFile("unnamed_beyond_the_last.xlsx")), "there is a cell ");
}

TEST(ReadingSheets, RefusesRowsThatNoSheetHas) {
    EXPECT_EQ(WhyNot(DataFile("negative_row.xlsx")), "there is a row -5");
    EXPECT_EQ(WhyNot(DataFile("zero_row.xlsx")), "there is a row 0");
    EXPECT_EQ(WhyNot(DataFile("huge_row.xlsx")), "there is a row 2000000000");
}

TEST(ReadingSheets, RefusesMoreCellsThanAPersonFills) {
    EXPECT_EQ(WhyNot(DataFile("too_many_cells.xlsx")), "there are too many cells");
}

TEST(ReadingSheets, RefusesNumbersAndDatesThatAreNone) {
    EXPECT_EQ(WhyNot(DataFile("bad_number.xlsx")), "a cell holds the number 1e999");
    EXPECT_EQ(WhyNot(DataFile("bad_date.xlsx")), "a cell holds the date 2026-13-01");
}

TEST(ReadingSheets, RefusesWhatIsNoSpreadsheet) {
    EXPECT_EQ(WhyNot(DataFile("cut.xlsx")), "it is no spreadsheet");
    EXPECT_EQ(WhyNot(DataFile("password.xlsx")),
              "it is no spreadsheet, or is damaged or has a password");
    const fs::path file = fs::temp_directory_path() / "vx_no_sheet.xls";
    for (const char* text : {"", "Name\tNew\n", "<html><table></table></html>", "PK"}) {
        WriteFile(file, text);
        EXPECT_NE(WhyNot(file.string()), "") << text;
    }
    fs::remove(file);
}

TEST(ReadingSheets, CountsDaysAsASheetDoes) {
    EXPECT_EQ(DayNumber(1900, 3, 1), 61);
    EXPECT_EQ(DayNumber(2000, 1, 1), 36526);
    EXPECT_EQ(DayNumber(2024, 2, 29), 45351);
    EXPECT_EQ(DayNumber(2023, 2, 29), std::nullopt);
    EXPECT_EQ(DayNumber(1899, 12, 31), std::nullopt);
}

TEST(TypedCells, BecomeWhatTheGeneralFormatTakesThemFor) {
    const auto typed = [](const char* text) {
        BookCell cell;
        PutTyped(&cell, text, 2026);
        return Cell{cell.kind, cell.number, cell.text};
    };
    EXPECT_EQ(typed("001"), (Cell{Kind::Number, 1, ""}));
    EXPECT_EQ(typed("1E5"), (Cell{Kind::Number, 100000, ""}));
    EXPECT_EQ(typed("INF"), (Cell{Kind::Text, 0, "INF"}));
    EXPECT_EQ(typed("nan"), (Cell{Kind::Text, 0, "nan"}));
    EXPECT_EQ(typed("True"), (Cell{Kind::Flag, 1, ""}));
    EXPECT_EQ(typed("FALSE"), (Cell{Kind::Flag, 0, ""}));
    EXPECT_EQ(typed("10-20"), (Cell{Kind::Number, 46315, ""}));
    EXPECT_EQ(typed("2026-10-20"), (Cell{Kind::Number, 46315, ""}));
    EXPECT_EQ(typed("13-20"), (Cell{Kind::Text, 0, "13-20"}));
    EXPECT_EQ(typed("1-2-3-4"), (Cell{Kind::Text, 0, "1-2-3-4"}));
    EXPECT_EQ(typed("10-"), (Cell{Kind::Text, 0, "10-"}));
    EXPECT_EQ(typed("M8X25"), (Cell{Kind::Text, 0, "M8X25"}));
    EXPECT_EQ(typed(""), (Cell{Kind::Empty, 0, ""}));
    BookCell text;
    text.style.asText = true;
    PutTyped(&text, "001", 2026);
    EXPECT_EQ(text.text, "001");
}

}  // namespace

#endif
