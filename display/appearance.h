// How parts look: the record of an appearance, and taking the surfaces' own appearances away.
#pragma once

#include "hostapi/host.h"

// All values 0 to 1, as the host's surface property calls take them.
using AppearanceRecord = ProdbSurfaceProps;

// Leaves every surface of the part with the appearance of the part as a whole.
void ClearSurfaceOverrides(ProMdl part);
