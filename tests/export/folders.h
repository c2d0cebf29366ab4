// What the tests of this room share: folders on the drive, what lies in them, and a press whose
// question for a folder is answered.
#pragma once

#include <algorithm>
#include <filesystem>
#include <string>

#include "tests/support/observed.h"

namespace workbench {

class FolderBench : public ObservedBench {
protected:
    void SetUp() override {
        Start();
        MakeFolder("C:\\Out");
    }

    std::filesystem::path Real(const std::string& path) {
        return host().disk.Real(simhost::Wide(path));
    }
    void MakeFolder(const std::string& path) { std::filesystem::create_directories(Real(path)); }
    // The names of a folder's files, in their order.
    Names FilesOf(const std::string& path) {
        Names names;
        for (const auto& entry : std::filesystem::directory_iterator(Real(path))) {
            const auto name = entry.path().filename().u8string();
            if (entry.is_regular_file()) names.emplace_back(name.begin(), name.end());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    std::string Bytes(const std::string& path, bool* found = nullptr) {
        return Read(simhost::Wide(path), found);
    }
    // The calls of the record without that of the access rule.
    Names CallsOfTheAction() {
        Names calls = Recorded();
        std::erase(calls, "ProModeCurrentGet");
        return calls;
    }
    std::string Directory() { return simhost::Utf8(host().session.workingDirectory); }

    // The models of a line of text, saved where they belong; the first one is opened.
    simhost::Model& OpenSaved(const std::string& text) {
        simhost::Model& top = MakeModels(text);
        for (simhost::Model* model : host().session.All()) host().session.Save(*model);
        Open(top);
        return top;
    }
};

// The text of a notice at the end of a batch.
inline std::string Completion(const std::string& message) {
    return "\t" + message + "|岚枢QQ②群:100200301，①群:10020030\t";
}

}  // namespace workbench
