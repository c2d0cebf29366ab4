// Arithmetic of frames beside what shapes need: their inverse, and whether two are the same.
#pragma once

#include "simhost/model/geometry.h"

namespace simhost {

// The parent, given in the frame: the way back.
Placement Inverse(const Placement& frame);

// Up to what is lost when angles are written and read.
bool IsSamePlace(const Placement& a, const Placement& b);

// Whether the axes are at right angles, of length 1 and right-handed.
bool IsRotation(const Placement& frame);

}  // namespace simhost
