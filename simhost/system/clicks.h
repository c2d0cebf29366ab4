// Clicks of the mouse that the plug-in sends. None reaches a real desktop: a click waits at the
// user's desk for the next dialog of the host's own.
#pragma once

#include "hostapi/windows.h"

namespace simhost {

// A click, from any thread. On the host's it is an operation at once; one from another thread is
// kept, since journal and counts are the host's thread's alone.
void SendClick(DWORD flags);

// Makes operations of the clicks that other threads have sent, in their order. Called on the
// host's thread when it has waited for such a thread.
void TakeKeptClicks();

}  // namespace simhost
