// The demonstration: what a newcomer sees first.
#pragma once

#include <filesystem>
#include <functional>
#include <set>
#include <string>

#include "simhost/app/workplace.h"

namespace simhost {

// Writes a page of each dialog into a folder (NAME.html, and frames.js, which shows them in another
// page); the names.
using DialogWriter = std::function<std::set<std::string>(const std::filesystem::path& folder)>;

// Loads the plug-in for a new user and does the lines of a script. Below `out` are then the changed
// project (drive_c), what the script draws and hands out, the pages of the dialogs unless the
// function is empty, and index.html, which shows all of it with what was done. 0 if all went well.
int RunDemo(WorkplaceOptions options, const std::filesystem::path& script,
            const std::filesystem::path& out, const std::function<void(const std::string&)>& print,
            const DialogWriter& dialogs = {});

}  // namespace simhost
