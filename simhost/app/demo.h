// The demonstration: what a newcomer sees first.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "simhost/app/workplace.h"

namespace simhost {

// Loads the plug-in for a new user and does the lines of a script. Below `out` are then the changed
// project (drive_c), what the script draws and hands out, a picture of each dialog, and index.html,
// which shows all of it with what was done. 0 if all went well.
int RunDemo(WorkplaceOptions options, const std::filesystem::path& script,
            const std::filesystem::path& out, const std::function<void(const std::string&)>& print);

}  // namespace simhost
