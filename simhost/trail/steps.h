// What a step of the host's own trail syntax does, in a script and in a macro alike.
#pragma once

#include <string>

#include "simhost/trail/lexer.h"

namespace simhost {

// Whether the plug-in, or this version of the host, has a command of this name.
bool IsCommand(const std::string& name);

// Does it: presses a command or uses a dialog. Empty, or the reason why it cannot be done.
std::string PerformTrailStep(const Step& step);

}  // namespace simhost
