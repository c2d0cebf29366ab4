// Which models a batch command treats.
#include "modeldata/batch_targets.h"

#include <utility>

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

}  // namespace

ComponentArray CollectByScope(const TopModel& top, const std::string& scope) {
    const ScopeRow* row = FindScope(scope);
    if (row) return ComponentCollector(top.model, row->visitor);
    ComponentArray none;
    none.Allocate();
    return none;
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

void ShowNoComponents() {
    ShowPlainError(WIDE("当前模型中没有合适的子零件/组件"));
}

void RefreshCurrentTree() {
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) == PRO_TK_NO_ERROR) ProTreetoolRefresh(model);
}
