// Models in memory and on disk, windows, selections.
#include "simhost/model/session.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/model_file.h"

namespace simhost {

namespace fs = std::filesystem;

Session::Session() = default;
Session::~Session() = default;

// --- Models in memory ---

Model& Session::Create(WideView name, ProMdlType type) {
    auto model = std::make_unique<Model>();
    model->name = Upper(name);
    model->type = type;
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

void Session::Erase(Model& model) {
    for (const auto& other : owned_) {
        for (Feature& feature : other->MutableFeatures()) {
            if (feature.model == &model) feature.model = nullptr;
        }
        if (other->manufactured == &model) other->manufactured = nullptr;
        if (other->family.generic == &model) other->family.generic = nullptr;
    }
    for (Window& window : windows_) {
        if (window.model == &model) window.model = nullptr;
    }
    for (const auto& surface : model.Surfaces()) surfaces_.Drop(surface->handle);
    std::erase_if(buffer, [&](Selection* one) { return one->item.owner == model.handle; });
    models_.Drop(model.handle);
    byFile_.erase(model.FileName());
    std::erase_if(owned_, [&](const auto& one) { return one.get() == &model; });
}

// --- Disk ---

namespace {

// The number behind "gearbox.asm." in a versioned file name; 0 for any other name.
int VersionOf(const std::string& name, const std::string& fileName) {
    if (name.size() <= fileName.size() + 1 || name[fileName.size()] != '.' ||
        Lower(name.substr(0, fileName.size())) != fileName) {
        return 0;
    }
    int version = 0;
    const char* end = name.data() + name.size();
    const auto parsed = std::from_chars(name.data() + fileName.size() + 1, end, version);
    return parsed.ec == std::errc() && parsed.ptr == end && version > 0 ? version : 0;
}

std::string NameOf(const fs::path& path) {
    const auto utf8 = path.filename().u8string();
    return std::string(utf8.begin(), utf8.end());
}

// The highest version of a model file in a folder; 0 if there is none.
int NewestVersion(const fs::path& folder, const std::string& fileName, fs::path* newest) {
    int best = 0;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const int version = VersionOf(NameOf(entry.path()), fileName);
        if (version <= best) continue;
        best = version;
        *newest = entry.path();
    }
    return best;
}

}  // namespace

Model* Session::Load(const std::string& fileName) {
    if (Model* model = FindByFile(fileName)) return model;
    const std::size_t dot = fileName.rfind('.');
    const ProMdlType type =
        dot == std::string::npos ? PRO_MDL_UNUSED : TypeOfSuffix(fileName.substr(dot + 1));
    const fs::path folder = TheHost().disk.Real(workingDirectory);
    fs::path path;
    const int version = folderIndex_.Newest(folder, fileName, &path);
    if (type == PRO_MDL_UNUSED || version == 0) return nullptr;

    Model& model = Create(Wide(fileName.substr(0, dot)), type);
    try {
        ReadModelText(ReadFile(path), NameOf(path), &model);
        if (model.type != type) {
            throw ModelFileError(NameOf(path) + ": the type inside is not the one of its name");
        }
    } catch (...) {
        model.type = type;
        Erase(model);
        throw;
    }
    model.version = version;
    return &model;
}

Model* Session::Retrieve(const std::string& name) {
    const std::string fileName = Lower(name);
    // What is in memory is not looked for on disk, so the folder is read when the first file is.
    bool folderIsRead = false;
    const auto load = [&](const std::string& file) {
        if (!folderIsRead && !FindByFile(file)) {
            folderIndex_.Read(TheHost().disk.Real(workingDirectory));
            folderIsRead = true;
        }
        return Load(file);
    };
    Model* top = load(fileName);
    if (!top) return nullptr;
    // Every model that comes into memory here is looked through once.
    std::vector<Model*> waiting{top};
    while (!waiting.empty()) {
        Model* model = waiting.back();
        waiting.pop_back();
        const auto bring = [&](const std::string& file) -> Model* {
            const bool known = FindByFile(file) != nullptr;
            Model* found = load(Lower(file));
            if (!found) missing_.push_back(file);
            if (found && !known) waiting.push_back(found);
            return found;
        };
        for (Feature& feature : model->MutableFeatures()) {
            if (!feature.file.empty() && !feature.model) feature.model = bring(feature.file);
        }
        if (!model->manufacturedFile.empty() && !model->manufactured) {
            model->manufactured = bring(model->manufacturedFile);
        }
        if (!model->family.genericFile.empty() && !model->family.generic) {
            model->family.generic = bring(model->family.genericFile);
        }
    }
    return top;
}

std::vector<std::string> Session::TakeMissing() {
    std::sort(missing_.begin(), missing_.end());
    missing_.erase(std::unique(missing_.begin(), missing_.end()), missing_.end());
    return std::exchange(missing_, {});
}

std::string Session::Save(Model& model) {
    return SaveInto(model, workingDirectory);
}

std::string Session::SaveInto(Model& model, const WideText& folder) {
    const fs::path real = TheHost().disk.Real(folder);
    const std::string fileName = model.FileName();
    fs::path newest;
    const int version = NewestVersion(real, fileName, &newest) + 1;
    const std::string name = fmt::format("{}.{}", fileName, version);
    const fs::path path = real / fs::path(std::u8string(name.begin(), name.end()));
    if (!WriteFile(path, ModelText(model))) Complain(PRO_TK_CANT_WRITE, "cannot write " + name);
    model.version = version;
    model.modified = false;
    const auto text = path.u8string();
    return std::string(text.begin(), text.end());
}

void FolderIndex::Read(const fs::path& folder) {
    folder_ = folder;
    newest_.clear();
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        const std::string name = NameOf(entry.path());
        const std::size_t dot = name.rfind('.');
        if (dot == std::string::npos) continue;
        const std::string fileName = Lower(name.substr(0, dot));
        const int version = VersionOf(name, fileName);
        auto& known = newest_[fileName];
        if (version > known.first) known = {version, entry.path()};
    }
}

