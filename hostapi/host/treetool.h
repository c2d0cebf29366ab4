// The model tree, which shows the components and features of a model.
#pragma once

#include "hostapi/host/types.h"

// Shows the model's tree afresh.
HOST_API ProError ProTreetoolRefresh(ProMdl model);
