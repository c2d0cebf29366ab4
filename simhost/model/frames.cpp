// Frames that are turned round, compared and checked.
#include "simhost/model/frames.h"

#include <cmath>

namespace simhost {

namespace {

constexpr double kSameFrame = 1e-9;
constexpr double kSquare = 1e-6;  // a matrix that somebody has computed is not exact

bool IsNear(Vec3 a, Vec3 b, double tolerance) {
    const Vec3 d = a - b;
    return std::abs(d.x) <= tolerance && std::abs(d.y) <= tolerance && std::abs(d.z) <= tolerance;
}

}  // namespace

// The axes are at right angles, so the transpose turns back.
Placement Inverse(const Placement& frame) {
    const auto& [x, y, z] = frame.axes;
    Placement inverse;
    inverse.axes = {Vec3{x.x, y.x, z.x}, Vec3{x.y, y.y, z.y}, Vec3{x.z, y.z, z.z}};
    inverse.origin = -1 * inverse.Direction(frame.origin);
    return inverse;
}

bool IsSamePlace(const Placement& a, const Placement& b) {
    for (std::size_t i = 0; i < 3; ++i) {
        if (!IsNear(a.axes[i], b.axes[i], kSameFrame)) return false;
    }
    return IsNear(a.origin, b.origin, kSameFrame);
}

bool IsRotation(const Placement& frame) {
    const auto& [x, y, z] = frame.axes;
    const auto isOne = [](Vec3 v) { return std::abs(Dot(v, v) - 1) <= kSquare; };
    return isOne(x) && isOne(y) && std::abs(Dot(x, y)) <= kSquare &&
           IsNear(Cross(x, y), z, kSquare);
}

}  // namespace simhost
