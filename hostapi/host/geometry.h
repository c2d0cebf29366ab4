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

// An edge's curve, at which the plug-in does not look.
typedef struct VxCurvedata {
    int type;
    double radius;  // of a round one
    Pro3dPnt from, to;
} ProCurvedata;

typedef struct VxGeomitemdata {
    ProType obj_type;
    union {
        ProSurfacedata* p_surface_data;
        ProCurvedata* p_curve_data;
    } data;
} ProGeomitemdata;

// Receives the surface's data in a record that is the caller's, who frees it with
// ProGeomitemdataFree. PRO_TK_BAD_INPUTS: a null surface; the pointer stays as it was.
// Assumed (frees, 90 %): each call makes a new record, which is the caller's. If the record is the
//   host's, the outline frees what it must not: take the call of ProGeomitemdataFree out
HOST_API ProError ProSurfaceDataGet(ProSurface surface, ProGeomitemdata** data);

// Frees a record of data with all that it points to, and makes the caller's pointer null. The
// points in it are gone with it. PRO_TK_BAD_INPUTS: no such record.
// Assumed (parameters, 85 %): takes the address of the caller's pointer
HOST_API ProError ProGeomitemdataFree(ProGeomitemdata** data);

// Applies a transform to a point.
HOST_API ProError ProPntTrfEval(ProVector point, ProMatrix transform, ProVector result);
