// What the user has selected.
#pragma once

#include "hostapi/host/types.h"

// A new array with the selections of the selection buffer, in the order of picking. The caller
// frees the array. PRO_TK_E_NOT_FOUND: nothing is selected.
HOST_API ProError ProSelbufferSelectionsGet(ProSelection** selections);

// The selected item. PRO_TK_BAD_INPUTS: not a live selection.
HOST_API ProError ProSelectionModelitemGet(ProSelection selection, ProModelitem* item);
