// What a caller hands over for a group to be placed, until it frees it; and the placing.
#pragma once

#include <string>
#include <vector>

#include "hostapi/wide.h"
#include "simhost/core/owned_handles.h"
#include "simhost/model/group.h"
#include "simhost/model/selections.h"

namespace simhost {

class Model;
struct Feature;

struct UdfReference {
    WideText prompt;
    Selection selection;
};
struct UdfDimension {
    WideText name;
    double value = 0;
};
struct UdfData {
    WideText name;
    std::vector<UdfReference> references;
    std::vector<UdfDimension> dimensions;
};

struct Udfs {
    OwnedHandles<UdfData> datas{HandleKind::UdfData};
    OwnedHandles<UdfReference> references{HandleKind::UdfReference};
    OwnedHandles<UdfDimension> dimensions{HandleKind::UdfDimension};
};

// A group of a file with the items and values of the data in it. A sentence about what does not
// fit, empty if all does; then `group` is what is to be placed in the part.
std::string FillGroup(const UdfData& data, const Model& part, Group* group);

}  // namespace simhost
