// Walks down and brings each model up to date once.
#include "simhost/model/regeneration.h"

#include <unordered_set>

namespace simhost {

namespace {

void RegenerateOnce(Model& model, std::unordered_set<const Model*>* done) {
    if (!done->insert(&model).second) return;
    ++model.regenerations;
    SheetMetal& sheet = model.partData.sheetMetal;
    const double developed = DevelopedLength(sheet);
    if (developed != sheet.developed) model.modified = true;
    sheet.developed = developed;
    for (const Feature& feature : model.features()) {
        if (feature.model) RegenerateOnce(*feature.model, done);
    }
}

}  // namespace

void Regenerate(Model& model) {
    std::unordered_set<const Model*> done;
    RegenerateOnce(model, &done);
}

}  // namespace simhost
