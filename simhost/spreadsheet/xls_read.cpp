// Files of the spreadsheet format from before .xlsx as workbooks, as far as freexl reads them: the
// values of formulas come as nothing, flags as numbers, and the first sheet counts as the active
// one.
#include "simhost/spreadsheet/book.h"

#ifndef _WIN32

#include <cstdio>
#include <freexl.h>

namespace simhost {
namespace {

class OldFile {
public:
    explicit OldFile(const std::string& path) {
        if (freexl_open(path.c_str(), &handle_) == FREEXL_OK) return;
        Close();
        throw BookFileError("it is no spreadsheet, or is damaged or has a password");
    }
    ~OldFile() { Close(); }
    OldFile(const OldFile&) = delete;
    OldFile& operator=(const OldFile&) = delete;

    unsigned short SheetCount() const {
        unsigned count = 0;
        Require(freexl_get_info(handle_, FREEXL_BIFF_SHEET_COUNT, &count));
        return static_cast<unsigned short>(count);
    }
    std::string Select(unsigned short sheet) const {  // its name
        const char* name = nullptr;
        Require(freexl_get_worksheet_name(handle_, sheet, &name));
        Require(freexl_select_active_worksheet(handle_, sheet));
        return name ? name : "";
    }
    void Size(unsigned* rows, unsigned short* columns) const {
        Require(freexl_worksheet_dimensions(handle_, rows, columns));
    }
    FreeXL_CellValue Cell(unsigned row, unsigned short column) const {
        FreeXL_CellValue value;
        Require(freexl_get_cell_value(handle_, row, column, &value));
        return value;
    }

private:
    void Close() {
        if (handle_) freexl_close(handle_);
        handle_ = nullptr;
    }
    static void Require(int status) {
        if (status != FREEXL_OK) throw BookFileError("it is damaged");
    }

    const void* handle_ = nullptr;
};

// Dates come as text; in a cell they are numbers.
void TakeDate(const char* text, BookCell* cell) {
    int year = 0, month = 0, day = 0;
    const bool isDate = std::sscanf(text, "%4d-%2d-%2d", &year, &month, &day) == 3;
    cell->kind = BookCell::Kind::Number;
    cell->number = isDate ? DayNumber(year, month, day).value_or(0) : 0;
}

void TakeValue(const FreeXL_CellValue& value, BookCell* cell) {
    switch (value.type) {
        case FREEXL_CELL_INT:
            cell->kind = BookCell::Kind::Number;
            cell->number = value.value.int_value;
            break;
        case FREEXL_CELL_DOUBLE:
            cell->kind = BookCell::Kind::Number;
            cell->number = value.value.double_value;
            break;
        case FREEXL_CELL_DATE:
        case FREEXL_CELL_DATETIME:
        case FREEXL_CELL_TIME: return TakeDate(value.value.text_value, cell);
        default: cell->kind = BookCell::Kind::Text; cell->text = value.value.text_value;
    }
}

void ReadSheet(const OldFile& file, BookSheet* sheet) {
    unsigned rows = 0;
    unsigned short columns = 0;
    file.Size(&rows, &columns);
    for (unsigned row = 0; row < rows; ++row) {
        for (unsigned short column = 0; column < columns; ++column) {
            const FreeXL_CellValue value = file.Cell(row, column);
            if (value.type == FREEXL_CELL_NULL) continue;
            TakeValue(value, &sheet->At(int(row) + 1, column + 1));
        }
    }
}

}  // namespace

Book ReadOldXls(const std::string& path) {
    const OldFile file(path);
    Book book;
    const unsigned short sheets = file.SheetCount();
    for (unsigned short i = 0; i < sheets; ++i) {
        auto sheet = std::make_unique<BookSheet>();
        sheet->name = file.Select(i);
        ReadSheet(file, sheet.get());
        book.sheets.push_back(std::move(sheet));
    }
    if (book.sheets.empty()) throw BookFileError("it has no sheets");
    return book;
}

}  // namespace simhost

#endif
