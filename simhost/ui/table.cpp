// Tables: rows and columns by name, what the user selects, and how they look.
#include "simhost/ui/table.h"

#include <algorithm>
#include <iterator>

#include "simhost/core/text.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

bool HasTwice(std::vector<std::string> names) {
    std::sort(names.begin(), names.end());
    return std::adjacent_find(names.begin(), names.end()) != names.end();
}

}  // namespace

Table::Table(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource)
    : Component(dialog, declared, resource) {
    if (const auto* names = resource.Find(name(), "ColumnNames")) {
        for (const std::string& column : *names) columns_.push_back({column, Wide(column)});
    }
    if (const auto* labels = resource.Find(name(), "ColumnLabels")) {
        for (std::size_t i = 0; i < labels->size() && i < columns_.size(); ++i) {
            columns_[i].label = Wide((*labels)[i]);
        }
    }
    visibleRows_ = resource.Whole(name(), "VisibleRows", visibleRows_);
    width_ = resource.Whole(name(), "Columns", width_);
}

// --- The plug-in's side ---

Table::Row Table::RowNamed(const std::string& row) const {
    const auto found = rowAt_.find(row);
    if (found == rowAt_.end()) Refuse(PRO_TK_E_NOT_FOUND);
    return found->second;
}

std::size_t Table::ColumnIndex(const std::string& column) const {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (columns_[i].name == column) return i;
    }
    Refuse(PRO_TK_E_NOT_FOUND);
}

void Table::InsertRows(std::string_view after, const std::vector<std::string>& names) {
    const Row place = after.empty() ? rows_.begin() : std::next(RowNamed(std::string(after)));
    for (const std::string& row : names) {
        if (row.empty()) Complain(PRO_TK_BAD_INPUTS, "a row without a name");
        if (rowAt_.count(row)) Refuse(PRO_TK_E_FOUND);
    }
    if (HasTwice(names)) Refuse(PRO_TK_E_FOUND);
    for (const std::string& row : names) {
        rowAt_[row] =
            rows_.insert(place, TableRow{row, {}, false, std::vector<TableCell>(columns_.size())});
    }
}

void Table::InsertColumns(std::string_view after, const std::vector<std::string>& names) {
    const std::size_t at = after.empty() ? 0 : ColumnIndex(std::string(after)) + 1;
    std::vector<std::string> all = names;
    for (const TableColumn& column : columns_) all.push_back(column.name);
    if (HasTwice(all)) Refuse(PRO_TK_E_FOUND);
    const auto place = std::ptrdiff_t(at);
    std::vector<TableColumn> added;
    for (const std::string& column : names) {
        if (column.empty()) Complain(PRO_TK_BAD_INPUTS, "a column without a name");
        added.push_back({column, Wide(column)});
    }
    columns_.insert(columns_.begin() + place, added.begin(), added.end());
    for (TableRow& row : rows_) row.cells.insert(row.cells.begin() + place, names.size(), {});
}

void Table::DeleteRows(const std::vector<std::string>& names) {
    for (const std::string& row : names) RowNamed(row);  // all or none
    for (const std::string& row : names) {
        const auto found = rowAt_.find(row);
        if (found == rowAt_.end()) continue;  // named twice
        rows_.erase(found->second);
        rowAt_.erase(found);
    }
}

void Table::DeleteColumns(const std::vector<std::string>& names) {
    for (const std::string& column : names) ColumnIndex(column);
    for (const std::string& column : names) {
        const auto place = std::ptrdiff_t(ColumnIndex(column));
        columns_.erase(columns_.begin() + place);
        for (TableRow& row : rows_) row.cells.erase(row.cells.begin() + place);
    }
}

void Table::SetColumnLabels(const std::vector<WideText>& labels) {
    if (labels.size() > columns_.size()) {
        Complain(PRO_TK_BAD_INPUTS, fmt::format("{} labels for the {} columns of {}", labels.size(),
                                                columns_.size(), name()));
    }
    for (std::size_t i = 0; i < labels.size(); ++i) columns_[i].label = labels[i];
}

TableRow& Table::RequireRow(const std::string& row) {
    return *RowNamed(row);
}

TableCell& Table::RequireCell(const std::string& row, const std::string& column) {
    return RowNamed(row)->cells[ColumnIndex(column)];
}

WideChar** Table::Lend(std::vector<WideText> labels) {
    if (labels.empty()) return nullptr;
    Lent& lent = lent_.emplace_back();
    lent.texts = std::move(labels);
    for (WideText& text : lent.texts) lent.array.push_back(text.data());
    return lent.array.data();
}

