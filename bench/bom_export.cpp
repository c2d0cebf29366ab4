// The export of a bill of materials, timed against the library that writes the same cells.
#include "bench/bom_export.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <xlsxwriter.h>

#include "simhost/app/workplace.h"
#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/ui/table.h"

namespace {

using namespace simhost;
namespace fs = std::filesystem;

constexpr int kColumns = 8;
constexpr int kRounds = 3;
constexpr int kMarkedEvery = 10;  // one row of ten is an assembly's

std::string CellText(int row, int column) {
    return column == 0 ? std::to_string(row)
                       : "ABC-" + std::to_string(row * 7 % 9973) + "-" + std::to_string(column);
}

double Seconds(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The cells alone: texts with their two formats, and nothing around them.
double WriteByLibrary(const fs::path& file, int rows) {
    const auto start = std::chrono::steady_clock::now();
    lxw_workbook* workbook = workbook_new(file.c_str());
    lxw_worksheet* sheet = workbook_add_worksheet(workbook, nullptr);
    lxw_format* plain = workbook_add_format(workbook);
    format_set_num_format(plain, "@");
    lxw_format* marked = workbook_add_format(workbook);
    format_set_num_format(marked, "@");
    format_set_pattern(marked, LXW_PATTERN_SOLID);
    format_set_bg_color(marked, 0xCCFFCC);
    for (int row = 1; row <= rows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            worksheet_write_string(sheet, lxw_row_t(row + 1), lxw_col_t(column),
                                   CellText(row, column).c_str(),
                                   row % kMarkedEvery ? plain : marked);
        }
    }
    workbook_close(workbook);
    return Seconds(start);
}

// Fills the table as a large assembly would, and presses the export.
class Exporter : public User {
public:
    Exporter(int rows, fs::path library) : rows_(rows), library_(std::move(library)) {}
    double exported = 1e9, byLibrary = 1e9;

    int AnswerBox(const Box&) override { return 1; }
    std::optional<WideText> AnswerPrompt(const WideText&, const WideText&) override {
        return std::nullopt;
    }
    std::optional<WideText> AnswerFile(const FileQuestion&) override {
        return WIDE("C:\\Work\\list.xlsx");
    }
    void UseDialog(Dialog& dialog) override {
        Fill(*dynamic_cast<Table*>(dialog.Find("bom_list")));
        for (int i = 0; i < kRounds; ++i) {
            const auto start = std::chrono::steady_clock::now();
            dialog.Press("VxExportBom");
            exported = std::min(exported, Seconds(start));
            byLibrary = std::min(byLibrary, WriteByLibrary(library_, rows_));
        }
        dialog.Press("Close");
    }

private:
    void Fill(Table& table) const {
        std::vector<std::string> old, names;
        for (const TableRow& row : table.rows()) old.push_back(row.name);
        table.DeleteRows(old);
        for (int row = 1; row <= rows_; ++row) names.push_back(std::to_string(row));
        table.InsertRows("", names);
        for (int row = 1; row <= rows_; ++row) {
            for (int column = 0; column < kColumns; ++column) {
                TableCell& cell = table.RequireCell(std::to_string(row),
                                                    table.columns()[std::size_t(column)].name);
                cell.label = Wide(CellText(row, column));
                if (row % kMarkedEvery == 0) cell.colour = 17;
            }
        }
    }

    int rows_;
    fs::path library_;
};

}  // namespace

int MeasureBomExport(int rows, const fs::path& modules) {
    WorkplaceOptions options;
    options.installed = VX_SOURCE_DIR;
    options.module = modules / "vorlatix5.1.so";
    Workplace workplace(options);
    Host& host = TheHost();
    WriteFile(host.disk.Real(options.moduleFolder + WIDE("\\VXconfig\\VxBom.ini")),
              "[tableCols_sum]\r\ncontent=a,b,c,d,e,f,g\r\n");
    if (workplace.StartPlugin() != 0) return 1;
    host.session.Open(host.session.Create(WIDE("LIST"), PRO_MDL_ASSEMBLY));
    Exporter exporter(rows, workplace.Real(WIDE("C:\\Work")) / "library.xlsx");
    host.user = &exporter;
    host.commands.Press("VxBom");
    host.user = nullptr;
    const bool written = fs::exists(host.disk.Real(WIDE("C:\\Work\\list.xlsx")));
    std::printf("BomExport: rows=%d seconds=%.4f library=%.4f\n", rows, exporter.exported,
                exporter.byLibrary);
    return written && host.complaints.empty() ? 0 : 1;
}
