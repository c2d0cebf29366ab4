// What the host hands out and this module does not free: a function for each kind, called when the
// last look at it has been taken. The headers in hostapi/host/ say how likely it is that the host
// frees it (Assumed, frees). Memory that nobody frees is a smaller evil than memory that two free;
// if a kit says that one of these is the caller's, its release is the one line of its function.
#pragma once

#include "hostapi/host.h"

// The text of an input panel, option menu or text area: see ProUIInputpanelValueGet.
inline void LeaveText(WideChar* /*text*/) {}

// The selected names of a radio group: see ProUIRadiogroupSelectednamesGet.
inline void LeaveNames(char** /*names*/, int /*count*/) {}

// The labels of a table's rows or columns, and of a cell: see ProUITableRowlabelsGet and
// ProUITableCellLabelGet.
inline void LeaveLabels(WideChar** /*labels*/, int /*count*/) {}
inline void LeaveLabel(WideChar* /*label*/) {}

// The names of the cell that the user works in: see ProUITableFocusCellGet.
inline void LeaveFocusCell(char* /*row*/, char* /*column*/) {}

// The selections in the array of ProSelbufferSelectionsGet; the array is another matter.
inline void LeaveSelections(ProSelection* /*selections*/) {}

// What a template is reported to lack: see ProDrawingFromTmpltCreate.
inline void LeaveTemplateErrors(ProDwgcreateErrs /*errors*/) {}
