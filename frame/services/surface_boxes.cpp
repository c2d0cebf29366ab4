// The surfaces of a part, and the corners of their boxes.
#include "frame/services/surface_boxes.h"

#include <algorithm>

namespace {

ProError CollectSurface(ProSurface surface, ProError, ProAppData surfaces) noexcept {
    AppendTo(surfaces, &surface);
    return PRO_TK_NO_ERROR;
}

ProError AdmitSurface(ProSurface, ProAppData) noexcept {
    return PRO_TK_NO_ERROR;
}

}  // namespace

ProError VisitSurfaces(ProMdl part, SurfaceArray* surfaces) {
    return ProSolidSurfaceVisit(static_cast<ProSolid>(part), CollectSurface, AdmitSurface,
                                surfaces->Place());
}

void SurfaceBoxes::Add(const double* point) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        low[axis] = empty ? point[axis] : std::min(low[axis], point[axis]);
        high[axis] = empty ? point[axis] : std::max(high[axis], point[axis]);
    }
    empty = false;
}

void SurfaceBoxes::Add(ProSurfacedata& box, ProMatrix transform) {
    for (double* corner : {box.xyz_max, box.xyz_min}) {
        Pro3dPnt turned = {};
        if (!transform) {
            Add(corner);
        } else if (ProPntTrfEval(corner, transform, turned) == PRO_TK_NO_ERROR) {
            Add(turned);
        }
    }
}

// A record that is there is freed even after a failed call.
void SurfaceBoxes::Add(const SurfaceArray& surfaces, ProMatrix transform) {
    const int size = surfaces.Size();
    for (int i = 0; i < size; ++i) {
        ProGeomitemdata* about = nullptr;
        const ProError status = ProSurfaceDataGet(surfaces.data()[i], &about);
        if (status == PRO_TK_NO_ERROR && about && about->data.p_surface_data) {
            Add(*about->data.p_surface_data, transform);
        }
        if (about) ProGeomitemdataFree(&about);
    }
}
