// The walk over an assembly.
#include "frame/services/assembly_walk.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

#include "frame/services/models.h"

namespace {

// Status flags of a feature that is not to be visited; compared as a whole, not bit by bit.
constexpr int kSkippedStatusFlags = 130;

// Further features that ComponentFilterWide takes.
constexpr ProFeattype kFirstWideType = 1104;
constexpr ProFeattype kSecondWideType = 1232;

// The feature's type, or 0 for a feature that is to be skipped whatever its type.
ProFeattype TypeToVisit(ProFeature* feature) {
    int flags = 0;
    if (ProFeatureStatusflagsGet(feature, &flags) != PRO_TK_NO_ERROR) return 0;
    if (flags == kSkippedStatusFlags) return 0;
    ProFeattype type = 0;
    if (ProFeatureTypeGet(feature, &type) != PRO_TK_NO_ERROR) return 0;
    return type;
}

// Goes on below a sub-assembly; whatever comes of it, the visit at this level goes on.
void Descend(ProMdl assembly, ProFeatureVisitAction visitor, ProAppData data) {
    ProSolidFeatVisit(static_cast<ProSolid>(assembly), visitor, ComponentFilter, data);
}

}  // namespace

ProError ComponentFilter(ProFeature* feature, ProAppData) noexcept {
    return TypeToVisit(feature) == PRO_FEAT_COMPONENT ? PRO_TK_NO_ERROR : PRO_TK_CONTINUE;
}

ProError ComponentFilterWide(ProFeature* feature, ProAppData) noexcept {
    const ProFeattype type = TypeToVisit(feature);
    const bool taken =
        type == PRO_FEAT_COMPONENT || type == kFirstWideType || type == kSecondWideType;
    return taken ? PRO_TK_NO_ERROR : PRO_TK_CONTINUE;
}

// Every component, even one whose model is not in memory.
ProError VisitAllComponents(ProFeature* feature, ProError, ProAppData data) noexcept {
    if (!IsShown(feature)) return PRO_TK_NO_ERROR;
    AppendTo(data, feature);
    ProMdl model = nullptr;
    if (ProAsmcompMdlGet(feature, &model) != PRO_TK_NO_ERROR) return PRO_TK_CONTINUE;
    if (TypeOf(model) == PRO_MDL_ASSEMBLY) Descend(model, VisitAllComponents, data);
    return PRO_TK_NO_ERROR;
}

// Parts; a sub-assembly is only descended into.
ProError VisitPartComponents(ProFeature* feature, ProError, ProAppData data) noexcept {
    if (!IsShown(feature)) return PRO_TK_NO_ERROR;
    ProMdl model = nullptr;
    if (ProAsmcompMdlGet(feature, &model) != PRO_TK_NO_ERROR) return PRO_TK_CONTINUE;
    const ProMdlType type = TypeOf(model);
    if (type == PRO_MDL_PART) AppendTo(data, feature);
    if (type == PRO_MDL_ASSEMBLY) Descend(model, VisitPartComponents, data);
    return PRO_TK_NO_ERROR;
}

// Sub-assemblies, before what lies below them.
ProError VisitAsmComponents(ProFeature* feature, ProError, ProAppData data) noexcept {
    if (!IsShown(feature)) return PRO_TK_NO_ERROR;
    ProMdl model = nullptr;
    if (ProAsmcompMdlGet(feature, &model) != PRO_TK_NO_ERROR) return PRO_TK_CONTINUE;
    if (TypeOf(model) != PRO_MDL_ASSEMBLY) return PRO_TK_NO_ERROR;
    AppendTo(data, feature);
    Descend(model, VisitAsmComponents, data);
    return PRO_TK_NO_ERROR;
}

// Whatever has the subtype of sheet metal.
ProError VisitSheetMetalComponents(ProFeature* feature, ProError, ProAppData data) noexcept {
    if (!IsShown(feature)) return PRO_TK_NO_ERROR;
    ProMdl model = nullptr;
    if (ProAsmcompMdlGet(feature, &model) != PRO_TK_NO_ERROR) return PRO_TK_CONTINUE;
    if (SubtypeOf(model) == PROMDLSTYPE_PART_SHEETMETAL) AppendTo(data, feature);
    if (TypeOf(model) == PRO_MDL_ASSEMBLY) Descend(model, VisitSheetMetalComponents, data);
    return PRO_TK_NO_ERROR;
}

ProError VisitDirectComponents(ProFeature* feature, ProError, ProAppData data) noexcept {
    if (IsShown(feature)) AppendTo(data, feature);
    return PRO_TK_NO_ERROR;
}

ComponentArray ComponentCollector(ProMdl top, ProFeatureVisitAction visitor,
                                  ProFeatureFilterAction filter) {
    ComponentArray components;
    components.Allocate();
    if (top && components) {
        ProSolidFeatVisit(static_cast<ProSolid>(top), visitor, filter, components.Place());
    }
    return components;
}

ModelList ModelsOf(const ComponentArray& components, int size, const ModelList& list) {
    // Uses outnumber models by far, so each model is taken in once and only models are sorted.
    std::unordered_set<ProMdl> models(list.begin(), list.end());
    for (int i = 0; i < size; ++i) {
        ProMdl model = nullptr;
        ProAsmcompMdlGet(&components.data()[i], &model);
        if (model) models.insert(model);
    }
    ModelList sorted(models.begin(), models.end());
    std::sort(sorted.begin(), sorted.end(), std::less<ProMdl>());
    return sorted;
}

ModelList ReduceToModelList(ComponentArray components, int size, const ModelList& list) {
    ModelList models = ModelsOf(components, size, list);
    components.Free();
    return models;
}
