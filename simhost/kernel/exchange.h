// Models of the session as documents for the geometry kernel.
#pragma once

#include "simhost/kernel/document.h"
#include "simhost/model/model.h"

namespace simhost {

struct OutputInclusion;

// A part, or an assembly with all that is there: what is suppressed, invisible, not in memory or
// excluded by its active representation is left out, and what the user has hidden as well if a
// record says so; null: no record. Each model is one product however often it is used, and one for
// each way in which a representation thins it out.
kernel::Document DocumentOf(const Model& top, const OutputInclusion* inclusion);

}  // namespace simhost
