// What comes and goes in a folder, by whatever hand, so that a list of its names need not be read
// again for each question.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace simhost {

class FolderWatch {
public:
    struct Change {
        std::string name;  // UTF-8
        bool there;        // it came; false: it went
    };

    explicit FolderWatch(std::filesystem::path folder) : folder_(std::move(folder)) {}
    ~FolderWatch() { Stop(); }
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    // Every name that came or went since the last question, in this order; nothing that happened
    // before this call is left out. False: anything may have changed, so the whole folder is to be
    // read (what happens meanwhile is told the next time). That is so at the first question, when
    // another folder has taken the name, after more changes than the system notes down, and always
    // where the system has no such notes.
    bool Take(std::vector<Change>* changes);

    const std::filesystem::path& folder() const { return folder_; }

private:
    void Start();
    void Stop();
    bool IsSame() const;
    bool Drain(std::vector<Change>* changes) const;

    std::filesystem::path folder_;
    int notes_ = -1;
    std::uint64_t device_ = 0, node_ = 0;  // the folder that is watched
};

}  // namespace simhost
