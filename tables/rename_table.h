// The table of the dialog VxRename: its names, its rows, and what is typed into them.
#pragma once

#include <string>
#include <vector>

#include "frame/services.h"

inline constexpr Dialog kRenameDialog = "VxRename";
inline constexpr Table kRenameTable{"VxRename", "mdl_list"};

// The columns, from the left.
inline constexpr const char* kNumberColumn = "num";
inline constexpr const char* kOldNameColumn = "old_name";
inline constexpr const char* kTypeColumn = "type";
inline constexpr const char* kNewNameColumn = "new_name";
inline constexpr const char* kRenameColumns[] = {kNumberColumn, kOldNameColumn, kTypeColumn,
                                                 kNewNameColumn};

// What the type column says of the two kinds of models; the other kinds have no text.
inline constexpr const WideChar* kAssemblyText = WIDE("asm");
inline constexpr const WideChar* kPartText = WIDE("prt");

// The longest name that a model can be given.
inline constexpr std::size_t kLongestName = 32;

// The filter of a setting as it is kept: a full-width comma is a comma, and a blank is a
// terminator, after which the text goes on.
WideText StoredRenameFilter(const WideText& value);

// The items of such a filter, each a prefix of names that are left out. A terminator ends the list:
// what it is part of makes one item of its whole length, which no name begins with.
std::vector<WideText> SplitRenameFilter(WideView list);

// How a row gets its field for the new name.
enum class NewNames { InPanels, Missing };

// Rows for these models, in their order, but for those whose names begin with an item of the
// filter. The items are compared in small letters and the names as they are.
void FillRenameTable(const std::vector<ProMdl>& models, std::vector<WideText> filter,
                     NewNames newNames);

// Puts a field with this text, of the name `panel`, into a row's cell for the new name.
void PutNewNamePanel(const std::string& row, const std::string& panel, const WideText& text);
std::string OpenedPanel(const std::string& row);    // of a row that came from the assembly
std::string ImportedPanel(const std::string& row);  // of a row that came from a spreadsheet

// The new name of a row without its blanks, empty where the row has no field; the status of the
// last field that was asked for.
ProError ReadNewName(const std::string& row, WideText* name);

// Shows the model of the row that has the focus.
void OnPickRow(char* dialog, char* component, ProAppData data);
