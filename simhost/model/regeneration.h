// Bringing models up to date.
#pragma once

#include "simhost/model/model.h"

namespace simhost {

// What follows from other values of a model follows them: the solids of groups and merges, the
// developed length of sheet metal, the places of components. What lies below comes along, each
// model once.
void Regenerate(Model& model);

}  // namespace simhost
