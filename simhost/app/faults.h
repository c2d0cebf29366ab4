// Faults as they are written on a command line.
#pragma once

#include <string>

#include "simhost/core/operation.h"

namespace simhost {

// "ProMdlTypeGet:3=-1": the third call fails with -1; without ":3" every call does.
// Throws std::invalid_argument with a sentence for anything else.
Fault ParseFault(const std::string& text);

}  // namespace simhost
