// Backups: models, as they are in memory, with all that they need in another folder.
#include <algorithm>
#include <unordered_set>

#include "simhost/core/disk.h"
#include "simhost/core/text.h"
#include "simhost/model/drawing.h"
#include "simhost/model/model_file.h"
#include "simhost/model/session.h"
#include "simhost/model/solid_features.h"

namespace simhost {

namespace {

// What a model cannot be opened without, as far as it is in memory; null where it is not.
std::vector<Model*> NeededBy(Model& model) {
    std::vector<Model*> needed = {model.manufacturingData.assembly, model.family.generic};
    for (const Feature& feature : model.features()) {
        needed.push_back(feature.model);
        if (feature.merge) needed.push_back(feature.merge->source);
    }
    const Session& session = *model.session;
    model.drawingData.EachFile(
        [&](const std::string* file) { needed.push_back(session.FindByFile(*file)); });
    if (!model.drawingData.views) return needed;
    // A drawing that nobody has looked at yet has its models on disk alone.
    for (const auto& view : model.drawingData.views->views()) needed.push_back(ModelOf(*view));
    return needed;
}

// The model itself first; each once.
std::vector<Model*> WithAllNeeded(Model& model) {
    std::vector<Model*> all{&model};
    std::unordered_set<const Model*> seen{nullptr, &model};
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (Model* next : NeededBy(*all[i])) {
            if (seen.insert(next).second) all.push_back(next);
        }
    }
    return all;
}

}  // namespace

void Session::Backup(Model& model, const WideText& folder) {
    for (const Model* each : WithAllNeeded(model)) {
        const std::string text = ModelText(*each);
        ModelFolder& index = FolderOf(disk_.Real(folder));
        const auto& versions = index.VersionsOf(each->FileName());
        if (!versions.empty() && ReadFile(index.PathOf(versions.back().name)) == text) continue;
        WriteNextVersion(*each, text, folder);
    }
}

}  // namespace simhost
