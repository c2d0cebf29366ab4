// The names of exported files, as the user's pattern composes them.
#pragma once

#include <vector>

#include "hostapi/host.h"

// What the user wrote: the items of the pattern, and what stands between them.
struct NamePattern {
    std::vector<WideText> items;
    WideText separator;
};

// The pattern by the texts of its two panels. The separator is a blank if nothing was written, and
// nothing if it was NULL in whatever letters.
NamePattern ReadNamePattern(const WideText& items, const WideText& separator);

// The name of a drawing's file: sheetsize is the size of its first sheet, 图纸名称 its name, any
// other item a parameter of `solid`.
WideText BuildExportName(const NamePattern& pattern, ProDrawing drawing, const WideText& name,
                         ProSolid solid);

// The name of the file of one sheet: sheetsize is the size of that sheet, 图纸名称 the name of
// `solid`, which is what its first view shows.
WideText BuildSheetName(const NamePattern& pattern, ProDrawing drawing, int sheet, ProSolid solid);
