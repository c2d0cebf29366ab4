// Renaming of models: in memory, in what refers to them there, and on disk.
#include <fmt/format.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/model/drawing.h"
#include "simhost/model/model_file.h"
#include "simhost/model/session.h"
#include "simhost/model/solid_features.h"

namespace simhost {

namespace fs = std::filesystem;

namespace {

fs::path PathOf(const std::string& utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

// Renamings that are undone unless they are kept.
class FileMoves {
public:
    FileMoves() = default;
    FileMoves(const FileMoves&) = delete;
    FileMoves& operator=(const FileMoves&) = delete;
    ~FileMoves() {
        std::error_code ignored;
        for (auto move = done_.rbegin(); move != done_.rend(); ++move) {
            fs::rename(move->second, move->first, ignored);
        }
    }
    // Never over a file that is there.
    void Move(const fs::path& from, const fs::path& to) {
        std::error_code error;
        if (fs::exists(to, error)) {
            throw ModelFileError(fmt::format("{} is not renamed: {} is there already",
                                             from.filename().string(), to.filename().string()));
        }
        fs::rename(from, to, error);
        if (error) {
            throw ModelFileError(
                fmt::format("{} is not renamed: {}", from.filename().string(), error.message()));
        }
        done_.emplace_back(from, to);
    }
    void Keep() { done_.clear(); }

private:
    std::vector<std::pair<fs::path, fs::path>> done_;
};

}  // namespace

std::vector<std::string> Session::FilesOf(const WideText& folder, const std::string& fileName) {
    const fs::path real = disk_.Real(folder);
    std::error_code error;
    if (!fs::is_directory(real, error)) return {};
    std::vector<std::string> files;
    for (const ModelVersion& version : FolderOf(real).VersionsOf(fileName)) {
        files.push_back(version.name);
    }
    const fs::path plain = disk_.Real(folder + WIDE("\\") + Wide(fileName));
    if (fs::is_regular_file(plain, error)) {
        const auto name = plain.filename().u8string();
        const std::string text(name.begin(), name.end());
        if (std::find(files.begin(), files.end(), text) == files.end()) files.push_back(text);
    }
    return files;
}

void Session::LetReferencesFollow(const Model& model, const std::string& oldFile) {
    const std::string newFile = model.FileName();
    for (const auto& other : owned_) {
        bool refers = false;
        const auto follow = [&](std::string* file) {
            if (Lower(*file) != oldFile) return;
            *file = newFile;
            refers = true;
        };
        for (Feature& feature : other->MutableFeatures()) {
            follow(&feature.file);
            refers = refers || feature.model == &model;
            if (!feature.merge) continue;
            follow(&feature.merge->file);
            refers = refers || feature.merge->source == &model;
        }
        follow(&other->manufacturingData.assemblyFile);
        follow(&other->family.genericFile);
        refers = refers || other->manufacturingData.assembly == &model ||
                 other->family.generic == &model;
        other->drawingData.EachFile(follow);
        if (other->drawingData.views) {
            for (const auto& view : other->drawingData.views->views()) follow(&view->file);
        }
        if (refers) other->modified = true;
    }
}

void Session::Rename(Model& model, WideView name) {
    if (!IsModelName(name)) Refuse(PRO_TK_BAD_INPUTS);
    const std::string oldFile = model.FileName();
    const std::string newFile = Utf8(Lower(name)) + '.' + SuffixOf(model.type);
    const WideText folder = model.folder.empty() ? workingDirectory : model.folder;
    const bool isTaken = FindByFile(newFile) || !FilesOf(folder, newFile).empty() ||
                         !FilesOf(workingDirectory, newFile).empty();
    if (isTaken) Refuse(PRO_TK_E_FOUND);
    const fs::path real = disk_.Real(folder);
    const std::vector<std::string> files = FilesOf(folder, oldFile);
    for (const std::string& file : files) {
        const fs::path path = real / PathOf(file);
        std::error_code error;
        const auto may = fs::status(path, error).permissions();
        const bool readOnly = (may & fs::perms::owner_write) == fs::perms::none;
        if (readOnly || (mayWrite && !mayWrite(path))) {
            throw ModelFileError(fmt::format("{} is not renamed: {} {}", oldFile, file,
                                             readOnly ? "is read-only" : "is held by another"));
        }
    }
    FileMoves moves;
    for (const std::string& file : files) {
        moves.Move(real / PathOf(file), real / PathOf(newFile + file.substr(oldFile.size())));
    }
    moves.Keep();
    byFile_.erase(oldFile);
    model.name = Upper(name);
    byFile_[model.FileName()] = &model;
    LetReferencesFollow(model, oldFile);
}

}  // namespace simhost
