// How far the surfaces of parts reach, by the box around each.
#pragma once

#include "frame/services/host_array.h"

using SurfaceArray = HostArray<ProSurface>;

// Appends the surfaces of a part to an array that is allocated; the status of the visit.
ProError VisitSurfaces(ProMdl part, SurfaceArray* surfaces);

// The corners seen so far, as far as they matter: the least and the largest on each axis.
struct SurfaceBoxes {
    bool empty = true;
    Pro3dPnt low = {};
    Pro3dPnt high = {};

    // Both corners of the box around each surface, the far one first, taken through a matrix if it
    // is not null.
    void Add(const SurfaceArray& surfaces, ProMatrix transform);

private:
    void Add(ProSurfacedata& box, ProMatrix transform);
    void Add(const double* point);
};