int FolderIndex::Newest(const fs::path& folder, const std::string& fileName, fs::path* path) {
    if (folder != folder_) Read(folder);
    const auto found = newest_.find(fileName);
    if (found == newest_.end()) return 0;
    *path = found->second.second;
    return found->second.first;
}

// --- Windows ---

Window& Session::Open(Model& model) {
    for (Window& window : windows_) {
        if (window.model == &model) {
            current = &window;
            return window;
        }
    }
    windows_.push_back({nextWindow_++, &model, 0});
    current = &windows_.back();
    return *current;
}

void Session::CloseCurrent() {
    if (!current) return;
    current->model = nullptr;
    current = nullptr;
}

Window* Session::FindWindow(int id) {
    if (id == PRO_VALUE_UNUSED) return current;
    for (Window& window : windows_) {
        if (window.id == id && window.model) return &window;
    }
    return nullptr;
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

// --- Selections, surfaces, objects ---

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

Selection& Session::Select(Model& top, std::vector<int> path, ProModelitem item) {
    auto selection = std::make_unique<Selection>();
    selection->item = item;
    selection->top = &top;
    selection->path = std::move(path);
    selection->handle = static_cast<ProSelection>(selections_.Add(selection.get()));
    ownedSelections_.push_back(std::move(selection));
    return *ownedSelections_.back();
}

void Session::Register(Surface* surface) {
    surface->handle = static_cast<ProSurface>(surfaces_.Add(surface));
}

Prohandle Session::ObjectOf(const Model& model) {
    return MakeHandle(HandleKind::Object, NumberOf(model.handle));
}

Model* Session::FindObject(const void* object) const {
    if (KindOf(object) != HandleKind::Object) return nullptr;
    return Find(MakeHandle(HandleKind::Model, NumberOf(object)));
}

}  // namespace simhost
