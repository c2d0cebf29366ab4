// Picks that commands ask the user for.
#pragma once

#include "hostapi/host.h"

// Lets the user pick any number of items that the filter names, by a box too. False: the user left
// it, or the host could not ask. The array is the host's, until the next pick; null if nothing was
// picked.
bool PickByBox(const char* filter, ProSelection** selections, int* count);
