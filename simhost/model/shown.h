// The one walk that decides which parts of a model are there: on the screen, in its measures, in
// its drawing views.
#pragma once

#include <functional>
#include <vector>

#include "simhost/model/model.h"

namespace simhost {

// What is suppressed, invisible or not in memory is nowhere. What the active representation
// excludes is in drawing views only; what the user has hidden is missing on the screen only.
enum class Sight { Screen, Measures, Views };

// A part with solids as it is used below a model, or the model itself.
struct ShownPart {
    const Model* part;
    // Takes the part's points, in its unit, into the model's frame in mm: its axes are as long as
    // the part's unit.
    Placement placement;
    const std::vector<int>* path;  // component ids from the model down; null once the walk is over
    // Of the uppermost assembly above it, or the model, that has an appearance of its own: that
    // covers those of the part and of its surfaces. Null: none has.
    const ProdbSurfaceProps* cover;
};

// Each part that is there, in tree order. A manufacturing model shows its assembly.
void VisitShown(const Model& top, Sight sight, const std::function<void(const ShownPart&)>& visit);

// The same as a list, whose paths are null.
std::vector<ShownPart> ShownParts(const Model& top, Sight sight);

// The assembly whose components are picked and shown while this model is the current one: the
// assembly of a manufacturing model, else the model itself.
const Model& ContentsOf(const Model& model);
Model& ContentsOf(Model& model);

}  // namespace simhost
