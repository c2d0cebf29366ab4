// The commands of this room: an assembly as a table.
#pragma once

// Opens the bill of materials of the current assembly, summed or level by level; it goes out to a
// spreadsheet from there.
void VxBom();
