// What scripts can ask of the application around the host: it sets these when it starts.
#pragma once

#include <functional>
#include <string>

namespace simhost {

// Each gives an empty text, or the reason why it could not be done. Unset: not available here.
struct Hooks {
    std::function<std::string()> start;                           // load the plug-in
    std::function<std::string()> stop;                            // unload it
    std::function<bool()> loaded;                                 // whether it is loaded
    std::function<std::string(const std::string& file)> picture;  // draw the current model
};

Hooks& TheHooks();

}  // namespace simhost
