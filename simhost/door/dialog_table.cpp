// Tables at the door.
#include "hostapi/host/dialog_table.h"

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/ui/table.h"

using namespace simhost;

namespace {

Table& RequireTable(const char* dialog, const char* component) {
    Need(dialog, "the dialog's name");
    Need(component, "the component's name");
    const Dialog& owner = TheHost().dialogs.Require(dialog);
    return RequireKind<Table>(owner.Require(component), owner.name());
}

std::string Name(const char* name, const char* what) {
    Need(name, what);
    return Utf8(FromSystemCodePage(name));
}

std::vector<std::string> NameList(int count, char** names) {
    if (count < 1) Complain(PRO_TK_BAD_INPUTS, "a list of no names");
    Need(names, "the names");
    std::vector<std::string> list;
    list.reserve(std::size_t(count));
    for (int i = 0; i < count; ++i) list.push_back(Name(names[i], "a name of the list"));
    return list;
}

// For the journal: the first name of a list, which is never read beyond its end.
const char* First(int count, char** names) {
    return count > 0 && names ? names[0] : nullptr;
}

char** NamesForCaller(const Operation& op, std::vector<std::string> names) {
    for (std::string& name : names) name = ToSystemCodePage(Wide(name));
    return TheHost().arrays.MakeNames(std::move(names), op.name());
}

TableCell& RequireCell(char* dialog, char* table, const char* row, const char* column) {
    return RequireTable(dialog, table)
        .RequireCell(Name(row, "the row's name"), Name(column, "the column's name"));
}

}  // namespace

