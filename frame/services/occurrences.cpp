// Counts how often each model occurs in an assembly.
#include "frame/services/occurrences.h"

#include <unordered_map>
#include <utility>

#include "frame/services/assembly_walk.h"
#include "frame/services/models.h"
#include "frame/services/text.h"

namespace {

// Each handle's name is asked for once, and none is compared with all others.
class CountList {
public:
    void Add(ProMdl model) {
        const auto known = byHandle_.find(model);
        if (known != byHandle_.end()) {
            ++counts_[known->second].count;
            return;
        }
        const std::size_t place = PlaceOf(model);
        byHandle_.emplace(model, place);
        ++counts_[place].count;
    }

    std::vector<ModelCount> Take() { return std::move(counts_); }

private:
    std::size_t PlaceOf(ProMdl model) {
        const WideText name = ModelName(model);
        const ProMdlType type = TypeOf(model);
        // A model that cannot be told by its name is counted by itself.
        if (!name.empty()) {
            const WideText key = FoldCase(name) + WideChar('.') + WideChar(int(type) + 1);
            const auto [found, added] = byName_.emplace(key, counts_.size());
            if (!added) return found->second;
        }
        counts_.push_back({model, name, 0});
        return counts_.size() - 1;
    }

    std::vector<ModelCount> counts_;
    std::unordered_map<ProMdl, std::size_t> byHandle_;
    std::unordered_map<WideText, std::size_t> byName_;
};

}  // namespace

std::vector<ModelCount> CountModels(ProMdl top) {
    if (!top) return {};
    CountList counts;
    counts.Add(top);
    const ComponentArray components = ComponentCollector(top, VisitAllComponents);
    const int size = components.Size();
    for (int i = 0; i < size; ++i) {
        ProMdl model = nullptr;
        if (ProAsmcompMdlGet(&components.data()[i], &model) == PRO_TK_NO_ERROR) counts.Add(model);
    }
    return counts.Take();
}
