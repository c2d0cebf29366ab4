// The sheet sizes of a drawing as a text.
#pragma once

#include <vector>

#include "hostapi/wide.h"

// "A3,A4"; empty for no sheets.
WideText SheetSizeText(const std::vector<WideText>& sizes);
