// The walk over what is there, with the state that is inherited on the way down.
#include "simhost/model/shown.h"

#include <algorithm>

#include "simhost/model/session.h"
#include "simhost/model/simprep.h"

namespace simhost {

namespace {

class Walk {
public:
    Walk(Sight sight, const std::function<void(const ShownPart&)>& visit)
        : sight_(sight), visit_(visit) {}

    void Run(const Model& top) {
        const Simprep* active = sight_ == Sight::Views ? nullptr : top.ActiveSimprep();
        const Membership membership(active);
        Visit(top, {&top, {}, &path_, nullptr}, membership.Top());
    }

private:
    // `here.placement` is that of the model's points in mm on the way down.
    void Visit(const Model& model, ShownPart here, Membership::At at) {
        const bool holds = model.type != PRO_MDL_PART;
        if (holds && !here.cover && model.appearance) here.cover = &*model.appearance;
        here.part = &model;
        if (!holds && model.HasShape() && at.included) {
            ShownPart found = here;
            found.placement = ForPointsOf(model, here.placement);
            visit_(found);
        }
        if (std::find(above_.begin(), above_.end(), &model) != above_.end()) return;
        above_.push_back(&model);
        for (const Feature& feature : model.features()) {
            const Membership::At below = Membership::Below(at, feature.id);
            if (!IsThere(feature) || !Membership::IsThere(below)) continue;
            const Model* used = feature.model;
            if (!used && model.session) used = model.session->FindByFile(feature.file);
            if (!used) continue;
            ShownPart next = here;
            next.placement = Compose(here.placement, PlaceInMm(feature.placement, model));
            path_.push_back(feature.id);
            Visit(*used, next, below);
            path_.pop_back();
        }
        above_.pop_back();
    }

    bool IsThere(const Feature& feature) const {
        if (feature.type != PRO_FEAT_COMPONENT || feature.status != PRO_FEAT_ACTIVE) return false;
        return feature.visible && !(feature.hidden && sight_ == Sight::Screen);
    }

    Sight sight_;
    const std::function<void(const ShownPart&)>& visit_;
    std::vector<int> path_;
    std::vector<const Model*> above_;
};

}  // namespace

void VisitShown(const Model& top, Sight sight, const std::function<void(const ShownPart&)>& visit) {
    Walk(sight, visit).Run(ContentsOf(top));
}

std::vector<ShownPart> ShownParts(const Model& top, Sight sight) {
    std::vector<ShownPart> parts;
    VisitShown(top, sight, [&](const ShownPart& each) {
        parts.push_back(each);
        parts.back().path = nullptr;
    });
    return parts;
}

const Model& ContentsOf(const Model& model) {
    return model.type == PRO_MDL_MFG && model.manufacturingData.assembly
               ? *model.manufacturingData.assembly
               : model;
}

Model& ContentsOf(Model& model) {
    return model.type == PRO_MDL_MFG && model.manufacturingData.assembly
               ? *model.manufacturingData.assembly
               : model;
}

}  // namespace simhost
