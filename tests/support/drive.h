// What lies under the tests' drive C: on Windows the real one of a computer that is only for tests,
// elsewhere a temporary folder.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

// The folder that plays drive C; empty: a temporary one for each test. On Windows the program ends
// here with a message if the computer is somebody's own.
std::filesystem::path DriveOfTests();

// Removes what a test left on the drive; gives what could not be removed, such as a file that is
// still open. Temporary drives go by themselves.
std::vector<std::string> ClearDrive();

// What a test has put into the root of its drive, without what belongs to Windows.
std::vector<std::filesystem::path> PlacesOnDrive(const std::filesystem::path& drive);

}  // namespace workbench
