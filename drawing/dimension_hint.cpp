// Orientation hints of dimensions from the places of two points and a click.
#include "drawing/dimension_hint.h"

namespace {

constexpr double kSame = 0.001;
constexpr double kClear = 0.01;

struct Range {
    double low, high;
    bool Encloses(double value) const { return value - low > kClear && high - value > kClear; }
    bool LiesBeyond(double value) const { return value - high > kClear || low - value > kClear; }
};

// A first coordinate that is larger by no more than a trifle still counts as the smaller one.
Range RangeOf(double first, double second) {
    if (first - second <= kSame) return {first, second};
    return {second, first};
}

// By their signed values: points to the left of the sheet and below it count as unknown.
bool IsKnown(const double* point) {
    return point[0] >= kSame || point[1] >= kSame || point[2] >= kSame;
}

}  // namespace

int OrientationHint(const double* first, const double* second, const double* click, int hint) {
    constexpr int kUpwards = 1, kAcross = 2, kStraight = 3;
    if (!IsKnown(first) && !IsKnown(second)) return hint;
    const Range x = RangeOf(first[0], second[0]), y = RangeOf(first[1], second[1]);
    if (x.Encloses(click[0]) && y.Encloses(click[1])) return kStraight;
    if (y.LiesBeyond(click[1])) return kAcross;
    if (x.LiesBeyond(click[0])) return kUpwards;
    return hint;
}
