// The walk's results as texts.
#include "tests/frame/walk_bench.h"

namespace workbench {

using namespace simhost;

WalkBench::WalkBench() {
    UseAll(subsub_, {&pin_});
    UseAll(sub_, {&sheet_, &subsub_, &plate_});
    UseAll(top_, {&plate_, &sub_, &plate_});
}

Names WalkBench::Found(ComponentArray components) {
    Names found;
    const int size = components.Size();
    for (int i = 0; i < size; ++i) {
        const ProAsmcomp& component = components.data()[i];
        const Model* owner = host().session.Find(component.owner);
        EXPECT_EQ(component.type, PRO_FEATURE);
        found.push_back((owner ? owner->FileName() : "nobody") + "#" +
                        std::to_string(component.id));
    }
    return found;
}

Names WalkBench::Walk(Model& top, ProFeatureVisitAction visitor, ProFeatureFilterAction filter) {
    return Found(ComponentCollector(top.handle, visitor, filter));
}

Names WalkBench::FileNames(const ModelList& list) {
    Names names;
    for (const ProMdl handle : list) {
        const Model* model = host().session.Find(handle);
        names.push_back(model ? model->FileName() : "no model");
    }
    return names;
}

}  // namespace workbench
