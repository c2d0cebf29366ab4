// The table goes into a new workbook, which is then opened, and new names come back from one. What
// the cells show is written, not what is typed into the fields for new names.
#include "tables/rename_exchange.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

#include "frame/services.h"
#include "hostapi/windows.h"
#include "tables/rename_table.h"
#include "tables/workbook.h"

using excel::Object;

namespace {

// --- Writing ---

// Where the file is to go. Nothing: the user left the dialog, or was told that the file is open.
std::optional<WideText> FreePath() {
    ProPath chosen = {};
    const ProError status = ProFileSave(HostText(WIDE("导出表格")), HostText(WIDE("*.xls")),
                                        nullptr, nullptr, nullptr, nullptr, chosen);
    const WideText path(TextIn(chosen));
    if (status == PRO_TK_USER_ABORT || path.empty()) return std::nullopt;
    if (IsHeldOpen(path)) {
        ShowNotice(path + WIDE("文件已在excel打开，请关闭后重试"));
        return std::nullopt;
    }
    return path;
}

WideText CurrentName() {
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) != PRO_TK_NO_ERROR) return {};
    return ModelName(model);
}

// --- Reading ---

// A workbook of the user's and the way to the cells of the sheet that it opens with.
class OpenedBook {
public:
    OpenedBook(Object application, const WideText& path) : application_(std::move(application)) {
        workbooks_ = application_.Get(excel::kWorkbooks);
        workbook_ = workbooks_.Call(
            excel::kOpen, {excel::Text(path.c_str()), excel::Missing(), excel::Missing(),
                           excel::Missing(), excel::Missing(), excel::Missing(), excel::Missing(),
                           excel::Missing(), excel::Missing(), excel::Missing(), excel::Missing(),
                           excel::Missing(), excel::Missing(), excel::Missing(), excel::Missing()});
        worksheets_ = workbook_.Get(excel::kWorksheets);
        sheet_ = workbook_.Get(excel::kActiveSheet);
    }

    // How many rows hold something, from the first to the last of them; 0 where that is not known.
    int UsedRows() const {
        const Object used = sheet_.Get(excel::kUsedRange);
        const Object rows = used.Get(excel::kRows);
        const ExcelResult count = rows.Read(excel::kCount);
        return count.kind == EXCEL_WHOLE ? count.whole : 0;
    }

    // Row and column of the sheet, from 1.
    ExcelResult Value(int row, int column) const {
        const Object cells = sheet_.Get(excel::kCells);
        const Object cell = cells.Get(excel::kItem, {excel::Whole(row), excel::Whole(column)});
        return cell.Read(excel::kValue2);
    }

    void CloseAndQuit() const {
        workbook_.Call(excel::kClose);
        application_.Call(excel::kQuit);
    }

private:
    Object application_, workbooks_, workbook_, worksheets_, sheet_;
};

// With a point whatever the locale, and cut at it.
WideText BeforeThePoint(double number) {
    // The largest number has 309 digits before it.
    char digits[320];
    const auto end =
        std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed, 6).ptr;
    return WideText(digits, std::find(digits, end, '.'));
}

// A value that is neither a text nor a number leaves the text of the cell before.
void TakeText(const ExcelResult& value, WideText* text) {
    if (value.kind == EXCEL_TEXT) *text = value.text;
    if (value.kind == EXCEL_REAL) *text = BeforeThePoint(value.real);
}

// Fills a row of the table from one of the sheet; `text` is what the last cell said. False: a text
// was too long, and the user was told.
bool LoadRow(const OpenedBook& book, int sheetRow, const std::string& row, WideText* text) {
    int sheetColumn = 0;
    for (const char* column : kRenameColumns) {
        TakeText(book.Value(sheetRow, ++sheetColumn), text);
        if (text->size() > kLongestName) {
            ShowNotice(WIDE("新名称 ") + *text + WIDE(" 长度大于32位，名称无效，请修改后再操作"));
            return false;
        }
        kRenameTable.SetCellText(row, column, *text);
    }
    const std::string panel = ImportedPanel(row);
    kRenameTable.DeleteFromCell(row, kNewNameColumn);
    PutNewNamePanel(row, panel, *text);
    kRenameDialog.OnFocus(panel.c_str(), Guarded<OnPickRow>);
    return true;
}

}  // namespace

void OnExportRename(char*, char*, ProAppData) {
    const WideText name = CurrentName();
    const auto path = FreePath();
    if (!path) return;
    const std::vector<WideText> labels = kRenameTable.ColumnLabels();
    const int rows = kRenameTable.RowCount();
    Workbook book;
    if (!MakeWorkbook(&book)) return;
    if (labels.size() > kMostSheetColumns) {
        // The application stays open, as it is.
        ShowPlainError(WIDE("bom表格列数不得大于26列"));
        return;
    }
    WriteTitle(book, name + WIDE(" 重命名"), labels.size());
    WriteLabels(book, labels);
    for (int row = 1; row <= rows; ++row) {
        const std::string rowName = std::to_string(row);
        for (std::size_t column = 0; column < std::size(kRenameColumns); ++column) {
            const WideText text = kRenameTable.CellText(rowName, kRenameColumns[column]);
            const Object cell = SheetCell(book, column, row + 2);
            cell.Put(excel::kValue2, excel::Text(text.c_str()));
        }
    }
    SaveAndQuit(&book, *path);
    OpenFile(*path);
}

void OnLoadRename(char*, char*, ProAppData) {
    kRenameTable.DeleteAllRows();
    const auto path = AskOpenPath(WIDE("Microsoft Excel 2000(*.xls)|*.xls|所有文件(*.*)"),
                                  WIDE("xls"), WIDE("请选择需要加载的批量重命名表格文件"));
    if (!path) return;
    Object application = Object::Create(WIDE("Excel.Application"));
    if (!application) return ShowPlainError(WIDE("无法启动Excel服务器!"));
    OpenedBook book(std::move(application), *path);
    const int rows = book.UsedRows();
    WideText text;
    std::string last;
    for (int sheetRow = 3; sheetRow <= rows; ++sheetRow) {
        const std::string row = std::to_string(sheetRow - 2);
        if (kRenameTable.InsertRow(last, row)) last = row;
        // The workbook stays open, and so does the application.
        if (!LoadRow(book, sheetRow, row, &text)) return;
    }
    book.CloseAndQuit();
}
