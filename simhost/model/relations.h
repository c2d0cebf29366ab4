// Relations of models: two sets of lines, and what they decide.
#pragma once

#include <optional>
#include <vector>

#include "hostapi/wide.h"

namespace simhost {

struct Relations {
    std::optional<std::vector<WideText>> initial;  // none until somebody makes the set
    std::vector<WideText> afterRegeneration;
};

// Whether one of the lines gives this parameter its value ("MASS = 2 * x"); comments do not count.
bool Decides(const Relations& relations, WideView parameter);

}  // namespace simhost
