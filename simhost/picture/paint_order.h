// The order in which a picture is painted, so that what is nearer covers what is behind it.
#pragma once

#include <vector>

#include "simhost/picture/patches.h"

namespace simhost {

// The patches from the back to the front. Those that pass through each other come back in pieces,
// and those that others hide are left out.
std::vector<Patch> PaintOrder(std::vector<Patch> patches);

}  // namespace simhost
