// The text of a model's outline size, such as 120×80×30.
#pragma once

#include <array>

#include "hostapi/wide.h"

using OutlineExtents = std::array<double, 3>;  // along x, y and z

enum class OutlineOrder { AsModelled, LargestFirst };

// One extent with at most this many decimal places, and six significant digits in all: trailing
// zeros are dropped. 12.5 for 12.500, 1234.57 for 1234.568, 1e+06 for 1000000.
WideText ExtentText(double extent, int decimalPlaces);

// The three extents with × between them.
WideText OutlineText(const OutlineExtents& extents, int decimalPlaces, OutlineOrder order);

// The decimal places that a text names; 0 for what cannot be read, and no more than are of use.
int DecimalPlaces(WideView text);
