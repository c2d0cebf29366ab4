// The host's own way of choosing what a dimension shows, as macros use it: a command with a choice
// behind it, and in Creo 3.0 a window in its place.
#pragma once

#include <string>

namespace simhost {

class Desk;
class Session;

// Whether this version of the host has this command for the orientation of dimensions.
bool IsDimensionCommand(const std::string& name);
// Does it to the selected dimension: "diameter" shows a round one as a diameter. Everything else is
// told to the user and changes nothing.
void OrientDimension(Desk& desk, Session& session, const std::string& choice);

// Whether the step belongs to the window in which Creo 3.0 asks for the same; nothing comes of it.
bool IsDimensionWindow(const std::string& dialog, const std::string& component);

}  // namespace simhost
