// The host's configuration options, as its config.pro sets them.
#pragma once

#include <map>
#include <vector>

#include "hostapi/wide.h"

namespace simhost {

// Values by the option's name in small letters; an option can have several.
using ConfigOptions = std::map<WideText, std::vector<WideText>>;

}  // namespace simhost
