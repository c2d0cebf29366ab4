// Points and placements between the record of shape and the kernel.
#pragma once

#include <gp_Pnt.hxx>
#include <gp_Trsf.hxx>

#include "simhost/model/geometry.h"

namespace simhost::kernel {

inline gp_Pnt PointOf(Vec3 p) {
    return {p.x, p.y, p.z};
}
inline Vec3 VectorOf(const gp_XYZ& p) {
    return {p.X(), p.Y(), p.Z()};
}
gp_Trsf TransformationOf(const Placement& place);

}  // namespace simhost::kernel
