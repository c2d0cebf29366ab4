// Column lists: settings that name the columns of a table, or the pieces of a file name, between
// commas.
#pragma once

#include <vector>

#include "hostapi/wide.h"

// The labels of a setting's value, without empty pieces. A full-width comma is a comma. A blank
// ends the list: what follows makes one last item with the text before the blank, which
// may be empty. "a,b c,d" is a and b; "a, b" is a and an item without a text; "a,,b," is a and b.
std::vector<WideText> SplitColumnList(const WideText& value);
