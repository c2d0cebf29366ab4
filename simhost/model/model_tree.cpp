// The search for trees that cannot be. It goes without recursion, for what it looks for is depth.
#include "simhost/model/model_tree.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "simhost/model/model_file.h"
#include "simhost/model/solid_features.h"

namespace simhost {

namespace {

// A kind of tie between models that must not lead back: what a model contains, or its generic.
using TiesOf = std::vector<Model*> (*)(Model&);

std::vector<Model*> Contents(Model& model) {
    std::vector<Model*> contents;
    for (const Feature& feature : model.features()) {
        if (feature.model) contents.push_back(feature.model);
        if (feature.merge && feature.merge->source) contents.push_back(feature.merge->source);
    }
    if (model.manufacturingData.assembly) contents.push_back(model.manufacturingData.assembly);
    return contents;
}

std::vector<Model*> Generic(Model& model) {
    if (!model.family.generic) return {};
    return {model.family.generic};
}

std::vector<Model*> AllTies(Model& model) {
    std::vector<Model*> all = Contents(model);
    if (model.family.generic) all.push_back(model.family.generic);
    return all;
}

std::vector<Model*> Reachable(Model& top) {
    std::vector<Model*> all{&top};
    std::unordered_map<const Model*, bool> seen{{&top, true}};
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (Model* next : AllTies(*all[i])) {
            if (seen.emplace(next, true).second) all.push_back(next);
        }
    }
    return all;
}

// One model on the way down from where the search began.
struct Step {
    Model* model;
    std::vector<Model*> ties;
    std::size_t next = 0;
    int levels = 0;  // found below it so far
};

// The beginning and the end of a long chain say all.
std::string Chain(const std::vector<Step>& way, std::size_t first, const Model* last) {
    constexpr std::size_t kShown = 6;
    std::string text;
    const std::size_t count = way.size() - first;
    for (std::size_t i = 0; i < count; ++i) {
        if (count > 2 * kShown && i == kShown) {
            text += fmt::format("… ({} more) > ", count - 2 * kShown);
            i = count - kShown;
        }
        text += way[first + i].model->FileName() + " > ";
    }
    return text + last->FileName();
}

class Search {
public:
    Search(TiesOf ties, const char* circle) : ties_(ties), circle_(circle) {}

    // Looks through what `start` leads to, each model once however often it is used.
    void From(Model& start) {
        if (levels_.count(&start)) return;
        Enter(start);
        while (!way_.empty()) {
            if (way_.back().next < way_.back().ties.size()) {
                Follow(*way_.back().ties[way_.back().next++]);
            } else {
                Leave();
            }
        }
    }

private:
    void Enter(Model& model) {
        levels_[&model] = kOnTheWay;
        way_.push_back({&model, ties_(model)});
    }

    void Follow(Model& model) {
        const auto known = levels_.find(&model);
        if (known == levels_.end()) return Enter(model);
        if (known->second == kOnTheWay) FailCircle(model);
        way_.back().levels = std::max(way_.back().levels, known->second + 1);
    }

    void Leave() {
        const Step done = std::move(way_.back());
        way_.pop_back();
        levels_[done.model] = done.levels;
        if (done.levels > kMostLevels) {
            throw ModelFileError(fmt::format("{} has more than {} levels below it",
                                             done.model->FileName(), kMostLevels));
        }
        if (!way_.empty()) way_.back().levels = std::max(way_.back().levels, done.levels + 1);
    }

    [[noreturn]] void FailCircle(const Model& model) const {
        std::size_t first = 0;
        while (way_[first].model != &model) ++first;
        throw ModelFileError(
            fmt::format("{} {}: {}", model.FileName(), circle_, Chain(way_, first, &model)));
    }

    static constexpr int kOnTheWay = -1;
    TiesOf ties_;
    const char* circle_;
    std::vector<Step> way_;
    std::unordered_map<const Model*, int> levels_;  // below each model that is done
};

// What a model leads to has a kind that fits.
void CheckKinds(const Model& model) {
    const auto fail = [&](const char* tie, const Model& other, const char* why) {
        throw ModelFileError(
            fmt::format("{} {} {}, which is {}", model.FileName(), tie, other.FileName(), why));
    };
    for (const Feature& feature : model.features()) {
        const Model* source = feature.merge ? feature.merge->source : nullptr;
        if (source && source->type != PRO_MDL_PART) fail("merges", *source, "not a part");
        if (!feature.model) continue;
        const ProMdlType type = feature.model->type;
        if (type == PRO_MDL_PART || type == PRO_MDL_ASSEMBLY) continue;
        fail("has the component", *feature.model, "neither a part nor an assembly");
    }
    if (model.manufacturingData.assembly &&
        model.manufacturingData.assembly->type != PRO_MDL_ASSEMBLY) {
        fail("machines", *model.manufacturingData.assembly, "not an assembly");
    }
    if (model.family.generic && model.family.generic->type != model.type) {
        fail("has the generic", *model.family.generic, "of another kind");
    }
}

}  // namespace

void CheckTree(Model& top) {
    Search contents(Contents, "contains itself");
    Search generics(Generic, "is its own generic");
    for (Model* model : Reachable(top)) {
        CheckKinds(*model);
        contents.From(*model);
        generics.From(*model);
    }
}

namespace {

bool ContainsUnseen(const Model& model, const Model& wanted,
                    std::unordered_set<const Model*>* seen) {
    if (&model == &wanted) return true;
    if (!seen->insert(&model).second) return false;
    for (const Feature& feature : model.features()) {
        if (feature.model && ContainsUnseen(*feature.model, wanted, seen)) return true;
    }
    return false;
}

}  // namespace

bool Contains(const Model& model, const Model& wanted) {
    std::unordered_set<const Model*> seen;
    return ContainsUnseen(model, wanted, &seen);
}

}  // namespace simhost
