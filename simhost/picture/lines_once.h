// Lines of a sheet that lie on one another are drawn once.
#pragma once

#include <vector>

#include "simhost/model/projection.h"

namespace simhost {

// Pictures write hundredths of a mm, and the thinnest pen is more than ten times as wide: lines (in
// mm of the sheet) that are no further apart cannot be told from each other.
constexpr double kSameLine = 0.01;

// Parts in one place, and edges behind one another, give the same line many times, whole or in
// part. Lines that overlap become one; of a hidden line, only what no visible one covers is left.
// Lines that merely meet end to end stay as they are. Each line keeps the place in the order, and
// the direction, of the first one that it is made of.
void KeepEachLineOnce(std::vector<DrawnLine>* lines);

}  // namespace simhost
