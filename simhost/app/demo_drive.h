// The drive of the demonstration, which starts from the beginning each time and deletes nothing
// that it did not make.
#pragma once

#include <filesystem>
#include <string>

namespace simhost {

// In the demonstration's folder: `drive_c`, and beside it the list of what the last demonstration
// left in it, `drive_c.files`.
class DemoDrive {
public:
    explicit DemoDrive(const std::filesystem::path& out);

    // Takes the last demonstration's drive away if it is as it was left. If anything in it is not
    // of the demonstration or was changed since, all of it is kept under another name: then a line
    // that says so, else an empty one. Throws std::filesystem::filesystem_error.
    std::string MakeRoom() const;

    // Lists what lies there now as made by the demonstration.
    void NoteFiles() const;

    const std::filesystem::path& folder() const { return folder_; }

private:
    bool IsAsItWasLeft() const;

    std::filesystem::path folder_, list_;
};

}  // namespace simhost
