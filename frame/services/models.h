// The model that is current, and the assembly that commands work on in its place.
#pragma once

#include "hostapi/host.h"

// A model and the type of the model that is current: they differ for a manufacturing model, whose
// assembly takes its place while the type stays. `model` is null where there is none.
struct TopModel {
    ProMdl model = nullptr;
    ProMdlType type = PRO_MDL_UNUSED;
};
TopModel CurrentModel();
TopModel CurrentTopModel();  // or the assembly of a manufacturing model

// The current model with the assembly of a manufacturing model in its place.
TopModel TopModelOf(TopModel current);
