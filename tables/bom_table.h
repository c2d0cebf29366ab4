// The table of the dialog VxBom: its names, its columns, and how its rows are filled.
#pragma once

#include <string>
#include <vector>

#include "frame/services.h"

inline constexpr Dialog kBomDialog = "VxBom";
inline constexpr Table kBomTable{"VxBom", "bom_list"};

// The background of the cells of assemblies. It is read back as the mark of an assembly.
inline constexpr auto kAssemblyColour = ProUIColorType(17);

// The label of the column that holds the names of models.
inline constexpr const WideChar* kModelNameLabel = WIDE("模型名称");

// The name of the column at a position: the running number, then one for each item of the settings.
std::string BomColumn(std::size_t position);

// Fill the empty table by the labels of its columns. Without an assembly there are no rows.
// One row for each model of the assembly, itself included, with its number in the whole of it.
void FillFlatBom(ProMdl assembly, const std::vector<WideText>& labels);
// One row for each place of the tree, down to `depth` levels below the assembly.
void FillLevelBom(ProMdl assembly, int depth, const std::vector<WideText>& labels);
