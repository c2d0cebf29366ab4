// Tables at the door.
#include "hostapi/host/dialog_table.h"

#include "simhost/core/text.h"
#include "simhost/door/dialog_component.h"
#include "simhost/ui/table.h"

using namespace simhost;

namespace {

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

char** NamesForCaller(const Operation& op, std::vector<std::string> names) {
    for (std::string& name : names) name = ToSystemCodePage(Wide(name));
    return TheHost().arrays.MakeNames(std::move(names), op.name());
}

TableCell& RequireCell(char* dialog, char* table, const char* row, const char* column) {
    return Required<Table>(dialog, table)
        .RequireCell(Name(row, "the row's name"), Name(column, "the column's name"));
}

}  // namespace

ProError ProUITableRowsInsert(char* dialog, char* table, char* after, int count, char** names) {
    return Op<"ProUITableRowsInsert">.Call(
        [&] {
            Table& found = Required<Table>(dialog, table);
            found.InsertRows(Name(after, "the row before"), NameList(count, names));
        },
        ARG(dialog), ARG(table), ARG(after), LIST(names, count));
}

ProError ProUITableColumnsInsert(char* dialog, char* table, char* after, int count, char** names) {
    return Op<"ProUITableColumnsInsert">.Call(
        [&] {
            Table& found = Required<Table>(dialog, table);
            found.InsertColumns(Name(after, "the column before"), NameList(count, names));
        },
        ARG(dialog), ARG(table), ARG(after), LIST(names, count));
}

ProError ProUITableRowsDelete(char* dialog, char* table, int count, char** names) {
    return Op<"ProUITableRowsDelete">.Call(
        [&] { Required<Table>(dialog, table).DeleteRows(NameList(count, names)); }, ARG(dialog),
        ARG(table), LIST(names, count));
}

ProError ProUITableColumnsDelete(char* dialog, char* table, int count, char** names) {
    return Op<"ProUITableColumnsDelete">.Call(
        [&] { Required<Table>(dialog, table).DeleteColumns(NameList(count, names)); }, ARG(dialog),
        ARG(table), LIST(names, count));
}

ProError ProUITableRownamesGet(char* dialog, char* table, int* count, char*** names) {
    Operation& op = Op<"ProUITableRownamesGet">;
    return op.Call(
        [&] {
            const auto& all = Required<Table>(dialog, table).RowNamesForCaller();
            *count = int(all.size());
            *names = TheHost().arrays.MakeNames(all, op.name());
        },
        ARG(dialog), ARG(table), OUT(count), OUT_LIST(names, count));
}

ProError ProUITableColumnnamesGet(char* dialog, char* table, int* count, char*** names) {
    Operation& op = Op<"ProUITableColumnnamesGet">;
    return op.Call(
        [&] {
            std::vector<std::string> all;
            for (const auto& column : Required<Table>(dialog, table).columns()) {
                all.push_back(column.name);
            }
            *count = int(all.size());
            *names = NamesForCaller(op, std::move(all));
        },
        ARG(dialog), ARG(table), OUT(count), OUT_LIST(names, count));
}

ProError ProUITableSelectednamesGet(char* dialog, char* table, int* count, char*** names) {
    Operation& op = Op<"ProUITableSelectednamesGet">;
    return op.Call(
        [&] {
            std::vector<std::string> all;
            for (const TableRow& row : Required<Table>(dialog, table).rows()) {
                if (row.selected) all.push_back(row.name);
            }
            *count = int(all.size());
            *names = NamesForCaller(op, std::move(all));
        },
        ARG(dialog), ARG(table), OUT(count), OUT_LIST(names, count));
}

ProError ProUITableRowlabelsGet(char* dialog, char* table, int* count, WideChar*** labels) {
    return Op<"ProUITableRowlabelsGet">.Call(
        [&] {
            Table& found = Required<Table>(dialog, table);
            *labels = found.RowLabelsForCaller();
            *count = int(found.rows().size());
        },
        ARG(dialog), ARG(table), OUT(count), OUT_LIST(labels, count));
}

ProError ProUITableColumnlabelsGet(char* dialog, char* table, int* count, WideChar*** labels) {
    return Op<"ProUITableColumnlabelsGet">.Call(
        [&] {
            Table& found = Required<Table>(dialog, table);
            *labels = found.ColumnLabelsForCaller();
            *count = int(found.columns().size());
        },
        ARG(dialog), ARG(table), OUT(count), OUT_LIST(labels, count));
}

ProError ProUITableColumnlabelsSet(char* dialog, char* table, int count, WideChar** labels) {
    return Op<"ProUITableColumnlabelsSet">.Call(
        [&] {
            Table& found = Required<Table>(dialog, table);
            if (count < 1) Complain(PRO_TK_BAD_INPUTS, "a list of no labels");
            Need(labels, "the labels");
            std::vector<WideText> all;
            for (int i = 0; i < count; ++i) {
                Need(labels[i], "a label");
                all.emplace_back(labels[i]);
            }
            found.SetColumnLabels(all);
        },
        ARG(dialog), ARG(table), LIST(labels, count));
}

