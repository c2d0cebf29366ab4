// Workbooks as real .xlsx files, written by libxlsxwriter.
#include "simhost/spreadsheet/book.h"

#ifdef _WIN32

namespace simhost {

void WriteXlsx(const Book&, const std::string& path) {
    throw BookFileError("spreadsheets are not written on Windows: " + path);
}

}  // namespace simhost

#else

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <unistd.h>
#include <unordered_map>
#include <utility>
#include <xlsxwriter.h>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"

namespace simhost {
namespace {

constexpr double kNarrowest = 4;  // of a fitted column, in characters
constexpr double kWidest = 120;
constexpr double kSpare = 2;        // beside the text of a fitted column
constexpr double kPerPoint = 1.32;  // height of a line for each point of its font
constexpr int kUsualSize = 11;

// The library tells the terminal of each file that it cannot write. It gets one that it can, and
// where that one goes is between us and the system.
class TemporaryFile {
public:
    TemporaryFile() {
        std::error_code error;
        name_ = (std::filesystem::temp_directory_path(error) / "workbook-XXXXXX").string();
        const int file = error ? -1 : mkstemp(name_.data());
        if (file < 0) throw BookFileError("no temporary file can be made");
        close(file);
    }
    ~TemporaryFile() {
        std::error_code ignored;
        std::filesystem::remove(name_, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::string& name() const { return name_; }

private:
    std::string name_;
};

constexpr std::time_t kCreated = 946684800;  // the first second of 2000, UTC

class Writer {
public:
    Writer(const Book& book, const std::string& path)
        : book_(book), workbook_(workbook_new(path.c_str())) {
        if (!workbook_) throw BookFileError("cannot make " + path);
    }
    ~Writer() {
        if (workbook_) lxw_workbook_free(workbook_);
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void Write() {
        // The same work gives the same file whenever it is done.
        lxw_doc_properties properties{};
        properties.created = kCreated;
        workbook_set_properties(workbook_, &properties);
        for (const auto& sheet : book_.sheets) WriteSheet(*sheet);
        const lxw_error error = workbook_close(std::exchange(workbook_, nullptr));
        if (error != LXW_NO_ERROR) throw BookFileError(lxw_strerror(error));
    }

private:
    lxw_format* FormatOf(const CellStyle& style) {
        const auto [known, isNew] = formats_.try_emplace(style.Key());
        if (!isNew) return known->second;
        lxw_format* format = workbook_add_format(workbook_);
        if (style.bold) format_set_bold(format);
        if (style.asText) format_set_num_format(format, "@");
        if (style.centred) format_set_align(format, LXW_ALIGN_CENTER);
        if (style.size != kUsualSize) format_set_font_size(format, style.size);
        if (style.fill >= 0) {
            format_set_pattern(format, LXW_PATTERN_SOLID);
            // The library takes 0 for no colour and has a value of its own for black.
            format_set_bg_color(
                format, style.fill == 0 ? lxw_color_t(LXW_COLOR_BLACK) : lxw_color_t(style.fill));
        }
        return known->second = format;
    }

    void WriteCell(lxw_worksheet* sheet, int row, int column, const BookCell& cell) {
        const auto r = lxw_row_t(row - 1);
        const auto c = lxw_col_t(column - 1);
        lxw_format* format = FormatOf(cell.style);
        switch (cell.kind) {
            case BookCell::Kind::Text:
                worksheet_write_string(sheet, r, c, cell.text.c_str(), format);
                break;
            case BookCell::Kind::Number:
                worksheet_write_number(sheet, r, c, cell.number, format);
                break;
            case BookCell::Kind::Flag:
                worksheet_write_boolean(sheet, r, c, cell.number != 0, format);
                break;
            default:
                if (cell.styled) worksheet_write_blank(sheet, r, c, format);
        }
    }

    // Merged cells say nothing about the width of a column.
    static std::vector<double> Widths(const BookSheet& sheet) {
        std::vector<double> widths(std::size_t(sheet.columns()), kNarrowest);
        for (int row = 1; row <= sheet.rows(); ++row) {
            const bool isMerged =
                std::any_of(sheet.merged.begin(), sheet.merged.end(),
                            [row](const Area& area) { return row >= area.r1 && row <= area.r2; });
            if (isMerged) continue;
            for (int column = 1; column <= sheet.columns(row); ++column) {
                const BookCell& cell = *sheet.Find(row, column);
                // A byte is never wider than one column, so short texts need no counting.
                double& width = widths[std::size_t(column - 1)];
                if (double(cell.text.size()) + kSpare <= width) continue;
                width = std::max(width, double(DisplayWidth(cell.text)) + kSpare);
            }
        }
        return widths;
    }

    void WriteSheet(const BookSheet& sheet) {
        lxw_worksheet* to = workbook_add_worksheet(workbook_, sheet.name.c_str());
        if (!to) throw BookFileError("no sheet can have the name " + sheet.name);
        const std::vector<double> widths = Widths(sheet);
        for (int column = 1; column <= sheet.columns(); ++column) {
            CellStyle style;
            style.centred = sheet.IsCentred(column);
            const double width = sheet.fitColumns
                                     ? std::min(widths[std::size_t(column - 1)], kWidest)
                                     : LXW_DEF_COL_WIDTH;
            worksheet_set_column(to, lxw_col_t(column - 1), lxw_col_t(column - 1), width,
                                 FormatOf(style));
        }
        for (const Area& area : sheet.merged) {
            const BookCell* first = sheet.Find(area.r1, area.c1);
            worksheet_merge_range(to, lxw_row_t(area.r1 - 1), lxw_col_t(area.c1 - 1),
                                  lxw_row_t(area.r2 - 1), lxw_col_t(area.c2 - 1), "",
                                  FormatOf(first ? first->style : CellStyle()));
        }
        for (int row = 1; row <= sheet.rows(); ++row) {
            int size = kUsualSize;
            for (int column = 1; column <= sheet.columns(row); ++column) {
                const BookCell& cell = *sheet.Find(row, column);
                size = std::max(size, cell.style.size);
                if (cell.kind != BookCell::Kind::Empty || !InsideMerged(sheet, row, column)) {
                    WriteCell(to, row, column, cell);
                }
            }
            if (!sheet.fitRows || size == kUsualSize) continue;
            worksheet_set_row(to, lxw_row_t(row - 1), size * kPerPoint, nullptr);
        }
    }

    static bool InsideMerged(const BookSheet& sheet, int row, int column) {
        return std::any_of(sheet.merged.begin(), sheet.merged.end(), [&](const Area& area) {
            return row >= area.r1 && row <= area.r2 && column >= area.c1 && column <= area.c2;
        });
    }

    const Book& book_;
    lxw_workbook* workbook_;
    std::unordered_map<std::uint64_t, lxw_format*> formats_;
};

}  // namespace

void WriteXlsx(const Book& book, const std::string& path) {
    const TemporaryFile made;
    Writer(book, made.name()).Write();
    std::string reason;
    if (!WriteFile(path, ReadFile(made.name()), &reason)) throw BookFileError(reason);
}

}  // namespace simhost

#endif
