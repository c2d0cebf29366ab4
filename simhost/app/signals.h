// What ends the program from outside: Ctrl-C, a closed terminal, a kill.
#pragma once

namespace simhost {

// From now on a signal that ends the program takes the temporary drives away first. At a prompt
// Ctrl-C stops the work that is going on instead; a second one, when that did not stop, ends the
// program. Call it once, before other threads are there.
void WatchSignals(bool atAPrompt);

}  // namespace simhost
