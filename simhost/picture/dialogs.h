// Pictures of the shipped dialogs, drawn from their resources, to look at their layout.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace simhost {

// Draws each dialog resource (*.res) of a folder into a PNG of the same name in `out`, which is
// made if it is missing; the pictures' paths in the order of their names. Throws
// std::runtime_error: a resource that cannot be read, no font with Chinese characters, a file that
// cannot be written.
std::vector<std::filesystem::path> DrawDialogs(const std::filesystem::path& resources,
                                               const std::filesystem::path& out);

}  // namespace simhost
