// Where Windows paths lead: on Windows they are what they say, elsewhere `C:\` is a folder of this
// system, and names are found whatever the case of their letters.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "hostapi/wide.h"

namespace simhost {

class Disk {
public:
    // The folder that plays `C:\`. Has no effect on Windows.
    void SetRoot(std::filesystem::path root) { root_ = std::move(root); }
    const std::filesystem::path& root() const { return root_; }

    // The real path of a Windows path (absolute; `\` or `/`). Existing parts are found ignoring
    // case; the rest is taken as written. Empty for a path that names no drive C.
    std::filesystem::path Real(WideView windowsPath) const;

    // The Windows path of a real one below the root. Empty for any other.
    WideText Windows(const std::filesystem::path& real) const;

private:
    std::filesystem::path root_;
};

// The whole file, or empty with *found false: it is not there, no file, or cannot be read.
std::string ReadFile(const std::filesystem::path& path, bool* found = nullptr);

// Writes the file whole or leaves what was there: the bytes go into a file beside it, which then
// takes its name. A link stays and what it leads to is written; what is no file (a device) is
// written straight. False if it could not be done, with the reason in the system's words.
bool WriteFile(const std::filesystem::path& path, std::string_view bytes,
               std::string* reason = nullptr);

// As if the disk had so many bytes left, for WriteFile; nothing: as many as it has.
void LimitDisk(std::optional<std::uint64_t> bytesLeft);

}  // namespace simhost
