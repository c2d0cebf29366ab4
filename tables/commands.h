// The commands of this room: an assembly as a table.
#pragma once

// Opens the bill of materials of the current assembly, summed or level by level; it goes out to a
// spreadsheet from there.
void VxBom();

// Opens the table of the models below the current assembly, in which they are given new names; it
// goes out to a spreadsheet and comes back from one.
void VxRename();
