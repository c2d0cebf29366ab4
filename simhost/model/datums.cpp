// The kinds of datums in one table, and datums by their numbers.
#include "simhost/model/datums.h"

#include "simhost/model/view_items.h"

namespace simhost {

namespace {

constexpr DatumKind kKinds[] = {
    {PRO_FEAT_CSYS, PRO_CSYS, "csys", "coordinate system", "coordinate systems"},
    {kDatumPlaneFeature, kDatumPlane, "datum", "datum plane", "datum planes"},
    {kDatumAxisFeature, kAxis, "axis", "datum axis", "datum axes"},
    {kDatumPointFeature, kPoint, "point", "datum point", "datum points"},
};

}  // namespace

std::span<const DatumKind> DatumKinds() {
    return kKinds;
}

const DatumKind* DatumKindOf(const Feature& feature) {
    for (const DatumKind& kind : kKinds) {
        if (kind.feature == feature.type) return &kind;
    }
    return nullptr;
}

int DatumIdOf(const Feature& feature) {
    return feature.itemId > 0 ? feature.itemId : feature.id + 1;
}

Feature* FindDatum(Model& model, ProType item, int id) {
    for (const Feature& feature : model.features()) {
        const DatumKind* kind = DatumKindOf(feature);
        if (!kind || kind->item != item || DatumIdOf(feature) != id) continue;
        return model.FindFeature(feature.id);
    }
    return nullptr;
}

bool IsDatumThere(const Feature& feature) {
    if (feature.status != PRO_FEAT_ACTIVE || !feature.visible) return false;
    return feature.placed || feature.type == PRO_FEAT_CSYS;
}

}  // namespace simhost
