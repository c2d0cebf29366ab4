// Arithmetic on view matrices. A row of such a matrix is the direction on the screen (right, up,
// towards the viewer) of one axis of the model.
#include "drawing/view_matrix.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr double kSameElement = 1e-08;
constexpr double kSameClaim = 1e-05;

using Saved = std::array<std::array<double, 3>, 3>;

double SignOf(double value) {
    return value > 0 ? 1.0 : -1.0;
}

bool IsUnit(double value) {
    return std::fabs(1.0 - std::fabs(value)) <= kSameElement;
}

// Of nearly equal elements the first is the largest.
void KeepLargest(double* row) {
    int best = 0;
    for (int column = 1; column < 3; ++column) {
        if (std::fabs(row[column]) - std::fabs(row[best]) > kSameElement) best = column;
    }
    row[best] = SignOf(row[best]);
}

int UnitsIn(ProMatrix matrix, int column) {
    int count = 0;
    for (int row = 0; row < 3; ++row) count += IsUnit(matrix[row][column]);
    return count;
}

// The two rows that claim a column; false if there are none.
bool ClaimsOf(ProMatrix matrix, int column, int* earlier, int* later) {
    constexpr int kPairs[3][2] = {{0, 1}, {0, 2}, {1, 2}};
    for (const auto& pair : kPairs) {
        const double a = std::fabs(matrix[pair[0]][column]);
        const double b = std::fabs(matrix[pair[1]][column]);
        if (std::fabs(a - b) > kSameElement) continue;
        *earlier = pair[0];
        *later = pair[1];
        return true;
    }
    return false;
}

// The row with the weaker claim goes to the empty column; in a tie the earlier one.
void MoveWeakerRow(ProMatrix matrix, const Saved& saved, int crowded, int empty) {
    int earlier = 0, later = 0;
    if (!ClaimsOf(matrix, crowded, &earlier, &later)) return;
    const double a = std::fabs(saved[std::size_t(earlier)][std::size_t(crowded)]);
    const double b = std::fabs(saved[std::size_t(later)][std::size_t(crowded)]);
    const int moving = a - b > kSameClaim ? later : earlier;
    matrix[moving][crowded] = 0;
    matrix[moving][empty] = SignOf(saved[std::size_t(moving)][std::size_t(empty)]);
}

}  // namespace

void NormalizeTransform(ProMatrix matrix) {
    const double* first = matrix[0];
    const double scale = std::sqrt(first[0] * first[0] + first[1] * first[1] + first[2] * first[2]);
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3 && scale > 0; ++row) matrix[row][column] /= scale;
        matrix[3][column] = 0;
    }
}

void SnapToAxes(ProMatrix matrix) {
    NormalizeTransform(matrix);
    Saved saved{};
    for (std::size_t row = 0; row < 3; ++row) {
        std::copy(matrix[row], matrix[row] + 3, saved[row].begin());
        KeepLargest(matrix[row]);
    }
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double& element = matrix[row][column];
            if (1.0 - std::fabs(element) > kSameElement) element = 0;
        }
    }
    int empty = -1, crowded = -1;
    for (int column = 0; column < 3; ++column) {
        const int units = UnitsIn(matrix, column);
        if (units == 0) empty = column;
        if (units == 2) crowded = column;
    }
    if (empty >= 0 && crowded >= 0) MoveWeakerRow(matrix, saved, crowded, empty);
}

QuarterTurns TurnsByExtent(int x, int y, int z) {
    constexpr auto kX = PRO_VIEW_ROTATE_X;
    constexpr auto kY = PRO_VIEW_ROTATE_Y;
    constexpr auto kZ = PRO_VIEW_ROTATE_Z;
    // The order of the tests decides where extents are equal.
    if (x >= y && y >= z) return {0, {}};
    if (x >= z && z >= y) return {1, {kX}};
    if (z > x && z >= y && y >= x) return {1, {kY}};
    if (z >= x && x >= y) return {2, {kX, kZ}};
    if (y >= z && z >= x) return {2, {kZ, kX}};
    if (y >= x && x >= z) return {1, {kZ}};
    return {0, {}};
}

int WholeExtent(double lower, double upper) {
    const double extent = upper - lower;
    if (std::isnan(extent)) return 0;
    constexpr double kMost = std::numeric_limits<int>::max();
    return int(std::clamp(extent, -kMost, kMost));
}
