// Modules of the page as one script, for files that are opened without a server: browsers load no
// module from a file.
#pragma once

#include <filesystem>
#include <string>

namespace simhost {

// The module `entry` of a folder with all that it imports, each in a scope of its own, in the order
// in which a browser would run them. Throws std::runtime_error: a module that is not there, or that
// imports or exports in another way than `import { … } from './FILE';`, `export class`,
// `export function` and `export const` at the beginning of a line.
std::string OneScript(const std::filesystem::path& folder, const std::string& entry);

}  // namespace simhost
