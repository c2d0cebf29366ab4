// Fits what a caller has for a group to what the group asks for.
#include "simhost/model/udf.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/model/model.h"

namespace simhost {

namespace {

// One item for each prompt, and none for others.
std::string FillReferences(const UdfData& data, const Model& part, Group* group) {
    for (const UdfReference& each : data.references) {
        const std::string prompt = Utf8(each.prompt);
        const auto found =
            std::find_if(group->references.begin(), group->references.end(),
                         [&](const GroupReference& asked) { return asked.prompt == prompt; });
        if (found == group->references.end()) {
            return fmt::format("it has no prompt \"{}\"", prompt);
        }
        const ProModelitem& item = each.selection.item;
        if (item.type != PRO_CSYS || item.owner != part.handle) {
            return fmt::format("\"{}\" needs a coordinate system of {}", prompt, part.FileName());
        }
        found->csysId = item.id;
    }
    for (const GroupReference& asked : group->references) {
        if (asked.csysId == 0) return fmt::format("nothing is given for \"{}\"", asked.prompt);
    }
    return {};
}

// Dimensions that nothing is said of keep the value of the file.
std::string FillDimensions(const UdfData& data, Group* group) {
    for (const UdfDimension& each : data.dimensions) {
        const std::string name = Utf8(each.name);
        const auto found =
            std::find_if(group->dimensions.begin(), group->dimensions.end(),
                         [&](const GroupDimension& known) { return known.name == name; });
        if (found == group->dimensions.end()) {
            return fmt::format("it has no dimension \"{}\"", name);
        }
        found->value = each.value;
    }
    return {};
}

}  // namespace

std::string FillGroup(const UdfData& data, const Model& part, Group* group) {
    std::string problem = FillReferences(data, part, group);
    if (problem.empty()) problem = FillDimensions(data, group);
    return problem;
}

}  // namespace simhost
