// How long a sheet is before it is bent.
#include "simhost/model/sheet_metal.h"

#include <algorithm>
#include <numbers>

namespace simhost {

namespace {

// A place between two numbers of a rising list: the first of them, and the share of the way to the
// next.
struct Between {
    std::size_t at = 0;
    double share = 0;
    bool inside = false;
};

Between PlaceIn(const std::vector<double>& list, double value) {
    if (list.empty() || value < list.front() || value > list.back()) return {};
    const auto next = std::upper_bound(list.begin(), list.end(), value);
    const std::size_t after = std::size_t(next - list.begin());
    if (next == list.end()) return {after - 1, 0, true};
    return {after - 1, (value - list[after - 1]) / (list[after] - list[after - 1]), true};
}

// Of a bend of 90 degrees.
double FromTable(const BendTable& table, const Between& radius, const Between& thickness) {
    const auto inRow = [&](std::size_t row) {
        const std::vector<double>& lengths = table.length[row];
        const double first = lengths[thickness.at];
        if (thickness.share == 0) return first;
        return first + thickness.share * (lengths[thickness.at + 1] - first);
    };
    const double first = inRow(radius.at);
    if (radius.share == 0) return first;
    return first + radius.share * (inRow(radius.at + 1) - first);
}

}  // namespace

double LengthOf(const Bend& bend, double thickness, const BendTable& table) {
    constexpr double kUsualFactor = 0.5;
    const Between row = PlaceIn(table.radius, bend.radius);
    const Between column = PlaceIn(table.thickness, thickness);
    const double right = row.inside && column.inside
                             ? FromTable(table, row, column)
                             : std::numbers::pi / 2 * bend.radius + kUsualFactor * thickness;
    return right * bend.angle / 90;
}

double DevelopedLength(const SheetMetal& sheet) {
    double length = 0;
    for (const double flat : sheet.flats) length += flat;
    for (const Bend& bend : sheet.bends) length += LengthOf(bend, sheet.thickness, sheet.table);
    return length;
}

}  // namespace simhost
