// The values of parameters as tables and file names show them.
#pragma once

#include <optional>

#include "hostapi/host.h"

// Real numbers with three decimals, texts as they are, whole numbers, and 是 or 否. Nothing for a
// value of another type.
std::optional<WideText> ParameterText(const ProParamvalue& value);
