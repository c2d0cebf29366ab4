// Coordinate systems of parts and assemblies.
#pragma once

#include "hostapi/host/types.h"

typedef ProError (*ProCsysVisitAction)(ProCsys csys, ProError status, ProAppData data);
typedef ProError (*ProCsysFilterAction)(ProCsys csys, ProAppData data);

// Visits the solid's coordinate systems in the order of the model tree, as all visits do (see
// solid.h). `filter` may be null; so may `action`, as long as the filter takes nothing.
// PRO_TK_E_NOT_FOUND: there was none, or the filter took none.
// Assumed (behaviour, 60 %): a null action is no mistake while the filter takes nothing
HOST_API ProError ProSolidCsysVisit(ProSolid solid, ProCsysVisitAction action,
                                    ProCsysFilterAction filter, ProAppData data);

// The number of the coordinate system as an item. It is not that of its feature, but usually one
// more.
HOST_API ProError ProCsysIdGet(ProCsys csys, int* id);

// The item (kind PRO_CSYS, id, owner) of a coordinate system of this solid.
// Assumed (parameters, 80 %): in the order solid, coordinate system, item
HOST_API ProError ProCsysToGeomitem(ProSolid solid, ProCsys csys, ProGeomitem* item);
