// What scripts can ask of the application around the host: it sets these when it starts.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace simhost {

// Those that do something give an empty text, or the reason why it could not be done. Unset: not
// available here.
struct Hooks {
    std::function<std::string()> start;  // load the plug-in
    std::function<std::string()> stop;   // unload it
    std::function<bool()> loaded;        // whether it is loaded
    // Draw the current model: whole, or as it is on the screen.
    std::function<std::string(const std::string& file, bool asOnScreen)> picture;
    // Copy a file of drive C to where people look for results.
    std::function<std::string(const std::filesystem::path& file)> handOut;
    // Let a Python script that lies beside the trail work on a file.
    std::function<std::string(const std::string& script, const std::filesystem::path& file)> script;
    std::function<void(const std::string& title)> title;  // what follows belongs under this title
    std::function<std::string()> lost;  // a line about what leaving would lose; empty: nothing
};

Hooks& TheHooks();

}  // namespace simhost
