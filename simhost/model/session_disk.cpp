// Models between memory and the folders that they come from and go to.
#include <fmt/format.h>

#include <algorithm>
#include <climits>
#include <unordered_set>
#include <utility>

#include "simhost/core/disk.h"
#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/model/model_file.h"
#include "simhost/model/model_tree.h"
#include "simhost/model/session.h"
#include "simhost/model/solid_features.h"

namespace simhost {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kFoldersKept = 8;

// Why no bytes came from this place.
std::string WhyUnreadable(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status)) return "it is a folder";
    if (!fs::exists(status)) return "it is a link that leads nowhere";
    if (!fs::is_regular_file(status)) return "it is no file";
    return "the system does not let it be read";
}

}  // namespace

ModelFolder& Session::FolderOf(const fs::path& folder) {
    for (const auto& known : folders_) {
        if (known->folder() == folder) return *known;
    }
    if (folders_.size() >= kFoldersKept) folders_.clear();
    folders_.push_back(std::make_unique<ModelFolder>(folder));
    return *folders_.back();
}

Model& Session::ReadVersion(const WideText& folder, const std::string& fileName, ProMdlType type,
                            const ModelVersion& version) {
    const fs::path path = FolderOf(disk_.Real(folder)).PathOf(version.name);
    Model& model = Create(Wide(fileName.substr(0, fileName.rfind('.'))), type);
    try {
        bool found = false;
        const std::string text = ReadFile(path, &found);
        if (!found) throw ModelFileError(version.name + ": " + WhyUnreadable(path));
        ReadModelText(text, version.name, &model);
        if (model.type != type) {
            throw ModelFileError(version.name + ": the type inside is not the one of its name");
        }
    } catch (...) {
        model.type = type;
        Erase(model);
        throw;
    }
    model.version = version.number;
    model.folder = folder;
    return model;
}

// A file that cannot be read is never replaced by an older one in silence: whoever saved the newest
// must learn that it is lost.
Model* Session::Load(const WideText& folder, const std::string& fileName, int wanted) {
    if (Model* model = FindByFile(fileName)) {
        if (wanted == 0 || model->version == wanted) return model;
        throw ModelFileError(fmt::format("{} is in memory already, and is its version {}", fileName,
                                         model->version));
    }
    const std::size_t dot = fileName.rfind('.');
    const ProMdlType type =
        dot == std::string::npos ? PRO_MDL_UNUSED : TypeOfSuffix(fileName.substr(dot + 1));
    if (type == PRO_MDL_UNUSED) return nullptr;
    const std::vector<ModelVersion>& versions = FolderOf(disk_.Real(folder)).VersionsOf(fileName);
    auto last = versions.end();
    while (wanted != 0 && last != versions.begin() && (last - 1)->number != wanted) --last;
    if (last == versions.begin()) return nullptr;
    try {
        return &ReadVersion(folder, fileName, type, *(last - 1));
    } catch (const ModelFileError& error) {
        if (last - 1 == versions.begin()) throw;
        throw ModelFileError(fmt::format("{}; the file before it is {}, and \"open {}\" opens it",
                                         error.what(), (last - 2)->name, (last - 2)->name));
    }
}

// One retrieve: what it brings into memory, and where that hangs, so that all can be undone.
class Session::Retrieval {
public:
    Retrieval(Session& session, const Step& step) : session_(session), step_(step) {}

    Model* Run(const WideText& folder, const std::string& fileName, int wanted) {
        Model* top = Bring(folder, fileName, wanted);
        if (!top) return nullptr;
        // What was in memory is looked through again only if it was asked for by its name.
        if (waiting_.empty()) waiting_.push_back(top);
        std::size_t done = 0;
        while (!waiting_.empty()) {
            Model* model = waiting_.back();
            waiting_.pop_back();
            Complete(*model);
            ++done;
            if (step_) step_(done, done + waiting_.size());
        }
        if (!filled_.empty()) CheckTree(*top);
        return top;
    }

    void Undo() {
        for (Model** place : filled_) *place = nullptr;
        const std::unordered_set<const Model*> gone(brought_.begin(), brought_.end());
        for (const Model* model : brought_) {
            session_.models_.Drop(model->handle);
            session_.byFile_.erase(model->FileName());
        }
        std::erase_if(session_.owned_, [&](const auto& one) { return gone.count(one.get()) > 0; });
    }

private:
    Model* Bring(const WideText& folder, const std::string& fileName, int wanted) {
        const bool known = session_.FindByFile(fileName) != nullptr;
        Model* model = session_.Load(folder, fileName, wanted);
        if (!model || known) return model;
        brought_.push_back(model);
        waiting_.push_back(model);
        return model;
    }

    // Beside the model that asks for it, then in the working folder.
    void Fill(const Model& owner, Model** place, const std::string& file) {
        if (file.empty() || *place) return;
        const WideText& working = session_.workingDirectory;
        const bool elsewhere = !owner.folder.empty() && owner.folder != working;
        if (elsewhere) *place = Bring(owner.folder, Lower(file), 0);
        if (!*place) *place = Bring(working, Lower(file), 0);
        if (*place) {
            filled_.push_back(place);
        } else {
            session_.missing_.push_back(file);
        }
    }

    void Complete(Model& model) {
        for (Feature& feature : model.MutableFeatures()) {
            Fill(model, &feature.model, feature.file);
            if (feature.merge) Fill(model, &feature.merge->source, feature.merge->file);
        }
        Fill(model, &model.manufacturingData.assembly, model.manufacturingData.assemblyFile);
        Fill(model, &model.family.generic, model.family.genericFile);
    }

