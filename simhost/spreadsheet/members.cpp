// The members of the application's objects, one function each, and the table of them.
#include "simhost/spreadsheet/members.h"

#include <fmt/format.h>

#include <algorithm>
#include <chrono>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/spreadsheet/held_files.h"
#include "simhost/system/windows.h"

namespace simhost {
namespace {

using Arguments = SheetArguments;

constexpr const char* kClassNames[] = {"Application", "Workbooks", "Workbook", "Sheets",
                                       "Worksheet",   "Range",     "Interior", "Font"};

// What an argument of a member may be.
constexpr unsigned kText = 1, kWhole = 2, kFlag = 4, kNone = 8;

unsigned KindOf(const ExcelArgument& argument) {
    switch (argument.kind) {
        case EXCEL_TEXT: return kText;
        case EXCEL_WHOLE: return kWhole;
        case EXCEL_FLAG: return kFlag;
        case EXCEL_MISSING: return kNone;
        default: return 0;
    }
}

constexpr int kCentred = -4108;

// The palette of a new workbook, as far as it is used.
struct PaletteRow {
    int index, rgb;
};
constexpr PaletteRow kPalette[] = {{1, 0x000000},  {2, 0xFFFFFF}, {3, 0xFF0000},  {4, 0x00FF00},
                                   {5, 0x0000FF},  {6, 0xFFFF00}, {15, 0xC0C0C0}, {35, 0xCCFFCC},
                                   {36, 0xFFFF99}, {40, 0xFFCC99}};

template <class Change>
void ForEachCell(SheetObject& range, Change&& change) {
    for (int row = range.area.r1; row <= range.area.r2; ++row) {
        for (int column = range.area.c1; column <= range.area.c2; ++column) {
            BookCell& cell = range.sheet->At(row, column);
            cell.styled = true;
            change(cell);
        }
    }
}

// A range of whole columns or rows is not gone through cell by cell.
void RequireCells(const SheetObject& range) {
    if (IsWholeColumns(range.area) || IsWholeRows(range.area)) {
        Complain(-1, "whole columns or rows are not known to be changed like this");
    }
}

int ThisYear() {
    const auto now = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    return int(std::chrono::year_month_day(now).year());
}

void SetText(BookCell* cell, const WideChar* wide) {
    PutTyped(cell, Utf8(wide), ThisYear());
}

ExcelResult ValueOf(const BookCell* cell) {
    ExcelResult value{EXCEL_OTHER, {}, 0, 0};
    if (!cell) return value;
    switch (cell->kind) {
        case BookCell::Kind::Text:
            value.kind = EXCEL_TEXT;
            value.text = Wide(cell->text);
            break;
        case BookCell::Kind::Number:
            value.kind = EXCEL_REAL;
            value.real = cell->number;
            break;
        case BookCell::Kind::Flag:
            value.kind = EXCEL_FLAG;
            value.whole = cell->number != 0;
            break;
        default: break;
    }
    return value;
}

}  // namespace

// The members, one function each.
struct SheetMembers {
    using Self = SheetObject&;

    static SheetAnswer Child(Self from, SheetClass kind) {
        SheetObject made = from;
        made.kind = kind;
        return {TheSpreadsheets().Add(made), {EXCEL_OTHER, {}, 0, 0}};
    }
    static SheetAnswer Child(Self from, SheetClass kind, Area area) {
        SheetObject made = from;
        made.kind = kind;
        made.area = area;
        return {TheSpreadsheets().Add(made), {EXCEL_OTHER, {}, 0, 0}};
    }
    static SheetAnswer Whole(int number) { return {nullptr, {EXCEL_WHOLE, {}, 0, number}}; }

    static SheetAnswer Workbooks(Self self, const Arguments&) {
        return Child(self, SheetClass::Workbooks);
    }
    static SheetAnswer Visible(Self self, const Arguments& value) {
        self.application->visible = value[0].whole != 0;
        return {};
    }
    static SheetAnswer UserControl(Self self, const Arguments& value) {
        self.application->userControl = value[0].whole != 0;
        return {};
    }
    static SheetAnswer Quit(Self self, const Arguments&) {
        for (const Book& book : self.application->books) LetGo(book);
        self.application->books.clear();
        self.application->hasQuit = true;
        return {};
    }

