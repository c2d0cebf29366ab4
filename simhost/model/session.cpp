// Models in memory and on disk, windows, selections.
#include "simhost/model/session.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/model/drawing.h"
#include "simhost/model/solid_features.h"

namespace simhost {

namespace {

const Disk& NoDisk() {
    static const Disk none;
    return none;
}

}  // namespace

Session::Session() : Session(NoDisk()) {}
Session::Session(const Disk& disk) : disk_(disk) {}
Session::~Session() = default;

// --- Models in memory ---

Model& Session::Create(WideView name, ProMdlType type) {
    auto model = std::make_unique<Model>();
    model->name = Upper(name);
    model->type = type;
    model->session = this;
    model->surfaceHandles = &surfaces_;
    if (type == PRO_MDL_PART) model->subtype = PROMDLSTYPE_PART_SOLID;
    const std::string file = model->FileName();
    if (byFile_.count(file)) Complain(PRO_TK_E_FOUND, file + " is in memory already");
    model->handle = models_.Add(model.get());
    byFile_[file] = model.get();
    owned_.push_back(std::move(model));
    return *owned_.back();
}

Model& Session::Require(ProMdl handle) const {
    Model* model = Find(handle);
    if (model) return *model;
    if (!handle) Refuse(PRO_TK_BAD_INPUTS);
    Complain(PRO_TK_BAD_INPUTS,
             models_.WasGiven(handle) ? "a model that was erased" : "not a handle of a model");
}

Model& Session::RequireSolid(const void* handle) const {
    Model& model = Require(const_cast<void*>(handle));
    if (model.type != PRO_MDL_PART && model.type != PRO_MDL_ASSEMBLY) Refuse(PRO_TK_BAD_INPUTS);
    return model;
}

Model& Session::RequireDrawing(ProMdl handle) const {
    Model& model = Require(handle);
    if (model.type != PRO_MDL_DRAWING) Refuse(PRO_TK_BAD_INPUTS);
    return model;
}

Feature& Session::RequireFeature(const ProModelitem* item) const {
    Need(item, "the feature");
    Model& owner = Require(item->owner);
    Feature* feature = item->type == PRO_FEATURE ? owner.FindFeature(item->id) : nullptr;
    if (!feature) {
        Complain(PRO_TK_BAD_INPUTS, fmt::format("{} has no feature {} (item type {})",
                                                owner.FileName(), item->id, int(item->type)));
    }
    return *feature;
}

Model* Session::FindByName(WideView name, ProMdlType type) const {
    return FindByFile(Utf8(Lower(name)) + '.' + SuffixOf(type));
}

Model* Session::FindByFile(const std::string& fileName) const {
    const auto found = byFile_.find(Lower(fileName));
    return found == byFile_.end() ? nullptr : found->second;
}

std::vector<Model*> Session::All() const {
    std::vector<Model*> all;
    for (const auto& model : owned_) all.push_back(model.get());
    return all;
}

// --- Windows ---

Window& Session::Open(Model& model) {
    for (Window& window : windows_) {
        if (window.model == &model) {
            current = &window;
            return window;
        }
    }
    windows_.push_back({nextWindow_++, &model, 0, {}});
    current = &windows_.back();
    return *current;
}

void Session::Close(Window& window) {
    window.model = nullptr;
    window.activated.clear();
    if (current == &window) current = nullptr;
}

void Session::CloseCurrent() {
    if (current) Close(*current);
}

Window* Session::FindWindow(int id) {
    if (id == PRO_VALUE_UNUSED) return current;
    for (Window& window : windows_) {
        if (window.id == id && window.model) return &window;
    }
    return nullptr;
}

Model* Session::ActiveModel() const {
    Model* model = CurrentModel();
    if (!model || current->activated.empty()) return model;
    Model* below = model->manufacturingData.assembly ? model->manufacturingData.assembly : model;
    ProModelitem item;
    return Follow(*below, current->activated, &item) ? Find(item.owner) : model;
}

ProMode Session::Mode() const {
    const Model* model = CurrentModel();
    if (!model) return PRO_MODE_UNKNOWN;
    switch (model->type) {
        case PRO_MDL_PART:
            return model->subtype == PROMDLSTYPE_PART_SHEETMETAL ? PRO_MODE_SHEET_METAL
                                                                 : PRO_MODE_PART;
        case PRO_MDL_ASSEMBLY: return PRO_MODE_ASSEMBLY;
        case PRO_MDL_DRAWING: return PRO_MODE_DRAWING;
        case PRO_MDL_MFG: return PRO_MODE_MANUFACTURING;
        default: return PRO_MODE_UNKNOWN;
    }
}

// --- Paths, objects ---

bool Session::Follow(Model& top, const std::vector<int>& path, ProModelitem* item) {
    Model* model = &top;
    *item = {ProType(top.type), -1, top.handle};
    for (const int id : path) {
        Feature* feature = model->FindFeature(id);
        if (!feature || !feature->model) return false;
        model = feature->model;
        *item = {ProType(model->type), -1, model->handle};
    }
    return true;
}

Prohandle Session::ObjectOf(const Model& model) {
    return MakeHandle(HandleKind::Object, NumberOf(model.handle));
}

Model* Session::FindObject(const void* object) const {
    if (KindOf(object) != HandleKind::Object) return nullptr;
    return Find(MakeHandle(HandleKind::Model, NumberOf(object)));
}

}  // namespace simhost
