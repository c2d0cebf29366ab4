// What a caller asks of the files that are written for other systems, until the session ends: the
// host frees these records itself.
#pragma once

#include <string>

#include "simhost/core/owned_handles.h"

namespace simhost {

struct OutputInclusion {
    bool datums = false;
    bool blanked = false;  // hidden components
    bool facetted = false;
};
struct OutputLayers {
    bool autoId = false;
};

struct OutputRecords {
    OwnedHandles<OutputInclusion> inclusions{HandleKind::OutputInclusion};
    OwnedHandles<OutputLayers> layers{HandleKind::OutputLayers};
};

// As the journal says it: "inclusion of datums, blanked, facetted", as far as it is so.
std::string TextOf(const OutputInclusion& inclusion);
std::string TextOf(const OutputLayers& layers);

}  // namespace simhost
