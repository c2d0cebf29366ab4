// The index of a folder's model files.
#include "simhost/model/model_folder.h"

#include <algorithm>
#include <tuple>

#include "simhost/core/text.h"
#include "simhost/model/model.h"

namespace simhost {

namespace fs = std::filesystem;

namespace {

bool IsModelFile(const std::string& fileName) {
    const std::size_t dot = fileName.rfind('.');
    return dot != std::string::npos && TypeOfSuffix(fileName.substr(dot + 1)) != PRO_MDL_UNUSED;
}

}  // namespace

const std::vector<ModelVersion>& ModelFolder::VersionsOf(const std::string& fileName) {
    static const std::vector<ModelVersion> none;
    Update();
    const auto found = files_.find(fileName);
    return found == files_.end() ? none : found->second;
}

fs::path ModelFolder::PathOf(const std::string& name) const {
    return folder() / fs::path(std::u8string(name.begin(), name.end()));
}

void ModelFolder::Update() {
    if (!watch_.Take(&changes_)) return ReadAll();
    for (const FolderWatch::Change& change : changes_) Note(change.name, change.there);
}

void ModelFolder::ReadAll() {
    files_.clear();
    std::error_code error;
    fs::directory_iterator entry(folder(), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const auto utf8 = entry->path().filename().u8string();
        Note(std::string(utf8.begin(), utf8.end()), /*there=*/true);
    }
}

// Two files may be the same version in letters of different case: each has its own entry.
void ModelFolder::Note(const std::string& name, bool there) {
    ModelVersion version;
    std::string fileName;
    version.number = SplitVersion(name, &fileName);
    if (version.number == 0 && !IsModelFile(fileName)) return;
    version.name = name;
    const auto order = [](const ModelVersion& a, const ModelVersion& b) {
        return std::tie(a.number, a.name) < std::tie(b.number, b.name);
    };
    auto& versions = files_[fileName];
    const auto place = std::lower_bound(versions.begin(), versions.end(), version, order);
    const bool known = place != versions.end() && place->name == name;
    if (there && !known) versions.insert(place, std::move(version));
    if (!there && known) versions.erase(place);
}

}  // namespace simhost
