// Items of models: which model each belongs to, and whether the user sees it.
#pragma once

#include "hostapi/host/types.h"

// The model that an item belongs to; of a model's own item, that model.
// PRO_TK_BAD_INPUTS: the item's owner is no live model.
HOST_API ProError ProModelitemMdlGet(ProModelitem* item, ProMdl* model);

// Receives the item's name, of up to 32 characters as that of a model; of a coordinate system the
// name of its feature. PRO_TK_E_NOT_FOUND: it has none.
HOST_API ProError ProModelitemNameGet(ProModelitem* item, ProName name);

// Hides an item on the screen, or shows it again. A component is hidden in the assembly that
// directly holds it, so in every use of that assembly; what is below it is hidden with it. Nothing
// else of the model changes, and nothing of it is saved.
HOST_API ProError ProModelitemHide(ProModelitem* item);
HOST_API ProError ProModelitemUnhide(ProModelitem* item);

// Whether the item itself is hidden, whatever is above it.
HOST_API ProError ProModelitemIsHidden(ProModelitem* item, ProBoolean* hidden);
