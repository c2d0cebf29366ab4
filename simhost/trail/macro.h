// The macros that a plug-in queues: trail steps that the host does when the command has returned.
#pragma once

#include <string>

namespace simhost {

// Runs a macro (UTF-8). A step that cannot be done is a complaint, and the rest is done still.
// Whatever the steps leave open is the user's to answer.
void RunMacro(const std::string& macro);

}  // namespace simhost
