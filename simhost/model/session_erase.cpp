// Models that leave memory: who needs them, and what ends with them.
#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/model/drawing.h"
#include "simhost/model/session.h"
#include "simhost/model/solid_features.h"

namespace simhost {

namespace {

// Calls `each` with every model in memory that a model needs, some of them several times.
template <class Each>
void EachNeeded(Model& model, const Session& session, Each each) {
    const auto byFile = [&](const std::string& file) {
        if (!file.empty()) each(session.FindByFile(file));
    };
    for (const Feature& feature : model.features()) {
        each(feature.model);
        if (feature.merge) each(feature.merge->source);
    }
    each(model.manufacturingData.assembly);
    each(model.family.generic);
    model.drawingData.EachFile([&](const std::string* file) { byFile(*file); });
    if (!model.drawingData.views) return;
    for (const auto& view : model.drawingData.views->views()) byFile(view->file);
}

}  // namespace

bool Session::IsInUse(const Model& model) const {
    const std::string file = model.FileName();
    const auto shows = [&](const auto& view) { return Lower(view->file) == file; };
    const auto uses = [&](const Feature& feature) {
        return feature.model == &model || (feature.merge && feature.merge->source == &model);
    };
    const auto needs = [&](const std::unique_ptr<Model>& other) {
        if (other.get() == &model) return false;
        bool onSheets = false;
        other->drawingData.EachFile([&](std::string* each) { onSheets |= Lower(*each) == file; });
        if (onSheets) return true;
        if (other->manufacturingData.assembly == &model) return true;
        if (other->family.generic == &model) return true;
        const auto& drawing = other->drawingData.views;
        if (drawing && std::any_of(drawing->views().begin(), drawing->views().end(), shows)) {
            return true;
        }
        return std::any_of(other->features().begin(), other->features().end(), uses);
    };
    const auto isShown = [&](const Window& window) { return window.model == &model; };
    return std::any_of(windows_.begin(), windows_.end(), isShown) ||
           std::any_of(owned_.begin(), owned_.end(), needs);
}

void Session::Erase(Model& model) {
    for (const auto& other : owned_) {
        for (Feature& feature : other->MutableFeatures()) {
            if (feature.model == &model) feature.model = nullptr;
            if (feature.merge && feature.merge->source == &model) feature.merge->source = nullptr;
        }
        if (other->manufacturingData.assembly == &model)
            other->manufacturingData.assembly = nullptr;
        if (other->family.generic == &model) other->family.generic = nullptr;
    }
    for (Window& window : windows_) {
        if (window.model == &model) window.model = nullptr;
    }
    Drop({&model});
}

// Each handle that is looked up in them costs the same, however many models go.
void Session::Drop(const std::unordered_set<const Model*>& models) {
    GoneModels gone;
    gone.reserve(2 * models.size());
    for (const Model* model : models) {
        for (const auto& surface : model->SurfacesSoFar()) surfaces_.Drop(surface->handle);
        csyses.Forget(*model);
        models_.Drop(model->handle);
        byFile_.erase(model->FileName());
        gone.insert(model);
        gone.insert(model->handle);
    }
    selections.Forget(gone);
    constraints.Forget(gone);
    std::erase_if(owned_, [&](const auto& one) { return models.count(one.get()) > 0; });
}

Session::Erased Session::EraseNotDisplayed() {
    std::unordered_set<const Model*> needed;
    std::vector<Model*> waiting;
    const auto need = [&](Model* model) {
        if (model && needed.insert(model).second) waiting.push_back(model);
    };
    for (const Window& window : windows_) need(window.model);
    while (!waiting.empty()) {
        Model* model = waiting.back();
        waiting.pop_back();
        EachNeeded(*model, *this, need);
    }
    Erased erased;
    std::unordered_set<const Model*> gone;
    for (const auto& model : owned_) {
        if (needed.count(model.get())) continue;
        gone.insert(model.get());
        if (model->modified) erased.unsaved.push_back(model->FileName());
    }
    erased.models = gone.size();
    Drop(gone);
    return erased;
}

}  // namespace simhost
