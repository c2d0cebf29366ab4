// Coordinate systems by their numbers and by their handles.
#include "simhost/model/csys.h"

#include <climits>

#include "simhost/model/datums.h"

namespace simhost {

int CsysIdOf(const Feature& feature) {
    return DatumIdOf(feature);
}

Feature* FindCsys(Model& model, int csysId) {
    return FindDatum(model, PRO_CSYS, csysId);
}

ProCsys CsysHandles::Of(Model& model, const Feature& feature) {
    auto& known = known_[{&model, feature.id}];
    if (!known) {
        known = std::make_unique<Known>(Known{{&model, feature.id}, nullptr});
        known->handle = handles_.Add(known.get());
    }
    return static_cast<ProCsys>(known->handle);
}

const Csys* CsysHandles::Find(const void* handle) const {
    const Known* known = handles_.Find(handle);
    return known && known->csys.model->FindFeature(known->csys.feature) ? &known->csys : nullptr;
}

void CsysHandles::Forget(const Model& model) {
    const auto first = known_.lower_bound({&model, INT_MIN});
    auto last = first;
    for (; last != known_.end() && last->first.first == &model; ++last) {
        handles_.Drop(last->second->handle);
    }
    known_.erase(first, last);
}

}  // namespace simhost
