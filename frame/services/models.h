// Models: the one that is current, the assembly that commands work on in its place, and what they
// ask of every model and component.
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

// The current model with the assembly of a manufacturing model in its place; null if that assembly
// cannot be had.
TopModel TopModelOf(TopModel current);

// PRO_MDL_UNUSED after a failed call.
ProMdlType TypeOf(ProMdl model);

// A model's name; empty after a failed call.
WideText ModelName(ProMdl model);

// Whether a component is active and visible. A failed call counts as no for the visibility, and as
// yes for the status.
bool IsShown(ProFeature* feature);
