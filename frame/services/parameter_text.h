// The values of parameters as tables and file names show them.
#pragma once

#include <optional>

#include "hostapi/host.h"

// Real numbers with three decimals, texts as they are, whole numbers, and 是 (1) or 否 (0). Nothing
// for a value of another type, and for a flag that is neither.
std::optional<WideText> ParameterText(const ProParamvalue& value);

// The same of the parameter of that name, whatever the host says of its two calls as long as it
// names the parameter. Nothing where it names none, and for a name that no parameter can have.
std::optional<WideText> ReadParameterText(ProModelitem* item, const WideText& name);
