// How often each model occurs in an assembly.
#pragma once

#include <vector>

#include "hostapi/host.h"

struct ModelCount {
    ProMdl model = nullptr;
    WideText name;  // empty if the host does not tell it
    int count = 0;
};

// The model itself, once, and all components at every depth, in the order in which they are first
// met. Models count as one if name and type are equal, ignoring case; one whose name is not known
// counts by itself, and a component without a model not at all. Nothing for a null model.
std::vector<ModelCount> CountModels(ProMdl top);
