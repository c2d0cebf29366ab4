// The @ words about the tables of dialogs.
#include <fmt/format.h>

#include "simhost/core/text.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/table.h"
#include "simhost/ui/textfield.h"

namespace simhost {
namespace {

const Table* OpenTable(Trail& trail, std::string* rest) {
    const Dialog* dialog = TheHost().dialogs.Active();
    const std::string name = TakeWord(rest);
    const auto* table = dialog ? dynamic_cast<const Table*>(dialog->Find(name)) : nullptr;
    if (!table) trail.Fail(fmt::format("no table {} is open", name));
    return table;
}

template <class List, class TextOf>
std::string Joined(const List& list, TextOf&& textOf) {
    std::string text;
    bool first = true;
    for (const auto& each : list) {
        if (!first) text += '|';
        first = false;
        text += Utf8(textOf(each));
    }
    return text;
}

}  // namespace

void ExpectRows(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const Table* table = OpenTable(trail, &left);
    if (!table) return;
    const std::string number = std::to_string(table->rows().size());
    if (number != left) trail.Fail(fmt::format("{} has {} rows", table->name(), number));
}

void ExpectColumns(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const Table* table = OpenTable(trail, &left);
    if (!table) return;
    const std::string labels =
        Joined(table->columns(), [](const TableColumn& column) { return column.label; });
    if (labels != ParseText(left).text) trail.Fail(fmt::format("the columns are {}", labels));
}

void ExpectRow(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const Table* table = OpenTable(trail, &left);
    if (!table) return;
    const std::string name = TakeWord(&left);
    const TableRow* row = table->FindRow(name);
    if (!row) return trail.Fail(fmt::format("{} has no row {}", table->name(), name));
    const std::string cells = Joined(row->cells, [](const TableCell& cell) { return cell.label; });
    if (cells != ParseText(left).text) trail.Fail(fmt::format("row {} is {}", name, cells));
}

// Of every cell of the row, blanks between them.
void ExpectRowColours(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const Table* table = OpenTable(trail, &left);
    if (!table) return;
    const std::string name = TakeWord(&left);
    const TableRow* row = table->FindRow(name);
    if (!row) return trail.Fail(fmt::format("{} has no row {}", table->name(), name));
    std::string colours;
    for (const TableCell& cell : row->cells) {
        if (&cell != row->cells.data()) colours += ' ';
        colours += cell.colour ? std::to_string(*cell.colour) : "-";
    }
    if (colours != left) trail.Fail(fmt::format("the colours of row {} are {}", name, colours));
}

void ExpectCell(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const Table* table = OpenTable(trail, &left);
    if (!table) return;
    const std::string row = TakeWord(&left);
    const std::string column = TakeWord(&left);
    const TableCell* cell = table->FindCell(row, column);
    if (!cell) return trail.Fail(fmt::format("{} has no cell {} {}", table->name(), row, column));
    const auto* field = dynamic_cast<const TextField*>(cell->component.get());
    const std::string text = Utf8(field ? field->value : cell->label);
    if (text != ParseText(left).text) trail.Fail(fmt::format("in the cell is \"{}\"", text));
}

void ExpectFocus(Trail& trail, const std::string& rest) {
    std::string left = rest;
    const Table* table = OpenTable(trail, &left);
    if (!table) return;
    const auto& focus = table->focus();
    const std::string now = focus ? focus->row + ' ' + focus->column : "none";
    if (now != left) trail.Fail(fmt::format("the focus of {} is {}", table->name(), now));
}

void ShowTables(Trail& trail) {
    const Dialog* dialog = TheHost().dialogs.Active();
    if (!dialog) return trail.Say("no dialog is open");
    bool any = false;
    for (const auto& component : dialog->components()) {
        const auto* table = dynamic_cast<const Table*>(component.get());
        if (!table) continue;
        any = true;
        trail.SayAll(table->Lines(table->rows().size()));
    }
    if (!any) trail.Say("the dialog has no table");
}

}  // namespace simhost
