// Tables. Attributes of the resource:
//
//     (List.ColumnNames     "num" "name")
//     (List.ColumnLabels    "No." "Name")     ! the names where there are none
//     (List.VisibleRows     12)               ! lines that are seen at once
//     (List.Columns         60)               ! width in characters at least
//
// A user selects, double-clicks and picks cells by the names of row and column; several cells are
// selected together where the plug-in lets several rows be selected, and none takes the selection
// away:
//
//     ~ Select `VxBom` `bom_list` 2 `3` `num`
//     ~ Activate `VxBom` `bom_list` 2 `3` `num`
//     ~ Arm `VxRename` `mdl_list` 2 `3` `num`
//     ~ Select `VxExport` `drw_list` 4 `3` `num` `5` `num`
//
// A component in a cell is used by its own name.
#pragma once

#include <deque>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "simhost/ui/component.h"

namespace simhost {

struct TableColumn {
    std::string name;  // UTF-8
    WideText label;
};

struct TableCell {
    WideText label;
    std::optional<int> colour;  // the background; none: the usual one
    std::unique_ptr<Component> component = {};

    // What is seen in the cell.
    std::string Shown() const;
};

struct TableRow {
    std::string name;  // UTF-8
    WideText label;
    bool selected = false;
    std::vector<TableCell> cells;  // one for each column
};

class Table : public Component {
public:
    static constexpr const char* kKind = "Table";
    Table(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource);

    const std::vector<TableColumn>& columns() const { return columns_; }
    const std::list<TableRow>& rows() const { return rows_; }
    int visibleRows() const { return visibleRows_; }
    int widthInCharacters() const { return width_; }
    DialogAction activateAction;
    DialogAction armAction;
    int rowPolicy = 0;
    int columnPolicy = 0;

    // --- The plug-in's side; failures are refusals ---
    void InsertRows(std::string_view after, const std::vector<std::string>& names);
    void InsertColumns(std::string_view after, const std::vector<std::string>& names);
    void DeleteRows(const std::vector<std::string>& names);
    void DeleteColumns(const std::vector<std::string>& names);
    void SetColumnLabels(const std::vector<WideText>& labels);
    TableRow& RequireRow(const std::string& row);
    TableCell& RequireCell(const std::string& row, const std::string& column);
    // A copy of a component in an empty cell.
    void PutComponent(const std::string& row, const std::string& column, const Component& from,
                      const std::string& copyName);
    void DeleteComponent(const std::string& row, const std::string& column);
    // The cell that the user works in; refused if there is none.
    struct FocusedCell {
        std::string row, column;
    };
    const FocusedCell& RequireFocus() const;
    const std::optional<FocusedCell>& focus() const { return focus_; }
    // A cell's label, and the names of the focused cell, at places that live as long as the dialog.
    WideChar* LabelForCaller(const TableCell& cell);
    char* NameForCaller(const std::string& name);
    // The names of all rows in the system's code page, kept, because whoever fills a table may ask
    // for them before each new row. Valid until rows come or go.
    const std::vector<std::string>& RowNamesForCaller();
    // The labels as an array that lives as long as the dialog; null for none.
    WideChar** RowLabelsForCaller();
    WideChar** ColumnLabelsForCaller();

    // --- The user's side; null if there is none of this name ---
    void FocusCell(const std::string& row, const std::string& column) { focus_ = {row, column}; }
    const TableRow* FindRow(const std::string& row) const;
    const TableColumn* FindColumn(const std::string& nameOrLabel) const;
    const TableCell* FindCell(const std::string& row, const std::string& nameOrLabel) const;
    // Every row as a line of text below the labels; a row with a coloured cell begins with *.
    std::vector<std::string> Lines(std::size_t most) const;
    std::vector<std::string> Picture() const override;
    std::string State() const override;

protected:
    // ~ Select, ~ Activate, ~ Arm
    std::string Act(Verb verb, const std::vector<std::string>& arguments) override;

private:
    using Row = std::list<TableRow>::iterator;
    Row RowNamed(const std::string& row) const;                // refuses
    std::size_t ColumnIndex(const std::string& column) const;  // refuses
    void Forget(TableCell& cell);
    // Empty, or why there is no such cell.
    std::string CellProblem(const std::string& row, const std::string& column) const;
    std::string SelectRows(const std::vector<std::string>& cells);
    std::string ArmCell(const std::string& row, const std::string& column);
    WideChar** Lend(std::vector<WideText> labels);

    std::vector<TableColumn> columns_;
    // A list, because rows come one by one, wherever they belong.
    std::list<TableRow> rows_;
    std::unordered_map<std::string, Row> rowAt_;
    std::optional<std::vector<std::string>> rowNames_;  // nothing: not known any more
    int visibleRows_ = 8;
    int width_ = 40;
    struct Lent {
        std::vector<WideText> texts;
        std::vector<WideChar*> array;
    };
    std::vector<Lent> lent_;
    std::deque<WideText> lentLabels_;
    std::deque<std::string> lentNames_;
    std::optional<FocusedCell> focus_;
};

}  // namespace simhost
