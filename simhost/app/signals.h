// What ends the program from outside: Ctrl-C, a closed terminal, a kill.
#pragma once

#include <functional>
#include <string>

namespace simhost {

// From now on a signal that ends the program takes the temporary drives away first. Before that
// Ctrl-C asks `interrupt`, which runs in a thread of its own: what it says to the user, and goes
// on; empty, or unset: the program ends. Call it once, before other threads are there.
void WatchSignals(std::function<std::string()> interrupt = {});

// For a prompt: Ctrl-C stops the work that is going on; a second one, when that did not stop, ends
// the program.
std::string StopWork();

}  // namespace simhost
