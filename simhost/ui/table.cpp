// Tables: rows and columns by name, what the user selects, and how they look.
#include "simhost/ui/table.h"

#include <fmt/format.h>

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
    if (place != rows_.end()) rowNames_.reset();
    for (const std::string& row : names) {
        if (rowNames_) rowNames_->push_back(ToSystemCodePage(Wide(row)));
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
    for (TableRow& row : rows_) {
        row.cells.resize(row.cells.size() + names.size());
        std::rotate(row.cells.begin() + place, row.cells.end() - std::ptrdiff_t(names.size()),
                    row.cells.end());
    }
}

void Table::Forget(TableCell& cell) {
    if (!cell.component) return;
    dialog().ForgetInCell(*cell.component);
    cell.component.reset();
}

void Table::DeleteRows(const std::vector<std::string>& names) {
    for (const std::string& row : names) RowNamed(row);  // all or none
    rowNames_.reset();
    for (const std::string& row : names) {
        const auto found = rowAt_.find(row);
        if (found == rowAt_.end()) continue;  // named twice
        for (TableCell& cell : found->second->cells) Forget(cell);
        if (focus_ && focus_->row == row) focus_.reset();
        rows_.erase(found->second);
        rowAt_.erase(found);
    }
}

void Table::DeleteColumns(const std::vector<std::string>& names) {
    for (const std::string& column : names) ColumnIndex(column);
    for (const std::string& column : names) {
        const auto place = std::ptrdiff_t(ColumnIndex(column));
        columns_.erase(columns_.begin() + place);
        if (focus_ && focus_->column == column) focus_.reset();
        for (TableRow& row : rows_) {
            Forget(row.cells[std::size_t(place)]);
            row.cells.erase(row.cells.begin() + place);
        }
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

// --- Components in cells ---

void Table::PutComponent(const std::string& row, const std::string& column, const Component& from,
                         const std::string& copyName) {
    TableCell& cell = RequireCell(row, column);
    if (copyName.empty()) Complain(PRO_TK_BAD_INPUTS, "a component without a name");
    if (cell.component || dialog().Find(copyName)) Refuse(PRO_TK_E_FOUND);
    cell.component = CopyForCell(from, copyName, {this, row, column});
    if (!cell.component) {
        Complain(PRO_TK_BAD_INPUTS,
                 fmt::format("{} is a {}, which no cell holds", from.name(), from.kind()));
    }
    dialog().AddInCell(*cell.component);
}

void Table::DeleteComponent(const std::string& row, const std::string& column) {
    TableCell& cell = RequireCell(row, column);
    if (!cell.component) Refuse(PRO_TK_E_NOT_FOUND);
    Forget(cell);
}

const Table::FocusedCell& Table::RequireFocus() const {
    if (!focus_) Refuse(PRO_TK_E_NOT_FOUND);
    return *focus_;
}

std::string TableCell::Shown() const {
    if (!component) return Utf8(label);
    const std::vector<std::string> lines =
        component->visible ? component->Picture() : std::vector<std::string>();
    return lines.empty() ? std::string() : lines.front();
}

// --- Lent to the caller ---

WideChar* Table::LabelForCaller(const TableCell& cell) {
    return lentLabels_.emplace_back(cell.label).data();
}

char* Table::NameForCaller(const std::string& name) {
    return lentNames_.emplace_back(ToSystemCodePage(Wide(name))).data();
}

const std::vector<std::string>& Table::RowNamesForCaller() {
    if (rowNames_) return *rowNames_;
    rowNames_.emplace().reserve(rows_.size());
    for (const TableRow& row : rows_) rowNames_->push_back(ToSystemCodePage(Wide(row.name)));
    return *rowNames_;
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
            width = std::max(width, DisplayWidth(row->cells[i].Shown()));
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
        lines.push_back(line(mark, [&](auto i) { return row->cells[i].Shown(); }));
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

std::string Table::CellProblem(const std::string& row, const std::string& column) const {
    if (rowAt_.find(row) == rowAt_.end()) return fmt::format("{} has no row {}", name(), row);
    if (column.empty() || FindColumn(column)) return {};
    std::vector<std::string> names;
    for (const TableColumn& each : columns_) names.push_back(each.name);
    return fmt::format("{} has no column {}{}", name(), column, DidYouMean(column, names));
}

// Rows and columns by turns; a row alone is the row.
std::string Table::SelectRows(const std::vector<std::string>& cells) {
    std::vector<Row> wanted;
    for (std::size_t i = 0; i < cells.size(); i += 2) {
        const std::string problem = CellProblem(cells[i], i + 1 < cells.size() ? cells[i + 1] : "");
        if (!problem.empty()) return problem;
        const Row row = rowAt_.at(cells[i]);
        if (std::find(wanted.begin(), wanted.end(), row) == wanted.end()) wanted.push_back(row);
    }
    const bool several =
        rowPolicy == PROUISELPOLICY_MULTIPLE || rowPolicy == PROUISELPOLICY_EXTENDED;
    if (wanted.size() > 1 && !several) {
        return fmt::format("only one row of {} can be selected", name());
    }
    if (wanted.empty() && rowPolicy == PROUISELPOLICY_BROWSE) {
        return fmt::format("one row of {} stays selected", name());
    }
    for (TableRow& each : rows_) each.selected = false;
    for (const Row& row : wanted) row->selected = true;
    return {};
}

std::string Table::ArmCell(const std::string& row, const std::string& column) {
    const std::string problem = CellProblem(row, column);
    if (!problem.empty()) return problem;
    const TableCell* cell = FindCell(row, column);
    if (cell->component) {
        return fmt::format("the cell holds {}, which takes the pick: ~ FocusIn",
                           cell->component->name());
    }
    FocusCell(row, FindColumn(column)->name);
    dialog().RunAction(armAction, name());
    return {};
}

std::string Table::Act(Verb verb, const std::vector<std::string>& arguments) {
    if (verb != Verb::Select && verb != Verb::Activate && verb != Verb::Arm) {
        return Component::Act(verb, arguments);
    }
    std::vector<std::string> cells = arguments;
    // The count that the host writes before the names may be left out.
    const bool counted = cells.size() % 2 == 1 && cells[0] == std::to_string(cells.size() - 1);
    if (counted) cells.erase(cells.begin());
    if (verb == Verb::Select && (counted || cells.size() == 1 || cells.size() % 2 == 0) &&
        (counted || !cells.empty())) {
        return SelectRows(cells);
    }
    const bool isOne = cells.size() == 2 || (cells.size() == 1 && verb == Verb::Activate);
    if (!isOne) {
        return fmt::format("a row and a column of {} belong after {}", name(), VerbName(verb));
    }
    if (verb == Verb::Arm) return ArmCell(cells[0], cells[1]);
    const std::string problem = SelectRows(cells);
    if (!problem.empty()) return problem;
    dialog().RunAction(activateAction, name());
    return {};
}

}  // namespace simhost
