// Edges of solids: the edge that an item is, and what its curve is like.
#pragma once

#include "hostapi/host/geometry.h"
#include "hostapi/host/types.h"

// Kinds of curves, as far as edges have them.
// Assumed (codes, 60 %): 2 straight, 3 and 10 round
typedef enum : int {
    PRO_ENT_LINE = 2,
    PRO_ENT_ARC = 3,
    PRO_ENT_CIRCLE = 10,
} ProEnttype;

// The edge that an item is. PRO_TK_BAD_INPUTS: the item is no edge.
HOST_API ProError ProGeomitemToEdge(ProGeomitem* item, ProEdge* edge);

// PRO_TK_BAD_INPUTS: not a live edge.
HOST_API ProError ProEdgeTypeGet(ProEdge edge, ProEnttype* type);

// Receives the geometry of a surface or an edge in a record that is the caller's, who frees it with
// ProGeomitemdataFree. PRO_TK_BAD_INPUTS: the item is neither.
// Assumed (frees, 90 %): each call makes a new record, which is the caller's
HOST_API ProError ProGeomitemdataGet(ProGeomitem* item, ProGeomitemdata** data);