    // An open file is locked for others.
    static void LetGo(const Book& book) {
        if (!book.path.empty()) ReleaseFile(book.path);
    }
    static SheetAnswer Add(Self self, const Arguments&) {
        Book& book = self.application->books.emplace_back();
        book.sheets.push_back(std::make_unique<BookSheet>());
        self.book = &book;
        return Child(self, SheetClass::Workbook);
    }
    static Book BookOf(const WideText& path) {
        if (const auto& reader = TheSpreadsheets().reader) return reader(path);
        const std::string real = ReadablePath(path);
        if (real.empty()) throw BookFileError("it is not there, or is held by another");
        return ReadBook(real);
    }
    static SheetAnswer Open(Self self, const Arguments& arguments) {
        const WideText path = arguments[0].text;
        try {
            self.book = &self.application->books.emplace_back(BookOf(path));
        } catch (const std::exception& error) {
            TheWindows().host().desk.Tell(path + WIDE(" is not opened: ") + Wide(error.what()));
            Refuse(-1);
        }
        for (const std::string& cell : self.book->notCalculated) {
            TheWindows().host().desk.Tell(WIDE("the formula in ") + Wide(cell) +
                                          WIDE(" was saved without its value"));
        }
        self.book->path = path;
        HoldFile(path);
        return Child(self, SheetClass::Workbook);
    }

    static SheetAnswer Sheets(Self self, const Arguments&) {
        return Child(self, SheetClass::Sheets);
    }
    static SheetAnswer ActiveSheet(Self self, const Arguments&) {
        self.sheet = self.book->sheets[self.book->active].get();
        return Child(self, SheetClass::Worksheet);
    }
    static SheetAnswer SaveCopyAs(Self self, const Arguments& arguments) {
        const std::string real = WritablePath(arguments[0].text);
        if (real.empty()) Refuse(-1);
        try {
            WriteXlsx(*self.book, real);
        } catch (const BookFileError& error) {
            TheWindows().host().desk.Tell(WideText(arguments[0].text) + WIDE(" is not saved: ") +
                                          Wide(error.what()));
            Refuse(-1);
        }
        return {};
    }
    static SheetAnswer Saved(Self self, const Arguments& value) {
        self.book->saved = value[0].whole != 0;
        return {};
    }
    static SheetAnswer Close(Self self, const Arguments&) {
        LetGo(*self.book);
        self.application->books.remove_if([&](const Book& each) { return &each == self.book; });
        return {};
    }

    static SheetAnswer SheetItem(Self self, const Arguments& arguments) {
        const int wanted = arguments[0].whole;
        if (wanted < 1 || std::size_t(wanted) > self.book->sheets.size()) Refuse(-1);
        self.sheet = self.book->sheets[std::size_t(wanted - 1)].get();
        return Child(self, SheetClass::Worksheet);
    }
    static SheetAnswer SheetCount(Self self, const Arguments&) {
        return Whole(int(self.book->sheets.size()));
    }

    // Between two corners, in whatever order.
    static SheetAnswer Range(Self self, const Arguments& arguments) {
        int row[2], column[2];
        for (std::size_t i = 0; i < 2; ++i) {
            if (!ParseCellName(Utf8(arguments[i].text), &row[i], &column[i])) Refuse(-1);
        }
        return Child(self, SheetClass::Range,
                     {std::min(row[0], row[1]), std::min(column[0], column[1]),
                      std::max(row[0], row[1]), std::max(column[0], column[1])});
    }
    static SheetAnswer AllCells(Self self, const Arguments&) {
        return Child(self, SheetClass::Range, {1, 1, kLastSheetRow, kLastSheetColumn});
    }
    static SheetAnswer UsedRange(Self self, const Arguments&) {
        return Child(self, SheetClass::Range, self.sheet->Used());
    }

