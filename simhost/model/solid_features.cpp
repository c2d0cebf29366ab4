// Groups and merges as features of a part, and the ids of the solids that they make.
#include "simhost/model/solid_features.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>

#include "simhost/core/text.h"
#include "simhost/model/csys.h"
#include "simhost/model/frames.h"
#include "simhost/model/model.h"
#include "simhost/model/model_file_error.h"

namespace simhost {

namespace {

// A frame that the part has, for the solids of a group; null if it is gone.
const Placement* FrameOf(Model& part, const Group& group) {
    const Feature* csys = FindCsys(part, group.references.front().csysId);
    return csys ? &csys->placement : nullptr;
}

// The next id that leaves room behind all other solids; ids of files are often tens.
int NextSolidId(const std::vector<Solid>& solids) {
    int last = 0;
    for (const Solid& solid : solids) last = std::max(last, solid.id + SurfaceCount(solid));
    return (last / 10 + 1) * 10;
}

// In the unit of the target, whatever that of the source is.
std::vector<Solid> SolidsOf(const Merge& merge, const Model& target) {
    const Placement toTarget = Compose(Inverse(merge.to), merge.from);
    std::vector<Solid> solids;
    for (Solid solid : merge.source->partData.solids) {
        ConvertLengths(&solid, LengthUnit(*merge.source), 1);
        solids.push_back(Moved(solid, toTarget));
        ConvertLengths(&solids.back(), 1, LengthUnit(target));
    }
    return solids;
}

// Whether one part merges another, directly or through others.
bool IsMadeOf(const Model& part, const Model& other) {
    return std::any_of(part.features().begin(), part.features().end(), [&](const Feature& each) {
        const Model* source = each.merge ? each.merge->source : nullptr;
        return source && (source == &other || IsMadeOf(*source, other));
    });
}

// Nothing where that cannot be.
std::optional<std::vector<Solid>> MadeAnew(Model& part, const Feature& feature) {
    if (feature.merge) {
        if (!feature.merge->source) return std::nullopt;
        return SolidsOf(*feature.merge, part);
    }
    const Placement* frame = FrameOf(part, *feature.group);
    if (!frame) return std::nullopt;
    try {
        return SolidsOf(*feature.group, *frame);
    } catch (const ModelFileError&) {
        return std::nullopt;
    }
}

bool KeepsSurfaces(const Solid& before, const Solid& after) {
    return before.shape == after.shape && SurfaceCount(before) == SurfaceCount(after);
}

}  // namespace

void ReplaceSolids(Model& part, int feature, std::vector<Solid> solids) {
    std::vector<Solid>& all = part.partData.solids;
    const auto isOfFeature = [feature](const Solid& solid) { return solid.feature == feature; };
    std::vector<Solid> before;
    std::copy_if(all.begin(), all.end(), std::back_inserter(before), isOfFeature);
    int next = NextSolidId(all);
    for (std::size_t i = 0; i < solids.size(); ++i) {
        Solid& solid = solids[i];
        solid.feature = feature;
        if (i < before.size() && KeepsSurfaces(before[i], solid)) {
            solid.id = before[i].id;
            continue;
        }
        solid.id = next;
        next = NextSolidId({solid});
    }
    if (solids == before) return;
    const auto first = std::find_if(all.begin(), all.end(), isOfFeature);
    const auto at = first - all.begin();
    std::erase_if(all, isOfFeature);
    all.insert(all.begin() + at, solids.begin(), solids.end());
    part.modified = true;
    std::erase_if(part.partData.surfaceAppearances,
                  [&](const auto& entry) { return !part.HasSurface(entry.first); });
}

Feature& PlaceGroup(Model& part, Group group) {
    const Feature* csys = FindCsys(part, group.references.front().csysId);
    std::vector<Solid> solids = SolidsOf(group, csys->placement);
    Feature feature;
    feature.type = kGroupFeature;
    feature.name = Upper(Wide(group.name));
    for (const GroupReference& reference : group.references) {
        feature.parents.push_back(FindCsys(part, reference.csysId)->id);
    }
    feature.group = std::make_shared<Group>(std::move(group));
    Feature& added = part.AddFeature(std::move(feature));
    ReplaceSolids(part, added.id, std::move(solids));
    part.modified = true;
    return added;
}

std::string WhyNoMerge(const Model& part, const Model& source) {
    if (&part == &source) return "a part cannot be merged into itself";
    if (IsMadeOf(source, part)) {
        return fmt::format("{} is made of {}", source.FileName(), part.FileName());
    }
    if (source.type != PRO_MDL_PART) return source.FileName() + " is not a part";
    return source.HasShape() ? "" : source.FileName() + " has no solid";
}

Feature& PlaceMerge(Model& part, const WideText& name, Merge merge) {
    Feature feature;
    feature.type = kMergeFeature;
    feature.name = name;
    std::vector<Solid> solids = SolidsOf(merge, part);
    feature.merge = std::make_shared<Merge>(std::move(merge));
    Feature& added = part.AddFeature(std::move(feature));
    ReplaceSolids(part, added.id, std::move(solids));
    part.modified = true;
    return added;
}

void RegenerateSolids(Model& part) {
    if (part.readOnly) return;
    for (std::size_t i = 0; i < part.features().size(); ++i) {
        Feature& feature = *part.FindFeature(part.features()[i].id);
        if (!feature.group && !feature.merge) continue;
        std::optional<std::vector<Solid>> solids = MadeAnew(part, feature);
        feature.status = solids ? PRO_FEAT_ACTIVE : PRO_FEAT_UNREGENERATED;
        if (solids) ReplaceSolids(part, feature.id, std::move(*solids));
    }
}

}  // namespace simhost
