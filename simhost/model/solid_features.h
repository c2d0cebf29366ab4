// Features of a part that make solids of it: groups and merges. Their solids stay in the part as
// they were made last, so that a file shows them; regeneration makes them anew.
#pragma once

#include <string>
#include <vector>

#include "hostapi/wide.h"
#include "simhost/model/geometry.h"
#include "simhost/model/group.h"

namespace simhost {

class Model;
struct Feature;

// Their types.
inline constexpr int kGroupFeature = 925;
inline constexpr int kMergeFeature = 1238;

// The solids of another part, as it lies to this one in an assembly.
struct Merge {
    std::string file;         // the source: "key.prt"
    Model* source = nullptr;  // null while it is not in memory
    Placement from, to;       // the source's place and the target's when it was made, in mm
};

// Adds a group to a part as a feature of it. Throws ModelFileError if its dimensions allow no
// solid, and then the part is as before.
Feature& PlaceGroup(Model& part, Group group);

// Why the source cannot be merged into the part; empty: it can.
std::string WhyNoMerge(const Model& part, const Model& source);
// Adds a merge to a part as a feature of it.
Feature& PlaceMerge(Model& part, const WideText& name, Merge merge);

// Makes the solids of these features anew, in the order of the tree. One whose coordinate
// system or source is gone keeps its last shape and counts as not regenerated.
void RegenerateSolids(Model& part);

// Gives a feature these solids in the place of those that it had. Surfaces keep their ids as far
// as the solids are of the same kinds; what was painted on others is forgotten.
void ReplaceSolids(Model& part, int feature, std::vector<Solid> solids);

}  // namespace simhost
