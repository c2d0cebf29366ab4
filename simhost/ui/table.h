// Tables. Attributes of the resource:
//
//     (List.ColumnNames     "num" "name")
//     (List.ColumnLabels    "No." "Name")     ! the names where there are none
//     (List.VisibleRows     12)               ! lines that are seen at once
//     (List.Columns         60)               ! width in characters at least
//
// A user selects and double-clicks cells by the names of row and column:
//
//     ~ Select `VxBom` `bom_list` 2 `3` `num`
//     ~ Activate `VxBom` `bom_list` 2 `3` `num`
#pragma once

#include <list>
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
    // The labels as an array that lives as long as the dialog; null for none.
    WideChar** RowLabelsForCaller();
    WideChar** ColumnLabelsForCaller();

    // --- The user's side; null if there is none of this name ---
    const TableRow* FindRow(const std::string& row) const;
    const TableColumn* FindColumn(const std::string& nameOrLabel) const;
    const TableCell* FindCell(const std::string& row, const std::string& nameOrLabel) const;
    // Every row as a line of text below the labels; a row with a coloured cell begins with *.
    std::vector<std::string> Lines(std::size_t most) const;
    std::vector<std::string> Picture() const override;
    std::string State() const override;

protected:
    // ~ Select, ~ Activate
    std::string Act(Verb verb, const std::vector<std::string>& arguments) override;

private:
    using Row = std::list<TableRow>::iterator;
    Row RowNamed(const std::string& row) const;                // refuses
    std::size_t ColumnIndex(const std::string& column) const;  // refuses
    std::string SelectRow(const std::vector<std::string>& cell);
    WideChar** Lend(std::vector<WideText> labels);

    std::vector<TableColumn> columns_;
    // A list, because rows come one by one, wherever they belong.
    std::list<TableRow> rows_;
    std::unordered_map<std::string, Row> rowAt_;
    int visibleRows_ = 8;
    int width_ = 40;
    struct Lent {
        std::vector<WideText> texts;
        std::vector<WideChar*> array;
    };
    std::vector<Lent> lent_;
};

}  // namespace simhost
