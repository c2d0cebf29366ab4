// The host's configuration options.
#pragma once

#include "hostapi/host/types.h"

// A new array with all values of an option. The caller frees the array.
// PRO_TK_E_NOT_FOUND: the option is not set.
// Assumed (frees, 70 %): a new array of paths that the caller frees
HOST_API ProError ProConfigoptArrayGet(WideChar* option, ProPath** values);

// Gives an option this one value for the running session; the empty text is one, too.
// PRO_TK_BAD_INPUTS: an option without a name.
// Assumed (parameters, 70 %): takes the option and its value as wide texts
HOST_API ProError ProConfigoptSet(WideChar* option, WideChar* value);
