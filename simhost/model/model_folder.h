// Which model files lie in a folder: gearbox.asm.1, gearbox.asm.2 and so on are the versions of
// gearbox.asm, and the highest is the newest; a file without a number is older than all of them.
#pragma once

#include <filesystem>
#include <string>
#include <unordered_map>
#include <vector>

#include "simhost/core/file_names.h"
#include "simhost/core/folder_watch.h"

namespace simhost {

struct ModelVersion {
    int number = 0;    // 0: the file has none
    std::string name;  // as it lies there, UTF-8
};

// The index of one folder, right at each question whoever changed the folder.
class ModelFolder {
public:
    explicit ModelFolder(std::filesystem::path folder) : watch_(std::move(folder)) {}

    // The versions of a file, the newest last; empty if there is none. Valid until the next
    // question. The name in small letters, "gearbox.asm".
    const std::vector<ModelVersion>& VersionsOf(const std::string& fileName);

    std::filesystem::path PathOf(const std::string& name) const;
    const std::filesystem::path& folder() const { return watch_.folder(); }

private:
    void Update();
    void ReadAll();
    void Note(const std::string& name, bool there);

    FolderWatch watch_;
    std::vector<FolderWatch::Change> changes_;
    std::unordered_map<std::string, std::vector<ModelVersion>> files_;
};

}  // namespace simhost
