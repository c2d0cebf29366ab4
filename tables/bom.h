// VxBom: the bill of materials of the current assembly in a table, summed over the whole assembly
// or level by level.
#pragma once

void VxBom();
