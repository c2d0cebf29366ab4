// A table of a dialog as a new workbook: a title over all columns, labels, and rows of cells.
#pragma once

#include <vector>

#include "tables/excel.h"

// The most columns that there are letters for.
inline constexpr std::size_t kMostSheetColumns = 26;

// A new workbook and the way to its first sheet.
struct Workbook {
    excel::Object application, workbooks, workbook, sheets, sheet;
};

// A new workbook in an application of its own. False: there is no application, and the user was
// told.
bool MakeWorkbook(Workbook* made);

// The title in row 1, yellow, over as many columns as there are labels, and the labels in row 2.
void WriteTitle(const Workbook& book, const WideText& title, std::size_t columns);
void WriteLabels(const Workbook& book, const std::vector<WideText>& labels);

// One cell; columns and rows of the sheet, columns from 0 and rows from 1.
excel::Object SheetCell(const Workbook& book, std::size_t column, int row);

// Fits columns and rows, saves a copy under this path, and quits the application.
void SaveAndQuit(Workbook* book, const WideText& path);
