// Which models a batch command treats, and the loop over them.
#include "modeldata/batch_targets.h"

#include <utility>

#include "modeldata/keyword_filter.h"

namespace {

struct ScopeRow {
    const char* name;
    ProFeatureVisitAction visitor;
    bool withTop;          // the top model joins,
    bool onlyAssemblyTop;  // but not the assembly of a manufacturing model
};
constexpr ScopeRow kScopes[] = {
    {"AsmAndPart", VisitAllComponents, true, false},
    {"Part", VisitPartComponents, false, false},
    {"Asm", VisitAsmComponents, true, true},
    {"Smt", VisitSheetMetalComponents, false, false},
};

const ScopeRow* FindScope(const std::string& name) {
    for (const ScopeRow& row : kScopes) {
        if (name == row.name) return &row;
    }
    return nullptr;
}

ModelList TargetsByScope(const TopModel& top, const std::string& scope, ComponentArray components) {
    const ScopeRow* row = FindScope(scope);
    ModelList models;
    if (row && row->withTop && (!row->onlyAssemblyTop || top.type == PRO_MDL_ASSEMBLY)) {
        models.push_back(top.model);
    }
    const int size = components.Size();
    return ReduceToModelList(std::move(components), size, models);
}

}  // namespace

ComponentArray CollectByScope(const TopModel& top, const std::string& scope) {
    const ScopeRow* row = FindScope(scope);
    if (row) return ComponentCollector(top.model, row->visitor);
    ComponentArray none;
    none.Allocate();
    return none;
}

bool ForEachTarget(const TopModel& top, const std::string& scope, ComponentArray components,
                   Dialog dialog, const char* keywordPanel,
                   const std::function<void(ProMdl model, const WideText& name)>& work) {
    if (components.Size() == 0) {
        ShowPlainError(WIDE("当前模型中没有合适的子零件/组件"));
        return false;
    }
    const ModelList targets = TargetsByScope(top, scope, std::move(components));
    const auto filter = KeywordFilter::FromText(dialog.InputText(keywordPanel));
    for (const ProMdl model : targets) {
        const WideText name = ModelName(model);
        if (!filter.Excludes(name)) work(model, name);
    }
    return true;
}

void RefreshCurrentTree() {
    ProMdl model = nullptr;
    ProMdlCurrentGet(&model);
    if (model) ProTreetoolRefresh(model);
}
