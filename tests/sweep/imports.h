// What the plug-in's module asks of its host.
#pragma once

#include <set>
#include <string>

namespace sweep {

// The operations of the simulated host that the module of this build calls, as its linker noted
// them. Empty where they cannot be told: on Windows, and without the program nm.
std::set<std::string> ImportedOperations();

}  // namespace sweep