ProError ProUITableCellLabelSet(char* dialog, char* table, char* row, char* column,
                                WideChar* label) {
    return Op<"ProUITableCellLabelSet">.Call(
        [&] {
            TableCell& cell = RequireCell(dialog, table, row, column);
            cell.label = label;
        },
        ARG(dialog), ARG(table), ARG(row), ARG(column), GIVEN(label));
}

ProError ProUITableCellLabelGet(char* dialog, char* table, char* row, char* column,
                                WideChar** label) {
    return Op<"ProUITableCellLabelGet">.Call(
        [&] {
            TableCell& cell = RequireCell(dialog, table, row, column);
            *label = Required<Table>(dialog, table).LabelForCaller(cell);
        },
        ARG(dialog), ARG(table), ARG(row), ARG(column), OUT(label));
}

ProError ProUITableCellBackgroundColorSet(char* dialog, char* table, char* row, char* column,
                                          ProUIColorType colour) {
    return Op<"ProUITableCellBackgroundColorSet">.Call(
        [&] { RequireCell(dialog, table, row, column).colour = colour; }, ARG(dialog), ARG(table),
        ARG(row), ARG(column), ARG(colour));
}

ProError ProUITableCellBackgroundColorGet(char* dialog, char* table, char* row, char* column,
                                          ProUIColorType* colour) {
    constexpr int kUsual = 1;
    return Op<"ProUITableCellBackgroundColorGet">.Call(
        [&] {
            const TableCell& cell = RequireCell(dialog, table, row, column);
            *colour = ProUIColorType(cell.colour.value_or(kUsual));
        },
        ARG(dialog), ARG(table), ARG(row), ARG(column), OUT(colour));
}

ProError ProUITableRowCellsSelect(char* dialog, char* table, char* row) {
    return Op<"ProUITableRowCellsSelect">.Call(
        [&] {
            Required<Table>(dialog, table).RequireRow(Name(row, "the row's name")).selected = true;
        },
        ARG(dialog), ARG(table), ARG(row));
}

ProError ProUITableRowCellsDeselect(char* dialog, char* table, char* row) {
    return Op<"ProUITableRowCellsDeselect">.Call(
        [&] {
            Required<Table>(dialog, table).RequireRow(Name(row, "the row's name")).selected = false;
        },
        ARG(dialog), ARG(table), ARG(row));
}

ProError ProUITableSelectionpolicySet(char* dialog, char* table, ProUISelectionpolicy policy) {
    return Op<"ProUITableSelectionpolicySet">.Call(
        [&] { Required<Table>(dialog, table).rowPolicy = policy; }, ARG(dialog), ARG(table),
        ARG(policy));
}

ProError ProUITableColumnselectionpolicySet(char* dialog, char* table,
                                            ProUISelectionpolicy policy) {
    return Op<"ProUITableColumnselectionpolicySet">.Call(
        [&] { Required<Table>(dialog, table).columnPolicy = policy; }, ARG(dialog), ARG(table),
        ARG(policy));
}

ProError ProUITableActivateActionSet(char* dialog, char* table, ProUIAction action,
                                     ProAppData data) {
    return Op<"ProUITableActivateActionSet">.Call(
        [&] {
            Required<Table>(dialog, table).activateAction = {action, data};
        },
        ARG(dialog), ARG(table), ARG(action), ARG(data));
}

ProError ProUITableArmActionSet(char* dialog, char* table, ProUIAction action, ProAppData data) {
    return Op<"ProUITableArmActionSet">.Call(
        [&] {
            Required<Table>(dialog, table).armAction = {action, data};
        },
        ARG(dialog), ARG(table), ARG(action), ARG(data));
}

ProError ProUITableFocusCellGet(char* dialog, char* table, char** row, char** column) {
    return Op<"ProUITableFocusCellGet">.Call(
        [&] {
            Table& found = Required<Table>(dialog, table);
            const Table::FocusedCell& focus = found.RequireFocus();
            *row = found.NameForCaller(focus.row);
            *column = found.NameForCaller(focus.column);
        },
        ARG(dialog), ARG(table), OUT(row), OUT(column));
}

ProError ProUITableCellComponentCopy(char* dialog, char* table, char* row, char* column,
                                     char* fromDialog, char* fromComponent, char* name) {
    return Op<"ProUITableCellComponentCopy">.Call(
        [&] {
            Table& found = Required<Table>(dialog, table);
            Need(fromDialog, "the dialog of the component");
            Need(fromComponent, "the component");
            const Component& from = TheHost().dialogs.Require(fromDialog).Require(fromComponent);
            found.PutComponent(Name(row, "the row's name"), Name(column, "the column's name"), from,
                               Name(name, "the copy's name"));
        },
        ARG(dialog), ARG(table), ARG(row), ARG(column), ARG(fromDialog), ARG(fromComponent),
        ARG(name));
}

ProError ProUITableCellComponentDelete(char* dialog, char* table, char* row, char* column) {
    return Op<"ProUITableCellComponentDelete">.Call(
        [&] {
            Required<Table>(dialog, table)
                .DeleteComponent(Name(row, "the row's name"), Name(column, "the column's name"));
        },
        ARG(dialog), ARG(table), ARG(row), ARG(column));
}
