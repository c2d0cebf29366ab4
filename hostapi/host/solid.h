// Parts and assemblies: visits to their features and surfaces.
// A visit calls the filter first (where there is one) and then the action for each item. A filter
// answers 0 to take an item and PRO_TK_CONTINUE to pass over it; an action answers 0 or
// PRO_TK_CONTINUE to go on. Any other answer ends the visit and is its result.
#pragma once

#include "hostapi/host/types.h"

typedef ProError (*ProFeatureVisitAction)(ProFeature* feature, ProError status, ProAppData data);
typedef ProError (*ProFeatureFilterAction)(ProFeature* feature, ProAppData data);
typedef ProError (*ProSurfaceVisitAction)(ProSurface surface, ProError status, ProAppData data);
typedef ProError (*ProSurfaceFilterAction)(ProSurface surface, ProAppData data);

// Visits the solid's features in the order of the model tree. `filter` may be null. A solid without
// features, and a filter that takes none, are answered with 0 as well.
// Assumed (behaviour, 60 %): 0 if nothing was visited, so that empty and failed differ
HOST_API ProError ProSolidFeatVisit(ProSolid solid, ProFeatureVisitAction action,
                                    ProFeatureFilterAction filter, ProAppData data);

// Visits the part's surfaces. `filter` may be null. PRO_TK_E_NOT_FOUND: there was none.
HOST_API ProError ProSolidSurfaceVisit(ProSolid part, ProSurfaceVisitAction action,
                                       ProSurfaceFilterAction filter, ProAppData data);

// Brings a part, an assembly or a manufacturing model up to date, with all that lies below: what
// hangs on something that has moved, moves along. `flags`: 0, nothing special.
// Assumed (parameters, 80 %): takes the solid and flags
HOST_API ProError ProSolidRegenerate(ProSolid solid, int flags);

// The item (kind PRO_SURFACE, id, owner) of a surface of this part.
HOST_API ProError ProSurfaceToGeomitem(ProSolid part, ProSurface surface, ProGeomitem* item);

// Shows a part or an assembly in the current window, as its active representation has it.
HOST_API ProError ProSolidDisplay(ProSolid solid);

// Makes a new, empty solid (PRO_PART or PRO_ASSEMBLY) in memory under a name of 1 to 32 characters.
// It is in no window and belongs to the working folder.
// PRO_TK_E_FOUND: a model of its type has the name, in memory or in the working folder.
// PRO_TK_BAD_INPUTS: a name that no model can have, or another type.
// Assumed (behaviour, 50 %): a name that lies in the working folder is refused as well
// Assumed (length, 40 %): as ProMdlNameGet
HOST_API ProError ProSolidCreate(WideChar* name, ProType type, ProSolid* solid);
