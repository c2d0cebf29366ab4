// Tables in dialogs: rows and columns have names, columns and cells have labels. Arrays of names
// that are received are the caller's, who frees them with ProStringarrayFree; labels stay the
// host's, those of cells until the cell changes, those of rows and columns as long as the dialog.
#pragma once

#include "hostapi/host/dialog.h"

// Assumed (codes, 35 %): a code of the host's palette of interface colours; the usual colour is not
//   17. Whether number or enumeration, 17 is handed over as a cast
enum ProUIColorType : int {};  // an entry of the host's palette of interface colours

// Which rows or columns the user may select.
typedef enum : int {
    PROUISELPOLICY_SINGLE = 0,
    PROUISELPOLICY_BROWSE = 1,
    PROUISELPOLICY_MULTIPLE = 2,
    PROUISELPOLICY_EXTENDED = 3
} ProUISelectionpolicy;

// Insert after the row or column of this name, or before all others with an empty one.
// PRO_TK_E_NOT_FOUND: there is none of this name. PRO_TK_E_FOUND: a new name is there already.
// Assumed (parameters, 80 %): in the order dialog, table, name to come after (narrow; empty: before
//   all), count, names; columns alike
HOST_API ProError ProUITableRowsInsert(char* dialog, char* table, char* after, int count,
                                       char** names);
HOST_API ProError ProUITableColumnsInsert(char* dialog, char* table, char* after, int count,
                                          char** names);
// PRO_TK_E_NOT_FOUND: there is none of one of these names; nothing is deleted.
HOST_API ProError ProUITableRowsDelete(char* dialog, char* table, int count, char** names);
HOST_API ProError ProUITableColumnsDelete(char* dialog, char* table, int count, char** names);

// In the order of the table; null for none.
// Assumed (frees, 80 %): the array is the caller's, who frees it with ProStringarrayFree (array,
//   count); null for no names
HOST_API ProError ProUITableRownamesGet(char* dialog, char* table, int* count, char*** names);
HOST_API ProError ProUITableColumnnamesGet(char* dialog, char* table, int* count, char*** names);

// One label for each row or column; where none was set it is empty (columns: the name).
// Assumed (frees, 20 %): labels stay the host's; there is one for each row even where none was set.
//   If the caller frees them, each export leaves the texts of the table behind; so with labels of
//   columns
HOST_API ProError ProUITableRowlabelsGet(char* dialog, char* table, int* count, WideChar*** labels);
HOST_API ProError ProUITableColumnlabelsGet(char* dialog, char* table, int* count,
                                            WideChar*** labels);
// The labels of the first `count` columns.
HOST_API ProError ProUITableColumnlabelsSet(char* dialog, char* table, int count,
                                            WideChar** labels);

// The text of a cell. PRO_TK_E_NOT_FOUND: no such row or column.
HOST_API ProError ProUITableCellLabelSet(char* dialog, char* table, char* row, char* column,
                                         WideChar* label);
// Assumed (frees, 20 %): the label stays the host's
HOST_API ProError ProUITableCellLabelGet(char* dialog, char* table, char* row, char* column,
                                         WideChar** label);
// The cell's background; what it is where none was set is up to the host.
HOST_API ProError ProUITableCellBackgroundColorSet(char* dialog, char* table, char* row,
                                                   char* column, ProUIColorType colour);
HOST_API ProError ProUITableCellBackgroundColorGet(char* dialog, char* table, char* row,
                                                   char* column, ProUIColorType* colour);

// Names of the selected rows, in the order of the table; null for none.
// Assumed (behaviour, 50 %): gives names of rows, in the order of the table. If it names cells, a
//   double click finds no row
HOST_API ProError ProUITableSelectednamesGet(char* dialog, char* table, int* count, char*** names);
HOST_API ProError ProUITableRowCellsSelect(char* dialog, char* table, char* row);
HOST_API ProError ProUITableRowCellsDeselect(char* dialog, char* table, char* row);
HOST_API ProError ProUITableSelectionpolicySet(char* dialog, char* table,
                                               ProUISelectionpolicy policy);
HOST_API ProError ProUITableColumnselectionpolicySet(char* dialog, char* table,
                                                     ProUISelectionpolicy policy);

// Called when the user double-clicks a cell.
// Assumed (behaviour, 80 %): runs for what the user does, not for what the plug-in sets
HOST_API ProError ProUITableActivateActionSet(char* dialog, char* table, ProUIAction action,
                                              ProAppData data);
// Called when the user picks a cell, which has the focus by then.
// Assumed (behaviour, 60 %): runs for a pick on the cell itself; a component in the cell takes the
//   pick and has an action of its own
HOST_API ProError ProUITableArmActionSet(char* dialog, char* table, ProUIAction action,
                                         ProAppData data);

// Receives the names of the row and column of the cell that the user works in; they stay the
// host's. PRO_TK_E_NOT_FOUND: there is none.
// Assumed (frees, 40 %): the two names stay the host's. If the caller frees them, each pick leaves
//   a few bytes
// Assumed (behaviour, 60 %): a component in a cell that gets the focus makes its cell this one
HOST_API ProError ProUITableFocusCellGet(char* dialog, char* table, char** row, char** column);

// Makes a copy of a component, which may be one of another dialog, with all that it shows and
// holds, in an empty cell; `name` is the copy's own, by which the dialog knows it from then on. It
// has none of the component's actions, and goes with its row or column.
// PRO_TK_E_FOUND: the cell holds a component, or the dialog knows one of that name.
// PRO_TK_E_NOT_FOUND: no such cell or component.
// Assumed (parameters, 70 %): in the order dialog, table, row, column, the dialog and the component
//   that is copied, name of the copy; all narrow
HOST_API ProError ProUITableCellComponentCopy(char* dialog, char* table, char* row, char* column,
                                              char* fromDialog, char* fromComponent, char* name);

// Takes the component out of a cell. PRO_TK_E_NOT_FOUND: no such cell, or nothing is in it.
// Assumed (parameters, 60 %): takes dialog, table, row and column, not the component's own name
HOST_API ProError ProUITableCellComponentDelete(char* dialog, char* table, char* row, char* column);
