// Bringing models up to date.
#pragma once

#include "simhost/model/model.h"

namespace simhost {

// What follows from other values of a model follows them: of sheet metal the developed length, of
// an assembly the places of its components. What lies below comes along, each model once.
void Regenerate(Model& model);

}  // namespace simhost
