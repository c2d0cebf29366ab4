// Work of the simulated host that must not grow faster than what it is done to.
#pragma once

#include <string>

// Does one job of so many pieces and prints a line of figures: SaveModels (against writing and
// renaming as many files of the same bytes), LookForModels (files that are not there),
// OpenParameters (one model with so many), InsertRows (one by one, each first), DrawSheet (the
// picture of a sheet with twelve views of an assembly of so many occurrences). False for any other
// job. Throws std::exception.
bool MeasureGrowth(const std::string& job, int pieces);
