// A merge of a part into another as a feature, and what the host makes it from.
#pragma once

#include "hostapi/host.h"

// What a merge was made from; each is null where the host did not give it.
struct MergeFeature {
    ProElement tree = nullptr;
    ProSelection target = nullptr;

    void Free();
};

// Merges the selected part into the target, under this name in the model tree. Whether the host
// has done it is not told: one that refuses changes nothing. The caller frees what comes back.
MergeFeature MergeInto(ProModelitem* target, WideView name, ProSelection part);
