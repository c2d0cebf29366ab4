// The table, as shown on the screen, goes into a new workbook, which is then opened. An old file
// of the chosen name is deleted first, whatever comes of the export.
#include "tables/bom_export.h"

#include <string>
#include <vector>

#include "frame/services.h"
#include "hostapi/windows.h"
#include "tables/bom_table.h"
#include "tables/workbook.h"

namespace {

constexpr WideView kFilter = WIDE("EXCEL文件(*.xlsx)|*.xlsx| All Files (*.*) |*.*||");

WideText CurrentName() {
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) != PRO_TK_NO_ERROR) return {};
    return ModelName(model);
}

// Where the file is to go. Nothing: the user left the dialog, or was told that the file is open.
std::optional<WideText> FreePath() {
    const auto path = AskSavePath(kFilter, WIDE(".xlsx"), DesktopFolder());
    if (!path) return std::nullopt;
    if (PathFileExistsW(path->c_str())) DeleteFileW(path->c_str());
    if (IsHeldOpen(*path)) {
        ShowNotice(*path + WIDE("文件已在excel打开，请关闭后重试"));
        return std::nullopt;
    }
    return path;
}

// As text, so that numbers keep their decimals.
void WriteCell(const Workbook& book, std::size_t column, int row, const std::string& rowName) {
    const std::string columnName = BomColumn(column);
    const WideText text = kBomTable.CellText(rowName, columnName);
    const bool marked = kBomTable.CellColour(rowName, columnName) == kAssemblyColour;
    const excel::Object cell = SheetCell(book, column, row);
    cell.Put(excel::kNumberFormat, excel::Text(WIDE("@")));
    cell.Put(excel::kValue2, excel::Text(text.c_str()));
    if (!marked) return;
    cell.Get(excel::kInterior).Put(excel::kColorIndex, excel::Whole(excel::kLightGreen));
}

}  // namespace

void OnExportBom(char*, char*, ProAppData) {
    const WideText name = CurrentName();
    const auto path = FreePath();
    if (!path) return;
    const std::vector<WideText> labels = kBomTable.ColumnLabels();
    const int rows = kBomTable.RowCount();
    Workbook book;
    if (!MakeWorkbook(&book)) return;
    if (labels.size() > kMostSheetColumns) {
        // The application stays open, as it is.
        ShowPlainError(WIDE("bom表格列数不得大于26列"));
        return;
    }
    WriteTitle(book, name + WIDE(" BOM"), labels.size());
    WriteLabels(book, labels);
    for (int row = 1; row <= rows; ++row) {
        const std::string rowName = std::to_string(row);
        for (std::size_t column = 0; column < labels.size(); ++column) {
            WriteCell(book, column, row + 2, rowName);
        }
    }
    SaveAndQuit(&book, *path);
    OpenFile(*path);
}
