// Walks down and brings each model up to date once.
#include "simhost/model/regeneration.h"

#include <unordered_set>

#include "simhost/model/constraints.h"

namespace simhost {

namespace {

void BringSheetUpToDate(Model& model) {
    SheetMetal& sheet = model.partData.sheetMetal;
    const double developed = DevelopedLength(sheet);
    if (developed != sheet.developed) model.modified = true;
    sheet.developed = developed;
}

void RegenerateOnce(Model& model, std::unordered_set<const Model*>* done) {
    if (!done->insert(&model).second) return;
    if (model.manufacturingData.assembly) RegenerateOnce(*model.manufacturingData.assembly, done);
    // What is below comes first: its coordinate systems may have moved.
    for (const Feature& feature : model.features()) {
        if (feature.model) RegenerateOnce(*feature.model, done);
    }
    ++model.regenerations;
    BringSheetUpToDate(model);
    for (std::size_t i = 0; i < model.features().size(); ++i) {
        const Feature& feature = model.features()[i];
        if (feature.constraints) PlaceComponent(model, model.FindFeature(feature.id));
    }
}

}  // namespace

void Regenerate(Model& model) {
    std::unordered_set<const Model*> done;
    RegenerateOnce(model, &done);
}

}  // namespace simhost