    static SheetAnswer EntireColumn(Self self, const Arguments&) {
        return Child(self, SheetClass::Range, {1, self.area.c1, kLastSheetRow, self.area.c2});
    }
    static SheetAnswer SameArea(Self self, const Arguments&) {
        return Child(self, SheetClass::Range);
    }
    static SheetAnswer Interior(Self self, const Arguments&) {
        return Child(self, SheetClass::Interior);
    }
    static SheetAnswer Font(Self self, const Arguments&) { return Child(self, SheetClass::Font); }
    static SheetAnswer CellItem(Self self, const Arguments& arguments) {
        const long long wantedRow = arguments[0].whole + self.area.r1 - 1LL;
        const long long wantedColumn = arguments[1].whole + self.area.c1 - 1LL;
        if (!IsSheetCell(wantedRow, wantedColumn)) Refuse(-1);
        const int row = int(wantedRow), column = int(wantedColumn);
        return Child(self, SheetClass::Range, {row, column, row, column});
    }
    static SheetAnswer PutValue(Self self, const Arguments& value) {
        RequireCells(self);
        ForEachCell(self, [&](BookCell& cell) {
            if (value[0].kind == EXCEL_TEXT) return SetText(&cell, value[0].text);
            cell.kind = value[0].kind == EXCEL_FLAG ? BookCell::Kind::Flag : BookCell::Kind::Number;
            cell.number = value[0].whole;
        });
        self.book->saved = false;
        return {};
    }
    static SheetAnswer ReadValue(Self self, const Arguments&) {
        return {nullptr, ValueOf(self.sheet->Find(self.area.r1, self.area.c1))};
    }
    static SheetAnswer NumberFormat(Self self, const Arguments& value) {
        RequireCells(self);
        const WideView format = value[0].text;
        if (format != WIDE("@") && format != WIDE("General")) {
            Complain(-1, "a number format that is not known here: " + Utf8(format));
        }
        const bool asText = format == WIDE("@");
        ForEachCell(self, [&](BookCell& cell) { cell.style.asText = asText; });
        return {};
    }
    static SheetAnswer Alignment(Self self, const Arguments& value) {
        if (value[0].whole != kCentred) Complain(-1, "an alignment that is not known here");
        if (IsWholeColumns(self.area)) {
            self.sheet->CentreColumns(self.area.c1, self.area.c2);
        } else {
            RequireCells(self);
            ForEachCell(self, [](BookCell& cell) { cell.style.centred = true; });
        }
        return {};
    }
    static SheetAnswer Merge(Self self, const Arguments&) {
        RequireCells(self);
        const bool isOne = self.area.r1 == self.area.r2 && self.area.c1 == self.area.c2;
        if (!isOne) self.sheet->merged.push_back(self.area);
        return {};
    }
    static SheetAnswer AutoFit(Self self, const Arguments&) {
        const bool rows = IsWholeRows(self.area), columns = IsWholeColumns(self.area);
        if (!rows && !columns) Refuse(-1);
        // Of all cells: asked for as columns they are fitted as columns.
        if (self.fitsColumns) self.sheet->fitColumns = true;
        if (!self.fitsColumns) self.sheet->fitRows = true;
        return {};
    }
    static SheetAnswer Columns(Self self, const Arguments&) {
        SheetObject made = self;
        made.fitsColumns = true;
        if (self.kind == SheetClass::Worksheet) {
            made.area = {1, 1, kLastSheetRow, kLastSheetColumn};
        }
        return Child(made, SheetClass::Range);
    }
    static SheetAnswer Rows(Self self, const Arguments&) {
        SheetObject made = self;
        made.fitsColumns = false;
        if (self.kind == SheetClass::Worksheet) {
            made.area = {1, 1, kLastSheetRow, kLastSheetColumn};
        }
        return Child(made, SheetClass::Range);
    }
    static SheetAnswer Count(Self self, const Arguments&) {
        return Whole(self.fitsColumns ? self.area.c2 - self.area.c1 + 1
                                      : self.area.r2 - self.area.r1 + 1);
    }