WideChar** Table::RowLabelsForCaller() {
    std::vector<WideText> labels;
    for (const TableRow& row : rows_) labels.push_back(row.label);
    return Lend(std::move(labels));
}

WideChar** Table::ColumnLabelsForCaller() {
    std::vector<WideText> labels;
    for (const TableColumn& column : columns_) labels.push_back(column.label);
    return Lend(std::move(labels));
}

// --- The user's side ---

const TableRow* Table::FindRow(const std::string& row) const {
    const auto found = rowAt_.find(row);
    return found == rowAt_.end() ? nullptr : &*found->second;
}

const TableColumn* Table::FindColumn(const std::string& nameOrLabel) const {
    for (const TableColumn& column : columns_) {
        if (column.name == nameOrLabel) return &column;
    }
    for (const TableColumn& column : columns_) {
        if (Utf8(column.label) == nameOrLabel) return &column;
    }
    return nullptr;
}

const TableCell* Table::FindCell(const std::string& row, const std::string& nameOrLabel) const {
    const TableRow* found = FindRow(row);
    const TableColumn* column = FindColumn(nameOrLabel);
    if (!found || !column) return nullptr;
    return &found->cells[std::size_t(column - columns_.data())];
}

std::vector<std::string> Table::Lines(std::size_t most) const {
    const auto end = std::next(rows_.begin(), std::ptrdiff_t(std::min(most, rows_.size())));
    std::vector<std::size_t> widths;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        std::size_t width = DisplayWidth(Utf8(columns_[i].label));
        for (auto row = rows_.begin(); row != end; ++row) {
            width = std::max(width, DisplayWidth(Utf8(row->cells[i].label)));
        }
        widths.push_back(width);
    }
    const auto line = [&](const char* mark, const auto& textOf) {
        std::string text = mark;
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            text += (i ? " | " : "") + Padded(textOf(i), widths[i]);
        }
        return text.substr(0, text.find_last_not_of(' ') + 1);
    };
    std::vector<std::string> lines{line("  ", [&](auto i) { return Utf8(columns_[i].label); })};
    std::size_t width = 2;
    for (std::size_t i = 0; i < widths.size(); ++i) width += widths[i] + (i ? 3 : 0);
    lines.emplace_back(width, '-');
    for (auto row = rows_.begin(); row != end; ++row) {
        const bool coloured = std::any_of(row->cells.begin(), row->cells.end(),
                                          [](const TableCell& cell) { return !!cell.colour; });
        const char* mark = row->selected ? (coloured ? ">*" : "> ") : (coloured ? " *" : "  ");
        lines.push_back(line(mark, [&](auto i) { return Utf8(row->cells[i].label); }));
    }
    return lines;
}

std::vector<std::string> Table::Picture() const {
    const auto most = std::size_t(std::max(visibleRows_, 1));
    std::vector<std::string> lines = Lines(most);
    if (rows_.size() > most) {
        lines.push_back(fmt::format("  ... {} more rows", rows_.size() - most));
    }
    return lines;
}

std::string Table::State() const {
    std::string selected;
    for (const TableRow& row : rows_) {
        if (row.selected) selected += (selected.empty() ? ", selected " : ", ") + row.name;
    }
    return fmt::format("{} rows of {} columns{}", rows_.size(), columns_.size(), selected);
}

std::string Table::SelectRow(const std::vector<std::string>& cell) {
    const auto row = rowAt_.find(cell[0]);
    if (row == rowAt_.end()) return fmt::format("{} has no row {}", name(), cell[0]);
    if (cell.size() > 1 && !FindColumn(cell[1])) {
        std::vector<std::string> names;
        for (const TableColumn& column : columns_) names.push_back(column.name);
        return fmt::format("{} has no column {}{}", name(), cell[1], DidYouMean(cell[1], names));
    }
    for (TableRow& each : rows_) each.selected = false;
    row->second->selected = true;
    return {};
}

std::string Table::Act(Verb verb, const std::vector<std::string>& arguments) {
    if (verb != Verb::Select && verb != Verb::Activate) return Component::Act(verb, arguments);
    std::vector<std::string> cell = arguments;
    // The count that the host writes before the names may be left out.
    if (cell.size() > 2 && cell[0] == "2") cell.erase(cell.begin());
    if (cell.empty() || cell.size() > 2) {
        return fmt::format("a row and a column of {} belong after {}", name(), VerbName(verb));
    }
    const std::string problem = SelectRow(cell);
    if (!problem.empty()) return problem;
    if (verb == Verb::Activate) dialog().RunAction(activateAction, name());
    return {};
}

}  // namespace simhost
