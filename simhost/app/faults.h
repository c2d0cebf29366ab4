// Faults as they are written on a command line.
#pragma once

#include <string>
#include <vector>

#include "simhost/core/operation.h"

namespace simhost {

// "ProMdlTypeGet:3=-1": the third call fails with -1; without ":3" every call does. "+done" at the
// end does the work before. Throws std::invalid_argument with a sentence for anything else: no such
// operation, a status that is no whole number of 32 bits.
Fault ParseFault(const std::string& text);

// A sentence for each fault of Operation::Fail whose call was never made.
std::vector<std::string> UnreachedFaultLines();

}  // namespace simhost
