// The sheets of a drawing, as far as their sizes go.
#pragma once

#include <vector>

#include "hostapi/wide.h"

namespace simhost {

struct DrawingSheets {
    std::vector<WideText> sizes;  // "A3"; one for each sheet
};

}  // namespace simhost
