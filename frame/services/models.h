// Models: the one that is current, the assembly that commands work on in its place, and what they
// ask of every model and component.
#pragma once

#include "frame/services/fixed_text.h"
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

// What follows is asked of every component of large assemblies, so it is here to be inlined.

// PRO_MDL_UNUSED after a failed call.
inline ProMdlType TypeOf(ProMdl model) {
    ProMdlType type = PRO_MDL_UNUSED;
    ProMdlTypeGet(model, &type);
    return type;
}

// PROMDLSTYPE_NONE without a model and after a failed call.
inline ProMdlsubtype SubtypeOf(ProMdl model) {
    ProMdlsubtype subtype = PROMDLSTYPE_NONE;
    if (model) ProMdlSubtypeGet(model, &subtype);
    return subtype;
}

// Room for a name and a terminator, which the host leaves out after 32 characters; for names that
// only go on to the host.
using NameForHost = WideChar[PRO_NAME_SIZE + 1];

// A model's name; empty after a failed call.
inline WideText ModelName(ProMdl model) {
    ProName name = {};
    ProMdlNameGet(model, name);
    return TextIn(name);
}

// Whether a component is active and visible. A failed call counts as no for the visibility, and as
// yes for the status.
inline bool IsShown(ProFeature* feature) {
    ProFeatStatus status = PRO_FEAT_ACTIVE;
    ProBoolean visible = PRO_B_FALSE;
    ProFeatureStatusGet(feature, &status);
    ProFeatureVisibilityGet(feature, &visible);
    return visible == PRO_B_TRUE && status == PRO_FEAT_ACTIVE;
}
