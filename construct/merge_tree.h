// The tree of elements from which the host makes a merge.
#pragma once

#include "hostapi/host.h"

// A tree for merging the selected part, under this name in the model tree; null if the host does
// not give its root. The caller frees it. What the host refused of the rest is not in it, so that
// no feature comes of it.
ProElement NewMergeTree(WideView name, ProSelection part);
