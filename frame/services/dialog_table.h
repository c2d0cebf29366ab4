// What the tables of dialogs hold, by the names of their rows and columns. Failed calls leave
// nothing behind but empty answers.
#pragma once

#include <string>
#include <vector>

#include "hostapi/host.h"

std::vector<WideText> TableColumnLabels(const char* dialog, const char* table);
std::vector<std::string> TableColumnNames(const char* dialog, const char* table);
int TableRowCount(const char* dialog, const char* table);
void DeleteAllTableRows(const char* dialog, const char* table);

// The first of the selected rows; empty if none is selected.
std::string FirstSelectedRow(const char* dialog, const char* table);

WideText TableCellText(const char* dialog, const char* table, const std::string& row,
                       const std::string& column);
void SetTableCellText(const char* dialog, const char* table, const std::string& row,
                      const std::string& column, const WideText& text);

// The colour behind a cell's text; the first of the palette after a failed call.
ProUIColorType TableCellColour(const char* dialog, const char* table, const std::string& row,
                               const std::string& column);