    // A colour as red + 256 * green + 65536 * blue.
    static SheetAnswer Color(Self self, const Arguments& value) {
        const int bgr = value[0].whole;
        if (bgr < 0 || bgr > 0xFFFFFF) Refuse(-1);
        const int rgb = (bgr & 0xFF) << 16 | (bgr & 0xFF00) | bgr >> 16;
        ForEachCell(self, [&](BookCell& cell) { cell.style.fill = rgb; });
        return {};
    }
    static SheetAnswer ColorIndex(Self self, const Arguments& value) {
        for (const PaletteRow& row : kPalette) {
            if (row.index != value[0].whole) continue;
            ForEachCell(self, [&](BookCell& cell) { cell.style.fill = row.rgb; });
            return {};
        }
        Complain(-1,
                 fmt::format("a colour of the palette that is not known here: {}", value[0].whole));
    }
    static SheetAnswer Bold(Self self, const Arguments& value) {
        ForEachCell(self, [&](BookCell& cell) { cell.style.bold = value[0].whole != 0; });
        return {};
    }
    static SheetAnswer Size(Self self, const Arguments& value) {
        if (value[0].whole < 1 || value[0].whole > 409) Refuse(-1);
        ForEachCell(self, [&](BookCell& cell) { cell.style.size = value[0].whole; });
        return {};
    }
};

namespace {

const std::vector<MemberRow>& Members() {
    using C = SheetClass;
    using U = SheetUse;
    using M = SheetMembers;
    // clang-format off
    static const std::vector<MemberRow> rows = {
        {C::Range,       1388, "Value2",              U::Put,  {kText | kWhole | kFlag}, 0,     M::PutValue},
        {C::Range,       1388, "Value2",              U::Read, {},                       0,     M::ReadValue},
        {C::Range,       193,  "NumberFormat",        U::Put,  {kText},                  0,     M::NumberFormat},
        {C::Range,       129,  "Interior",            U::Get,  {},                       0,     M::Interior},
        {C::Range,       146,  "Font",                U::Get,  {},                       0,     M::Font},
        {C::Range,       246,  "EntireColumn",        U::Get,  {},                       0,     M::EntireColumn},
        {C::Range,       136,  "HorizontalAlignment", U::Put,  {kWhole},                 0,     M::Alignment},
        {C::Range,       564,  "Merge",               U::Call, {kWhole | kFlag | kNone}, 0,     M::Merge},
        {C::Range,       237,  "AutoFit",             U::Call, {},                       0,     M::AutoFit},
        {C::Range,       241,  "Columns",             U::Get,  {},                       0,     M::Columns},
        {C::Range,       258,  "Rows",                U::Get,  {},                       0,     M::Rows},
        {C::Range,       118,  "Count",               U::Read, {},                       0,     M::Count},
        {C::Range,       170,  "Item",                U::Get,  {kWhole, kWhole},         0,     M::CellItem},
        {C::Interior,    97,   "ColorIndex",          U::Put,  {kWhole},                 0,     M::ColorIndex},
        {C::Interior,    99,   "Color",               U::Put,  {kWhole},                 0,     M::Color},
        {C::Font,        96,   "Bold",                U::Put,  {kWhole | kFlag},         0,     M::Bold},
        {C::Font,        104,  "Size",                U::Put,  {kWhole},                 0,     M::Size},
        {C::Worksheet,   197,  "Range",               U::Get,  {kText, kText},           0,     M::Range},
        {C::Worksheet,   238,  "Cells",               U::Get,  {},                       0,     M::AllCells},
        {C::Worksheet,   241,  "Columns",             U::Get,  {},                       0,     M::Columns},
        {C::Worksheet,   258,  "Rows",                U::Get,  {},                       0,     M::Rows},
        {C::Worksheet,   412,  "UsedRange",           U::Get,  {},                       0,     M::UsedRange},
        {C::Sheets,      170,  "Item",                U::Get,  {kWhole},                 0,     M::SheetItem},
        {C::Sheets,      118,  "Count",               U::Read, {},                       0,     M::SheetCount},
        {C::Workbook,    485,  "Sheets",              U::Get,  {},                       0,     M::Sheets},
        {C::Workbook,    494,  "Worksheets",          U::Get,  {},                       0,     M::Sheets},
        {C::Workbook,    307,  "ActiveSheet",         U::Get,  {},                       0,     M::ActiveSheet},
        {C::Workbook,    175,  "SaveCopyAs",          U::Call, {kText},                  0,     M::SaveCopyAs},
        {C::Workbook,    298,  "Saved",               U::Put,  {kFlag},                  0,     M::Saved},
        {C::Workbook,    277,  "Close",               U::Call, {},                       3,     M::Close},
        {C::Workbooks,   181,  "Add",                 U::Call, {kNone},                  0,     M::Add},
        {C::Workbooks,   1923, "Open",                U::Call, {kText},                  14,    M::Open},
        {C::Application, 572,  "Workbooks",           U::Get,  {},                       0,     M::Workbooks},
        {C::Application, 558,  "Visible",             U::Put,  {kFlag},                  0,     M::Visible},
        {C::Application, 1210, "UserControl",         U::Put,  {kFlag},                  0,     M::UserControl},
        {C::Application, 302,  "Quit",                U::Call, {},                       0,     M::Quit},
    };
    // clang-format on
    return rows;
}

}  // namespace

const std::vector<MemberRow>& SheetMemberRows() {
    return Members();
}

const MemberRow* FindMember(SheetClass of, int id, SheetUse use) {
    for (const MemberRow& row : Members()) {
        if (row.id == id && row.of == of && row.use == use) return &row;
    }
    return nullptr;
}

const char* ClassName(SheetClass kind) {
    return kClassNames[std::size_t(kind)];
}

void ComplainOfMember(SheetClass of, int id) {
    for (const MemberRow& row : Members()) {
        if (row.id == id && row.of == of) {
            Complain(-1,
                     fmt::format("{}.{} ({}) is not used like this", ClassName(of), row.name, id));
        }
    }
    Complain(-1, fmt::format("{} has no member {}", ClassName(of), id));
}

void CheckArguments(const MemberRow& row, const Arguments& arguments) {
    const std::size_t least = row.arguments.size();
    if (arguments.size() < least || arguments.size() > least + row.optional) {
        Complain(-1, fmt::format("{}.{} takes {} arguments, not {}", ClassName(row.of), row.name,
                                 row.arguments.size(), arguments.size()));
    }
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const unsigned allowed = i < row.arguments.size() ? row.arguments[i] : kNone;
        if (!(KindOf(arguments[i]) & allowed)) {
            Complain(-1, fmt::format("argument {} of {}.{} is of the wrong kind", i + 1,
                                     ClassName(row.of), row.name));
        }
        if (arguments[i].kind == EXCEL_TEXT) Need(arguments[i].text, "a text");
    }
}

}  // namespace simhost
