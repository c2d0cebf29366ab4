// Tables of dialogs, by the names of their rows and columns.
#pragma once

#include <string>
#include <vector>

#include "hostapi/host.h"

// A table of a dialog. Holds the two names and nothing else: every member is one call of the host
// at the moment at which it is called, but for the arrays of names, which are given back at once.
// Failed calls give empty answers. As with Dialog, no two members are called in one expression.
class Table {
public:
    constexpr Table(const char* dialog, const char* name) : dialog_(dialog), name_(name) {}

    void OnActivate(ProUIAction action) const;  // a double click on a cell
    void OnPick(ProUIAction action) const;      // the picking of a cell, which gets the focus
    void SetSelectionPolicy(ProUISelectionpolicy policy) const;  // of rows
    void SetColumnSelectionPolicy(ProUISelectionpolicy policy) const;

    // --- Columns ---
    std::vector<WideText> ColumnLabels() const;
    std::vector<std::string> ColumnNames() const;
    // Inserts columns after one that is there. False if that failed.
    bool InsertColumns(const char* after, std::vector<std::string> names) const;
    void DeleteColumns(std::vector<std::string> names) const;
    void SetColumnLabels(const std::vector<WideText>& labels) const;

    // --- Rows ---
    int RowCount() const;
    std::vector<std::string> RowNames() const;
    // The last of them, whatever their number; empty without rows.
    std::string LastRow() const;
    // The row of the cell that has the focus; empty if none has.
    std::string FocusedRow() const;
    // The first of the selected rows; empty if none is selected.
    std::string FirstSelectedRow() const;
    std::vector<std::string> SelectedRows() const;
    void SelectRow(const std::string& row) const;
    void DeselectRow(const std::string& row) const;
    // Inserts a row after another; an empty `after` makes it the first. False if that failed.
    bool InsertRow(const std::string& after, const std::string& name) const;
    // Asks for the names of all rows, and deletes them if there are any.
    void DeleteAllRows() const;

    // --- Cells ---
    WideText CellText(const std::string& row, const std::string& column) const;
    void SetCellText(const std::string& row, const std::string& column, const WideText& text) const;
    // Puts a copy of a component of the same dialog, under a name of its own, into an empty cell.
    void CopyIntoCell(const std::string& row, const std::string& column, const char* component,
                      const std::string& copyName) const;
    void DeleteFromCell(const std::string& row, const std::string& column) const;
    // The background colour; the first of the palette after a failed call.
    ProUIColorType CellColour(const std::string& row, const std::string& column) const;
    void SetCellColour(const std::string& row, const std::string& column,
                       ProUIColorType colour) const;

private:
    const char* dialog_;
    const char* name_;
};
