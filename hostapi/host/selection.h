// What the user has selected.
#pragma once

#include "hostapi/host/types.h"

// A new array with the selections of the selection buffer, in the order of picking. The caller
// frees the array. PRO_TK_E_NOT_FOUND: nothing is selected.
// Assumed (frees, 20 %): the array is the caller's, its selections are the host's. If those are the
//   caller's too, each press leaves some
HOST_API ProError ProSelbufferSelectionsGet(ProSelection** selections);

// The selected item. PRO_TK_BAD_INPUTS: not a live selection.
HOST_API ProError ProSelectionModelitemGet(ProSelection selection, ProModelitem* item);
