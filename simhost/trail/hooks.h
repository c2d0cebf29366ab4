// What scripts can ask of the application around the host: it sets these when it starts.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace simhost {

// Each but the last gives an empty text, or the reason why it could not be done. Unset: not
// available here.
struct Hooks {
    std::function<std::string()> start;  // load the plug-in
    std::function<std::string()> stop;   // unload it
    std::function<bool()> loaded;        // whether it is loaded
    // Draw the current model: whole, or as it is on the screen.
    std::function<std::string(const std::string& file, bool asOnScreen)> picture;
    // Copy a file of drive C to where people look for results.
    std::function<std::string(const std::filesystem::path& file)> handOut;
    std::function<void(const std::string& title)> title;  // what follows belongs under this title
};

Hooks& TheHooks();

}  // namespace simhost
