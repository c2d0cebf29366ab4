// What a model looks like from a direction: how large it is there, and which edges are seen. This
// is all that drawings know of shapes, so that a real geometry kernel could answer here.
#pragma once

#include <vector>

#include "simhost/model/shown.h"

namespace simhost {

// The box around what is there of a model along the axes of a frame, in mm: `frame` takes the
// model's points there, in mm whatever its unit is.
Extents ExtentsIn(const Model& top, const Placement& frame, Sight sight);

// A piece of an edge on the sheet.
struct DrawnLine {
    double x0, y0, x1, y1;
    bool hidden;
};

// The edges of a model, or of such parts of one, seen against the z axis of the frame: bends
// between surfaces and the borders of round ones. Surfaces that run into each other without a bend
// show no edge. Hidden pieces are left out unless wanted.
std::vector<DrawnLine> ProjectedLines(const Model& top, const Placement& frame, bool withHidden);
std::vector<DrawnLine> ProjectedLines(const std::vector<ShownPart>& parts, const Placement& frame,
                                      bool withHidden);

}  // namespace simhost
