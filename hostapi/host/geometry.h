// Geometry of surfaces, and where the components of an assembly are. Lengths in the model's
// units.
#pragma once

#include "hostapi/host/types.h"

typedef double Pro3dPnt[3];
typedef double ProVector[3];
// A point is a row: point * matrix. Rows 0 to 2 are the axes, row 3 is the origin.
typedef double ProMatrix[4][4];

// A surface's data, as far as the plug-in looks at it: the box around it along the model's axes.
typedef struct VxSurfacedata {
    int type;
    double uv_min[2];
    double uv_max[2];
    Pro3dPnt xyz_min;
    Pro3dPnt xyz_max;
} ProSurfacedata;

typedef struct VxGeomitemdata {
    ProType obj_type;
    union {
        ProSurfacedata* p_surface_data;
    } data;
} ProGeomitemdata;

// Receives the surface's data; the record is the host's and lives as long as the surface.
// Assumed (frees, 10 %): fills a pointer to the host's record, which the caller does not free; only
//   the two corners of the box are read. If a call frees it, the outline leaves one record for each
//   surface and occurrence behind: look at this first
HOST_API ProError ProSurfaceDataGet(ProSurface surface, ProGeomitemdata** data);

// Applies a transform to a point.
HOST_API ProError ProPntTrfEval(ProVector point, ProMatrix transform, ProVector result);
