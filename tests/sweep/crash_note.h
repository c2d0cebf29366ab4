// Says which run it was when a run of the sweep crashes or hangs: the process ends then, and its
// own report names no run.
#pragma once

#include <string>

namespace sweep {

// The run that begins now; a run that takes too long ends the process with a line that names it.
void NoteRun(const std::string& name);
// No run is going on.
void EndNote();

}  // namespace sweep
