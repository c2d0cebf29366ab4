// What a model leads to, and the trees that no CAD system would have made: they could only come
// from a file that a person wrote, and every walk would run in them for ever.
#pragma once

#include "simhost/model/model.h"

namespace simhost {

// So many models can be nested below a top one.
inline constexpr int kMostLevels = 1000;

// Checks a model and all that lies below it, as far as it is in memory: an assembly does not
// contain itself, nor is an instance its own generic, at whatever depth; components are parts and
// assemblies, a manufacturing model has an assembly, a generic is of its instance's kind; nesting
// ends at kMostLevels. Throws ModelFileError, which names the models on the way: "a.asm contains
// itself: a.asm > b.asm > a.asm".
void CheckTree(Model& top);

// Whether `wanted` is the model or lies below it.
bool Contains(const Model& model, const Model& wanted);

}  // namespace simhost
