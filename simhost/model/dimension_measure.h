// What a dimension measures: from what it is attached to, which kind it is and its true value.
#pragma once

#include <optional>

#include "simhost/model/annotations.h"

namespace simhost {

// A dimension as it lies on the sheet, its value apart, which is that of the model.
struct MeasuredDimension {
    double value = 0;  // in the unit of the view's model, or degrees
    Vec3 from, to;     // lengths: the two points; diameter and radius: `from` is the centre
    Vec3 along;        // lengths: the direction that counts, of length 1
    double radius = 0;
    // Angles: the point where the sides meet, the directions of the two that enclose the text,
    // counter-clockwise, and how far from the point each line reaches there.
    Vec3 vertex;
    Vec3 sides[2];
    double reach[2] = {};
};

// Nothing: something that it is attached to is gone, or does not give this kind any more.
std::optional<MeasuredDimension> Measure(Model& drawing, const Dimension& dimension);

// Which kind of dimension attachments in one view give with an orientation hint. Nothing: none, and
// *status says why.
std::optional<DimensionKind> KindOf(const DrawingView& view, const std::vector<Attachment>& to,
                                    int hint, ProError* status);

// Measures again, as far as it can be measured: one dimension, or all on a sheet.
void Remeasure(Model& drawing, Dimension* dimension);
void RemeasureSheet(Model& drawing, int sheet);

}  // namespace simhost
