// The model tree, which shows the components and features of a model.
#pragma once

#include "hostapi/host/types.h"

// Refreshes the model's tree.
HOST_API ProError ProTreetoolRefresh(ProMdl model);
