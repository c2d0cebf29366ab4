// The one way in which the batch commands find what lies below the current model: a recursive visit
// of component features, parents before their children. Each command says which visitor it uses,
// whether it starts from the assembly of a manufacturing model, and what it says about an empty
// result.
#pragma once

#include <vector>

#include "frame/services/host_array.h"
#include "hostapi/host.h"

// The components found, one for each use: a feature's id and the assembly that directly holds it.
using ComponentArray = HostArray<ProAsmcomp>;

// Models, each once, ascending by the handle's numeric value. That order says nothing about the
// model tree or about names and may change from one run of the host to the next.
using ModelList = std::vector<ProMdl>;

// Filters: 0 takes a feature, PRO_TK_CONTINUE passes over it. ComponentFilter takes components;
// ComponentFilterWide also two further kinds of features, and holds for the top level only.
ProError ComponentFilter(ProFeature* feature, ProAppData data) noexcept;
ProError ComponentFilterWide(ProFeature* feature, ProAppData data) noexcept;

// Visitors; `data` is the place of a ComponentArray. All pass over what is not active and visible,
// with all that lies below it, and descend into sub-assemblies.
ProError VisitAllComponents(ProFeature* feature, ProError status, ProAppData data) noexcept;
ProError VisitPartComponents(ProFeature* feature, ProError status, ProAppData data) noexcept;
ProError VisitAsmComponents(ProFeature* feature, ProError status, ProAppData data) noexcept;
ProError VisitSheetMetalComponents(ProFeature* feature, ProError status, ProAppData data) noexcept;
// The same without the descent: what lies in the assembly itself.
ProError VisitDirectComponents(ProFeature* feature, ProError status, ProAppData data) noexcept;

// Walks from `top`. The array is empty for a part, and after a failure holds what was found before.
ComponentArray ComponentCollector(ProMdl top, ProFeatureVisitAction visitor,
                                  ProFeatureFilterAction filter = ComponentFilter);

// The models of these components and those in `list` (the top model, where the scope calls for it).
// A component whose model cannot be fetched is left out.
ModelList ModelsOf(const ComponentArray& components, int size, const ModelList& list = {});

// The same, and frees the array.
ModelList ReduceToModelList(ComponentArray components, int size, const ModelList& list = {});
