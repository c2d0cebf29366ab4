// Items of models: which model each belongs to.
#pragma once

#include "hostapi/host/types.h"

// The model that an item belongs to; of a model's own item, that model.
// PRO_TK_BAD_INPUTS: the item's owner is no live model.
HOST_API ProError ProModelitemMdlGet(ProModelitem* item, ProMdl* model);
