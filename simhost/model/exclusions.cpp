// Looks through a whole assembly once, and again when its components or representations change.
#include "simhost/model/exclusions.h"

#include <algorithm>
#include <functional>
#include <vector>

#include "simhost/model/session.h"
#include "simhost/model/shown.h"
#include "simhost/model/simprep.h"

namespace simhost {

bool Exclusions::Has(const Session& session, const Model& owner, int id) {
    const Model* current = session.CurrentModel();
    if (!current) return false;
    const Model& top = ContentsOf(*current);
    if (!top.ActiveSimprep()) return false;
    if (top_ != &top || revision_ != session.contentsRevision ||
        representation_ != top.activeSimprep) {
        LookThrough(top);
        top_ = &top;
        revision_ = session.contentsRevision;
        representation_ = top.activeSimprep;
    }
    return excluded_.count({&owner, id}) > 0;
}

void Exclusions::LookThrough(const Model& top) {
    const Membership membership(top.ActiveSimprep());
    std::set<std::pair<const Model*, int>> included;
    std::vector<const Model*> above;
    excluded_.clear();
    const std::function<void(const Model&, Membership::At)> visit = [&](const Model& model,
                                                                        Membership::At at) {
        if (std::find(above.begin(), above.end(), &model) != above.end()) return;
        above.push_back(&model);
        for (const Feature& feature : model.features()) {
            if (feature.file.empty() && !feature.model) continue;
            const Membership::At below = Membership::Below(at, feature.id);
            const bool there = Membership::IsThere(below);
            (there ? included : excluded_).insert({&model, feature.id});
            if (feature.model) visit(*feature.model, below);
        }
        above.pop_back();
    };
    visit(top, membership.Top());
    for (const auto& each : included) excluded_.erase(each);
}

}  // namespace simhost
