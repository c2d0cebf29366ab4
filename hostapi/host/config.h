// The host's configuration options.
#pragma once

#include "hostapi/host/types.h"

// A new array with all values of an option, one empty text for an option that is set to nothing.
// The caller frees the array. PRO_TK_E_NOT_FOUND: the option is not set.
// Assumed (frees, 70 %): a new array of paths that the caller frees
// Assumed (behaviour, 60 %): what is in the array is good until the next call about an option
HOST_API ProError ProConfigoptArrayGet(WideChar* option, ProPath** values);

// Gives an option this value and no other; it may be the empty text.
// Assumed (behaviour, 60 %): it takes the place of all values that the option had; the empty text
//   is taken, and is not the same as an option that is not set
HOST_API ProError ProConfigoptSet(WideChar* option, WideChar* value);