    Session& session_;
    const Step& step_;
    std::vector<Model*> brought_, waiting_;
    std::vector<Model**> filled_;
};

Model* Session::RetrieveFrom(const WideText& folder, const std::string& fileName, int wanted,
                             const Step& step) {
    Retrieval retrieval(*this, step);
    try {
        return retrieval.Run(folder, fileName, wanted);
    } catch (...) {
        retrieval.Undo();
        throw;
    }
}

Model* Session::Retrieve(const std::string& name, const Step& step) {
    std::string fileName;
    const int wanted = SplitVersion(name, &fileName);
    Model* found = RetrieveFrom(workingDirectory, fileName, wanted, step);
    if (found || !fileName.ends_with(".frm") || !formatFolder) return found;
    const WideText elsewhere = formatFolder();
    return elsewhere.empty() ? nullptr : RetrieveFrom(elsewhere, fileName, wanted, step);
}

Model* Session::RetrievePath(const WideText& path) {
    const std::size_t slash = path.find_last_of(WIDE("\\/"));
    const WideText folder = slash == WideText::npos ? workingDirectory : path.substr(0, slash);
    std::string fileName;
    const std::string name = Utf8(path.substr(slash == WideText::npos ? 0 : slash + 1));
    const int wanted = SplitVersion(name, &fileName);
    if (Model* model = FindByFile(fileName)) return model;
    return RetrieveFrom(folder, fileName, wanted, {});
}

void Session::RequireFreeName(WideView name, ProMdlType type) {
    if (!IsModelName(name)) Refuse(PRO_TK_BAD_INPUTS);
    const std::string fileName = Utf8(Lower(name)) + '.' + SuffixOf(type);
    if (FindByFile(fileName) || !FilesOf(workingDirectory, fileName).empty()) {
        Refuse(PRO_TK_E_FOUND);
    }
}

Model& Session::CreateSolid(WideView name, ProMdlType type) {
    RequireFreeName(name, type);
    Model& made = Create(name, type);
    made.modified = true;
    return made;
}

Model& Session::Copy(const Model& source, WideView name) {
    RequireFreeName(name, source.type);
    Model& copy = Create(name, source.type);
    try {
        ReadModelText(ModelText(source), copy.FileName(), &copy);
    } catch (...) {
        copy.type = source.type;
        Erase(copy);
        throw;
    }
    // What an instance shows of its generic becomes its own.
    if (source.family.generic) {
        for (const Parameter& one : source.family.generic->parameters.all()) {
            const Parameter* shown = ShownParameter(source, one.name);
            if (shown && !copy.parameters.Find(one.name)) copy.parameters.Set(*shown);
        }
    }
    copy.readOnly = false;
    copy.modified = true;
    copy.family.genericFile.clear();
    for (Feature& feature : copy.MutableFeatures()) {
        feature.model = FindByFile(feature.file);
        if (feature.merge) feature.merge->source = FindByFile(feature.merge->file);
    }
    copy.manufacturingData.assembly = FindByFile(copy.manufacturingData.assemblyFile);
    return copy;
}

Model* Session::RetrieveOrTell(const std::string& fileName) {
    try {
        return Retrieve(fileName);
    } catch (const ModelFileError& error) {
        if (tell) tell(error.what());
        return nullptr;
    }
}

std::vector<std::string> Session::TakeMissing() {
    std::sort(missing_.begin(), missing_.end());
    missing_.erase(std::unique(missing_.begin(), missing_.end()), missing_.end());
    return std::exchange(missing_, {});
}

std::string Session::Save(Model& model) {
    const bool elsewhere = savesInWorkingFolder && savesInWorkingFolder();
    const WideText folder = elsewhere || model.folder.empty() ? workingDirectory : model.folder;
    std::string path = SaveInto(model, folder);
    if (model.folder.empty()) model.folder = folder;
    return path;
}

std::string Session::SaveInto(Model& model, const WideText& folder) {
    const Written written = WriteNextVersion(model, ModelText(model), folder);
    model.version = written.version;
    model.modified = false;
    const auto text = written.path.u8string();
    return std::string(text.begin(), text.end());
}

Session::Written Session::WriteNextVersion(const Model& model, const std::string& text,
                                           const WideText& folder) {
    const fs::path real = disk_.Real(folder);
    const std::string fileName = model.FileName();
    const auto fail = [&](const std::string& why) {
        throw ModelFileError(fmt::format("{} is not saved in {}: {}", fileName, Utf8(folder), why));
    };
    std::error_code error;
    const fs::file_status status = fs::status(real, error);
    if (!fs::is_directory(status)) fail("there is no such folder");
    if ((status.permissions() & fs::perms::owner_write) == fs::perms::none) {
        fail("the folder is read-only");
    }
    ModelFolder& index = FolderOf(real);
    const auto& versions = index.VersionsOf(fileName);
    const int newest = versions.empty() ? 0 : versions.back().number;
    if (newest == INT_MAX) {
        fail(fmt::format("no version can come after {}, which is there", versions.back().name));
    }
    const std::string name = fmt::format("{}.{}", fileName, newest + 1);
    const fs::path path = index.PathOf(name);
    std::string reason;
    if (!WriteFile(path, text, &reason)) fail(name + ": " + reason);
    return {path, newest + 1};
}

}  // namespace simhost
