// A workbook as data: sheets of cells with what the automation can set on them.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "hostapi/wide.h"

namespace simhost {

// What a cell looks like. Two cells look alike exactly if their keys are equal.
struct CellStyle {
    bool bold = false;
    bool asText = false;   // number format "@"; else the general one
    bool centred = false;  // from left to right
    int size = 11;
    int fill = -1;  // 0xRRGGBB; -1: none

    std::uint64_t Key() const {
        return std::uint64_t(bold) | std::uint64_t(asText) << 1 | std::uint64_t(centred) << 2 |
               std::uint64_t(size & 0xfff) << 4 | std::uint64_t(std::uint32_t(fill)) << 16;
    }
};

struct BookCell {
    enum class Kind : std::uint8_t { Empty, Text, Number, Flag, Error } kind = Kind::Empty;
    bool styled = false;
    CellStyle style;
    double number = 0;  // numbers, dates as days, and flags as 0 or 1
    std::string text;   // UTF-8; of errors "#N/A"
};

// Cells from row r1 and column c1 to r2 and c2, both counted from 1 and included.
struct Area {
    int r1 = 1, c1 = 1, r2 = 1, c2 = 1;
};
inline constexpr int kLastSheetRow = 1048576;
inline constexpr int kLastSheetColumn = 16384;
inline bool IsSheetCell(long long row, long long column) {
    return row >= 1 && row <= kLastSheetRow && column >= 1 && column <= kLastSheetColumn;
}

inline bool IsWholeColumns(const Area& area) {
    return area.r1 == 1 && area.r2 == kLastSheetRow;
}
inline bool IsWholeRows(const Area& area) {
    return area.c1 == 1 && area.c2 == kLastSheetColumn;
}

class BookSheet {
public:
    std::string name = "Sheet1";
    bool fitColumns = false;
    bool fitRows = false;
    std::vector<Area> merged;

    // Makes the cell where it is missing; it takes on the style of its column.
    BookCell& At(int row, int column);
    const BookCell* Find(int row, int column) const;
    int rows() const { return int(cells_.size()); }
    int columns(int row) const { return int(cells_[std::size_t(row - 1)].size()); }
    int columns() const;  // of the widest row

    // Centres whole columns, what is in them and what will be.
    void CentreColumns(int first, int last);
    bool IsCentred(int column) const;
    // From the first to the last cell that holds something; A1 alone on an empty sheet.
    Area Used() const;

private:
    std::vector<std::vector<BookCell>> cells_;
    std::vector<bool> centred_;  // by column, from 0
};

struct Book {
    std::vector<std::unique_ptr<BookSheet>> sheets;
    std::size_t active = 0;
    WideText path;  // the file it came from, a Windows path; empty for a new one
    std::vector<std::string> notCalculated;  // cells whose formulas were saved without a value
    bool saved = true;
};

// What the general format makes of a text that is put into a cell: a number, a flag, a date (within
// `year` where it names none), or the text itself.
void PutTyped(BookCell* cell, const std::string& text, int year);

// The number that a day is in a cell, counted from the end of 1899; nothing for a day that is none.
std::optional<double> DayNumber(int year, int month, int day);

// "B12" as row and column; false for any other text.
bool ParseCellName(const std::string& name, int* row, int* column);
std::string CellNameOf(int row, int column);

// What is wrong with a file.
struct BookFileError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Files of this system. All throw BookFileError; on Windows always, where the libraries beneath
// them are missing.
void WriteXlsx(const Book& book, const std::string& path);
Book ReadXlsx(const std::string& path);
Book ReadOldXls(const std::string& path);  // the format from before .xlsx
// Either, by what is in the file and not by its name.
Book ReadBook(const std::string& path);

}  // namespace simhost