ProError ProUITableRowsInsert(char* dialog, char* table, char* after, int count, char** names) {
    static Operation op("ProUITableRowsInsert");
    return op.Call(
        [&] {
            Table& found = RequireTable(dialog, table);
            found.InsertRows(Name(after, "the row before"), NameList(count, names));
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "after", after, "count", count, "name",
        First(count, names));
}

ProError ProUITableColumnsInsert(char* dialog, char* table, char* after, int count, char** names) {
    static Operation op("ProUITableColumnsInsert");
    return op.Call(
        [&] {
            Table& found = RequireTable(dialog, table);
            found.InsertColumns(Name(after, "the column before"), NameList(count, names));
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "after", after, "count", count, "name",
        First(count, names));
}

ProError ProUITableRowsDelete(char* dialog, char* table, int count, char** names) {
    static Operation op("ProUITableRowsDelete");
    return op.Call(
        [&] {
            RequireTable(dialog, table).DeleteRows(NameList(count, names));
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "count", count, "name", First(count, names));
}

ProError ProUITableColumnsDelete(char* dialog, char* table, int count, char** names) {
    static Operation op("ProUITableColumnsDelete");
    return op.Call(
        [&] {
            RequireTable(dialog, table).DeleteColumns(NameList(count, names));
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "count", count, "name", First(count, names));
}

ProError ProUITableRownamesGet(char* dialog, char* table, int* count, char*** names) {
    static Operation op("ProUITableRownamesGet");
    return op.Call(
        [&] {
            Need(count, "the place for the number");
            Need(names, "the place for the names");
            std::vector<std::string> all;
            for (const TableRow& row : RequireTable(dialog, table).rows()) all.push_back(row.name);
            *count = int(all.size());
            *names = NamesForCaller(op, std::move(all));
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "count", Out(count));
}

ProError ProUITableColumnnamesGet(char* dialog, char* table, int* count, char*** names) {
    static Operation op("ProUITableColumnnamesGet");
    return op.Call(
        [&] {
            Need(count, "the place for the number");
            Need(names, "the place for the names");
            std::vector<std::string> all;
            for (const auto& column : RequireTable(dialog, table).columns()) {
                all.push_back(column.name);
            }
            *count = int(all.size());
            *names = NamesForCaller(op, std::move(all));
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "count", Out(count));
}

ProError ProUITableSelectednamesGet(char* dialog, char* table, int* count, char*** names) {
    static Operation op("ProUITableSelectednamesGet");
    return op.Call(
        [&] {
            Need(count, "the place for the number");
            Need(names, "the place for the names");
            std::vector<std::string> all;
            for (const TableRow& row : RequireTable(dialog, table).rows()) {
                if (row.selected) all.push_back(row.name);
            }
            *count = int(all.size());
            *names = NamesForCaller(op, std::move(all));
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "count", Out(count));
}

ProError ProUITableRowlabelsGet(char* dialog, char* table, int* count, WideChar*** labels) {
    static Operation op("ProUITableRowlabelsGet");
    return op.Call(
        [&] {
            Need(count, "the place for the number");
            Need(labels, "the place for the labels");
            Table& found = RequireTable(dialog, table);
            *labels = found.RowLabelsForCaller();
            *count = int(found.rows().size());
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "count", Out(count));
}

ProError ProUITableColumnlabelsGet(char* dialog, char* table, int* count, WideChar*** labels) {
    static Operation op("ProUITableColumnlabelsGet");
    return op.Call(
        [&] {
            Need(count, "the place for the number");
            Need(labels, "the place for the labels");
            Table& found = RequireTable(dialog, table);
            *labels = found.ColumnLabelsForCaller();
            *count = int(found.columns().size());
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "count", Out(count));
}

ProError ProUITableColumnlabelsSet(char* dialog, char* table, int count, WideChar** labels) {
    static Operation op("ProUITableColumnlabelsSet");
    return op.Call(
        [&] {
            Table& found = RequireTable(dialog, table);
            if (count < 1) Complain(PRO_TK_BAD_INPUTS, "a list of no labels");
            Need(labels, "the labels");
            std::vector<WideText> all;
            for (int i = 0; i < count; ++i) {
                Need(labels[i], "a label");
                all.emplace_back(labels[i]);
            }
            found.SetColumnLabels(all);
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "count", count);
}

ProError ProUITableCellLabelSet(char* dialog, char* table, char* row, char* column,
                                WideChar* label) {
    static Operation op("ProUITableCellLabelSet");
    return op.Call(
        [&] {
            TableCell& cell = RequireCell(dialog, table, row, column);
            Need(label, "the text");
            cell.label = label;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "row", row, "column", column, "label", label);
}

ProError ProUITableCellLabelGet(char* dialog, char* table, char* row, char* column,
                                WideChar** label) {
    static Operation op("ProUITableCellLabelGet");
    return op.Call(
        [&] {
            TableCell& cell = RequireCell(dialog, table, row, column);
            Need(label, "the place for the text");
            *label = cell.label.data();
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "row", row, "column", column, "label", Out(label));
}

ProError ProUITableCellBackgroundColorSet(char* dialog, char* table, char* row, char* column,
                                          ProUIColorType colour) {
    static Operation op("ProUITableCellBackgroundColorSet");
    return op.Call(
        [&] {
            RequireCell(dialog, table, row, column).colour = colour;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "row", row, "column", column, "colour", colour);
}

ProError ProUITableCellBackgroundColorGet(char* dialog, char* table, char* row, char* column,
                                          ProUIColorType* colour) {
    static Operation op("ProUITableCellBackgroundColorGet");
    constexpr int kUsual = 1;
    return op.Call(
        [&] {
            const TableCell& cell = RequireCell(dialog, table, row, column);
            Need(colour, "the place for the colour");
            *colour = cell.colour.value_or(kUsual);
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "row", row, "column", column, "colour", Out(colour));
}

ProError ProUITableRowCellsSelect(char* dialog, char* table, char* row) {
    static Operation op("ProUITableRowCellsSelect");
    return op.Call(
        [&] {
            RequireTable(dialog, table).RequireRow(Name(row, "the row's name")).selected = true;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "row", row);
}

ProError ProUITableRowCellsDeselect(char* dialog, char* table, char* row) {
    static Operation op("ProUITableRowCellsDeselect");
    return op.Call(
        [&] {
            RequireTable(dialog, table).RequireRow(Name(row, "the row's name")).selected = false;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "row", row);
}

ProError ProUITableSelectionpolicySet(char* dialog, char* table, ProUISelectionpolicy policy) {
    static Operation op("ProUITableSelectionpolicySet");
    return op.Call(
        [&] {
            RequireTable(dialog, table).rowPolicy = policy;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "policy", policy);
}

ProError ProUITableColumnselectionpolicySet(char* dialog, char* table,
                                            ProUISelectionpolicy policy) {
    static Operation op("ProUITableColumnselectionpolicySet");
    return op.Call(
        [&] {
            RequireTable(dialog, table).columnPolicy = policy;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "policy", policy);
}

ProError ProUITableActivateActionSet(char* dialog, char* table, ProUIAction action,
                                     ProAppData data) {
    static Operation op("ProUITableActivateActionSet");
    return op.Call(
        [&] {
            RequireTable(dialog, table).activateAction = {action, data};
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "table", table, "action", action, "data", data);
}
