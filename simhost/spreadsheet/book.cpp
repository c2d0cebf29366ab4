// Workbooks as data: cells, whole columns, and the names of cells.
#include "simhost/spreadsheet/book.h"

#include <algorithm>

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
