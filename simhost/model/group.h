// Groups that the user defines: a file says what a group asks for and what solids it is made of;
// placed in a part it becomes one feature, which keeps all of that and no longer needs the file.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "simhost/model/geometry.h"

namespace simhost {

struct GroupDimension {
    std::string name;
    double value = 0;  // in a part a length in its unit
};

// What a group asks for by its prompt: a coordinate system, by its number as an item (0: not yet
// told).
struct GroupReference {
    std::string prompt;
    int csysId = 0;
};

// A group, in its file or as a feature of a part.
struct Group {
    std::string name;
    std::vector<GroupReference> references;  // at least one: the first is the frame of all solids
    std::vector<GroupDimension> dimensions;
    // Each as in a part's file and without an id, with expressions of the dimensions in the place
    // of numbers.
    std::vector<std::string> solids;
};

// Reads a group's file. Throws ModelFileError with the place in the file.
Group ReadGroupText(const std::string& text, const std::string& fileName);

// The solids of a group whose frame is given in the part's coordinates; their ids are 0. Throws
// ModelFileError if the dimensions allow no solid.
std::vector<Solid> SolidsOf(const Group& group, const Placement& frame);

// The same solid in the parent's coordinates of the frame that it was given in.
Solid Moved(Solid solid, const Placement& frame);

}  // namespace simhost
