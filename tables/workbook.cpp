// Writing of a new workbook.
#include "tables/workbook.h"

#include <string>

#include "frame/services.h"
#include "hostapi/windows.h"

using excel::Object;

namespace {

constexpr const WideChar* kFirstCell = WIDE("A1");

WideText CellName(std::size_t column, int row) {
    return WideText(1, WideChar('A' + column)) + Digits(row);
}

void Centre(const Object& range) {
    range.Get(excel::kEntireColumn).Put(excel::kHorizontalAlignment, excel::Whole(excel::kCentred));
}

}  // namespace

bool MakeWorkbook(Workbook* made) {
    made->application = Object::Create(WIDE("Excel.Application"));
    if (!made->application) {
        MessageBoxW(nullptr, WIDE("创建Excel失败"), nullptr, MB_ICONWARNING);
        return false;
    }
    made->workbooks = made->application.Get(excel::kWorkbooks);
    made->workbook = made->workbooks.Call(excel::kAdd, {excel::Missing()});
    made->sheets = made->workbook.Get(excel::kSheets);
    made->sheet = made->sheets.Get(excel::kItem, {excel::Whole(1)});
    return true;
}

Object SheetCell(const Workbook& book, std::size_t column, int row) {
    const WideText name = CellName(column, row);
    return book.sheet.Get(excel::kRange, {excel::Text(name.c_str()), excel::Text(name.c_str())});
}

void WriteTitle(const Workbook& book, const WideText& title, std::size_t columns) {
    const Object cell = SheetCell(book, 0, 1);
    cell.Put(excel::kValue2, excel::Text(title.c_str()));
    const WideText last = CellName(columns > 0 ? columns - 1 : 0, 1);
    const Object range =
        book.sheet.Get(excel::kRange, {excel::Text(last.c_str()), excel::Text(kFirstCell)});
    range.Call(excel::kMerge, {excel::Whole(0)});
    cell.Get(excel::kInterior).Put(excel::kColor, excel::Whole(excel::kYellow));
    Centre(range);
    const Object font = range.Get(excel::kFont);
    font.Put(excel::kBold, excel::Whole(1));
    font.Put(excel::kSize, excel::Whole(16));
}

void WriteLabels(const Workbook& book, const std::vector<WideText>& labels) {
    for (std::size_t column = 0; column < labels.size(); ++column) {
        const Object cell = SheetCell(book, column, 2);
        cell.Put(excel::kValue2, excel::Text(labels[column].c_str()));
        Centre(cell);
        cell.Get(excel::kFont).Put(excel::kBold, excel::Whole(1));
    }
}

void SaveAndQuit(Workbook* book, const WideText& path) {
    book->sheet.Get(excel::kColumns).Call(excel::kAutoFit);
    book->sheet.Get(excel::kRows).Call(excel::kAutoFit);
    book->application.Put(excel::kVisible, excel::Flag(false));
    book->application.Put(excel::kUserControl, excel::Flag(false));
    book->workbook.Call(excel::kSaveCopyAs, {excel::Text(path.c_str())});
    book->workbook.Put(excel::kSaved, excel::Flag(true));
    book->sheet.Release();
    book->sheets.Release();
    book->workbook.Release();
    book->workbooks.Release();
    book->application.Call(excel::kQuit);
    book->application.Release();
}
