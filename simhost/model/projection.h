// What a model looks like from a direction: how large it is there, and which edges are seen. This
// is all that drawings know of shapes, so that a real geometry kernel could answer here.
#pragma once

#include <vector>

#include "simhost/model/model.h"

namespace simhost {

// A part as it is placed in the model that is looked at.
struct ShownPart {
    const Model* part;
    Placement placement;
};

// The parts with solids below a model (or itself) that are active and shown, in tree order. A
// manufacturing model shows its assembly.
std::vector<ShownPart> ShownParts(const Model& top);

// The box around the model along the axes of a frame: `frame` takes the model's points there.
Extents ExtentsIn(const Model& top, const Placement& frame);

// A piece of an edge on the sheet.
struct DrawnLine {
    double x0, y0, x1, y1;
    bool hidden;
};

// The model's edges seen against the z axis of the frame: bends between surfaces and the borders of
// round ones. Surfaces that run into each other without a bend show no edge. Hidden pieces are left
// out unless wanted.
std::vector<DrawnLine> ProjectedLines(const Model& top, const Placement& frame, bool withHidden);

}  // namespace simhost
