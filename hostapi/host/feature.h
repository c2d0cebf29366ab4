// Features of a solid: their type, their states, and whether they are shown.
#pragma once

#include "hostapi/host/types.h"

typedef int ProFeattype;
#define PRO_FEAT_COMPONENT 1000
#define PRO_FEAT_CSYS 979

typedef enum : int {
    PRO_FEAT_STAT_INVALID = -1,
    PRO_FEAT_ACTIVE = 0,
    PRO_FEAT_INACTIVE = 1,
    PRO_FEAT_FAMTAB_SUPPRESSED = 2,
    PRO_FEAT_SIMPREP_SUPPRESSED = 3,
    PRO_FEAT_PROG_SUPPRESSED = 4,
    PRO_FEAT_SUPPRESSED = 5,
    PRO_FEAT_UNREGENERATED = 6
} ProFeatStatus;

// The feature of this number. A quiet PRO_TK_E_NOT_FOUND: the solid has none; the place stays as it
// was.
HOST_API ProError ProFeatureInit(ProSolid solid, int id, ProFeature* feature);

// A new array with the numbers of the features that this one hangs on, and their count. The caller
// frees the array. A feature without parents: status 0, null and 0.
// Assumed (frees, 70 %): the array is one that the caller frees with ProArrayFree
// Assumed (behaviour, 50 %): no parents is status 0 with a count of 0, not PRO_TK_E_NOT_FOUND
HOST_API ProError ProFeatureParentsGet(ProFeature* feature, int** parents, int* count);

HOST_API ProError ProFeatureTypeGet(ProFeature* feature, ProFeattype* type);
HOST_API ProError ProFeatureStatusGet(ProFeature* feature, ProFeatStatus* status);

// The feature's state as a bit mask.
// Assumed (parameters, 60 %): fills an int bit mask
HOST_API ProError ProFeatureStatusflagsGet(ProFeature* feature, int* flags);

// Whether the feature is shown at all; not the same as the display state of a component that the
// user has hidden.
// Assumed (parameters, 70 %): fills a ProBoolean, true for a feature that is shown
HOST_API ProError ProFeatureVisibilityGet(ProFeature* feature, ProBoolean* visible);
