// Items of models: which model each belongs to, and whether the user sees it.
#pragma once

#include "hostapi/host/types.h"

// The model that an item belongs to; of a model's own item, that model.
// PRO_TK_BAD_INPUTS: the item's owner is no live model.
HOST_API ProError ProModelitemMdlGet(ProModelitem* item, ProMdl* model);

// Hides an item on the screen, or shows it again. A component is hidden in the assembly that
// directly holds it, so in every use of that assembly; what is below it is hidden with it. Nothing
// else of the model changes, and nothing of it is saved.
HOST_API ProError ProModelitemHide(ProModelitem* item);
HOST_API ProError ProModelitemUnhide(ProModelitem* item);

// Whether the item itself is hidden, whatever is above it.
HOST_API ProError ProModelitemIsHidden(ProModelitem* item, ProBoolean* hidden);
