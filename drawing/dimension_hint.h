// Which way a dimension between two points is meant to run, by where its text is put.
#pragma once

#include "hostapi/host.h"

// 3 (straight) for a click between the points in both directions, 2 (across) for one above or below
// both, 1 (upwards) for one beside both. `hint` as it is for any other, and where no coordinate of
// the points is 0.001 or more: then nothing is known of them.
int OrientationHint(const double* first, const double* second, const double* click, int hint);
