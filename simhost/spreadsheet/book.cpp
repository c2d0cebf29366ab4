// Workbooks as data: cells, whole columns, and the names of cells.
#include "simhost/spreadsheet/book.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <chrono>
#include <cmath>

namespace simhost {

BookCell& BookSheet::At(int row, int column) {
    if (row > rows()) cells_.resize(std::size_t(row));
    auto& cells = cells_[std::size_t(row - 1)];
    const auto wanted = std::size_t(column);
    while (cells.size() < wanted) {
        BookCell& added = cells.emplace_back();
        added.style.centred = IsCentred(int(cells.size()));
    }
    return cells[wanted - 1];
}

const BookCell* BookSheet::Find(int row, int column) const {
    if (row < 1 || row > rows() || column < 1 || column > columns(row)) return nullptr;
    return &cells_[std::size_t(row - 1)][std::size_t(column - 1)];
}

int BookSheet::columns() const {
    std::size_t most = 0;
    for (const auto& row : cells_) most = std::max(most, row.size());
    return int(most);
}

void BookSheet::CentreColumns(int first, int last) {
    if (centred_.size() < std::size_t(last)) centred_.resize(std::size_t(last));
    for (int column = first; column <= last; ++column) {
        if (centred_[std::size_t(column - 1)]) continue;
        centred_[std::size_t(column - 1)] = true;
        for (auto& row : cells_) {
            if (std::size_t(column) <= row.size())
                row[std::size_t(column - 1)].style.centred = true;
        }
    }
}

bool BookSheet::IsCentred(int column) const {
    return column >= 1 && std::size_t(column) <= centred_.size() &&
           centred_[std::size_t(column - 1)];
}

Area BookSheet::Used() const {
    Area used{0, 0, 1, 1};
    for (int row = 1; row <= rows(); ++row) {
        for (int column = 1; column <= columns(row); ++column) {
            const BookCell& cell = *Find(row, column);
            if (cell.kind == BookCell::Kind::Empty && !cell.styled) continue;
            if (used.r1 == 0) used.r1 = row;
            used.c1 = used.c1 == 0 ? column : std::min(used.c1, column);
            used.r2 = row;
            used.c2 = std::max(used.c2, column);
        }
    }
    if (used.r1 == 0) used.r1 = used.c1 = 1;
    return used;
}

std::optional<double> DayNumber(int year, int month, int day) {
    using namespace std::chrono;
    const year_month_day date{std::chrono::year(year), std::chrono::month(unsigned(month)),
                              std::chrono::day(unsigned(day))};
    // Before March 1900 the days are counted in another way.
    const sys_days first = std::chrono::year(1900) / March / 1;
    const sys_days begin = std::chrono::year(1899) / December / 30;
    if (!date.ok() || sys_days(date) < first) return std::nullopt;
    return double((sys_days(date) - begin).count());
}

namespace {

// "10-20" and "10/20" as the day of a year, "2026-10-20" with its own.
std::optional<double> TypedDay(const std::string& text, int year) {
    int numbers[3];
    std::size_t count = 0;
    const char* at = text.data();
    const char* end = at + text.size();
    while (count < 3) {
        const auto [parsed, error] = std::from_chars(at, end, numbers[count]);
        if (error != std::errc() || numbers[count] < 0) return std::nullopt;
        ++count;
        at = parsed;
        if (at == end) break;
        if (*at != '-' && *at != '/') return std::nullopt;
        ++at;
    }
    if (at != end || count < 2) return std::nullopt;
    if (count == 2) return DayNumber(year, numbers[0], numbers[1]);
    return DayNumber(numbers[0], numbers[1], numbers[2]);
}

bool SaysFlag(std::string text, const char* word) {
    for (char& c : text) c = char(std::toupper(static_cast<unsigned char>(c)));
    return text == word;
}

}  // namespace

void PutTyped(BookCell* cell, const std::string& text, int year) {
    cell->text = text;
    cell->kind = text.empty() ? BookCell::Kind::Empty : BookCell::Kind::Text;
    if (cell->style.asText || text.empty()) return;
    const auto become = [&](BookCell::Kind kind, double number) {
        cell->kind = kind;
        cell->number = number;
        cell->text.clear();
    };
    if (SaysFlag(text, "TRUE")) return become(BookCell::Kind::Flag, 1);
    if (SaysFlag(text, "FALSE")) return become(BookCell::Kind::Flag, 0);
    if (const auto day = TypedDay(text, year)) return become(BookCell::Kind::Number, *day);
    double number = 0;
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, number);
    // INF and NAN are words here.
    if (error != std::errc() || parsed != end || !std::isfinite(number)) return;
    become(BookCell::Kind::Number, number);
}

bool ParseCellName(const std::string& name, int* row, int* column) {
    std::size_t at = 0;
    int letters = 0;
    for (; at < name.size() && name[at] >= 'A' && name[at] <= 'Z' && at < 3; ++at) {
        letters = letters * 26 + (name[at] - 'A' + 1);
    }
    int number = 0;
    const std::size_t digits = at;
    for (; at < name.size() && name[at] >= '0' && name[at] <= '9' && at < digits + 7; ++at) {
        number = number * 10 + (name[at] - '0');
    }
    if (at != name.size() || digits == 0 || letters > kLastSheetColumn || number < 1 ||
        number > kLastSheetRow) {
        return false;
    }
    *row = number;
    *column = letters;
    return true;
}

std::string CellNameOf(int row, int column) {
    std::string letters;
    for (int rest = column; rest > 0; rest = (rest - 1) / 26) {
        letters.insert(letters.begin(), char('A' + (rest - 1) % 26));
    }
    return letters + std::to_string(row);
}

}  // namespace simhost
