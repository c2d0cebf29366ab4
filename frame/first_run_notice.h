// The notice of the first three loads.
#pragma once

#include "hostapi/host.h"

// Shows the notice `VxInit.res` on the first three loads for a user, and opens the home page after
// it. Returns the status of the dialog's failed call; the notice is then shown again next time.
ProError FirstRunNotice();
