// The host's configuration options.
#pragma once

#include <optional>

#include "hostapi/host.h"

// The first value of an option. Nothing where it is not set, or has no value.
std::optional<WideText> FirstOptionValue(const WideChar* option);
