// The part of the demonstration that makes drawings.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace simhost {

// Makes drawings of the housing and of the whole gearbox with six and with twelve views, draws each
// sheet into a picture below `out`, and exports the last one to the desktop. The gearbox has the
// user's attention afterwards. True if all went well.
bool RunViewsDemo(const std::filesystem::path& out,
                  const std::function<void(const std::string&)>& print);

}  // namespace simhost
