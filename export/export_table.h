// The table of the dialog VxExport: its names, its columns, and what its rows hold.
#pragma once

#include <vector>

#include "frame/services.h"

inline constexpr Dialog kExportDialog = "VxExport";
inline constexpr Table kExportTable{"VxExport", "drw_list"};

// The panels of the file names' pattern.
inline constexpr const char* kNamePanel = "Export_name";
inline constexpr const char* kSeparatorPanel = "separator";

// The columns that are always there; those of the parameters come after the drawing's name.
inline constexpr const char* kDrawingColumn = "drw_name";
inline constexpr const char* kSizeColumn = "sheet_size";
inline constexpr const char* kSheetsColumn = "sheets";

// A column for each parameter, and the labels of all.
void AddParameterColumns(const std::vector<WideText>& parameters);
void DeleteParameterColumns();

// A row at the end; `number` counts rows from 1.
void AddDrawingRow(int number, const WideText& drawing);

// Rows and columns can be selected as the user likes, several at once.
void AllowSelection();

// The buttons that fill cells.
void OnLoadParameters(char* dialog, char* component, ProAppData data);
void OnLoadDrawingInfo(char* dialog, char* component, ProAppData data);
