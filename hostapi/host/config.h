// The host's configuration options.
#pragma once

#include "hostapi/host/types.h"

// A new array with all values of an option, one empty text for an option that is set to nothing.
// The caller frees the array. PRO_TK_E_NOT_FOUND: the option is not set.
// Assumed (frees, 70 %): a new array of paths that the caller frees
// Assumed (behaviour, 60 %): what is in the array is good until the next call about an option
HOST_API ProError ProConfigoptArrayGet(WideChar* option, ProPath** values);

// Receives the first value of an option, which may be the empty text.
// PRO_TK_E_NOT_FOUND: the option is not set.
// Assumed (length, 60 %): a path's 260 characters are enough for a value
HOST_API ProError ProConfigoptGet(WideChar* option, ProPath value);

// Gives an option this value and no other; it may be the empty text.
// PRO_TK_BAD_INPUTS: an option without a name.
// Assumed (behaviour, 60 %): it takes the place of all values that the option had; the empty text
//   is taken, and is not the same as an option that is not set
// Assumed (parameters, 70 %): takes the option and its value as wide texts
HOST_API ProError ProConfigoptSet(WideChar* option, WideChar* value);
