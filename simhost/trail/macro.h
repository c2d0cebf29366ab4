// The macros that a plug-in queues: trail steps that the host does when the command has returned.
#pragma once

#include <string>

namespace simhost {

// Runs a macro (UTF-8). A command that nobody has registered is told to the user and passed over. A
// step that cannot be done is a complaint, and nothing after it is done: what the macro has opened
// is closed without effect. What a macro without such a step leaves open is the user's to answer.
void RunMacro(const std::string& macro);

}  // namespace simhost
