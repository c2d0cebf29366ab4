// The folder that plays drive C for one session and goes with it.
#pragma once

#include <filesystem>

namespace simhost {

class TemporaryDrive {
public:
    // Makes a folder of its own in the system's folder for temporary files. The first one of a
    // process also takes away what processes have left that are dead. Throws.
    TemporaryDrive();
    ~TemporaryDrive();
    TemporaryDrive(const TemporaryDrive&) = delete;
    TemporaryDrive& operator=(const TemporaryDrive&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
    int lock_ = -1;
};

// For the sudden end of the process, from any of its threads: takes all of its drives away.
void RemoveTemporaryDrives();

}  // namespace simhost
