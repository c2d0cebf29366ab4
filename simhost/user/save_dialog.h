// The system's dialogs for the name of a file, answered by the host's user on every system: no test
// may wait for somebody to use a real one.
#pragma once

#include "hostapi/wide.h"
#include "hostapi/windows.h"
#include "simhost/user/desk.h"

namespace simhost {

// Plays GetSaveFileNameW. Complains about a record that the real one would not bear.
BOOL AskForSaveName(const HostSide& host, OPENFILENAMEW* dialog);

// Plays GetOpenFileNameW, likewise.
BOOL AskForOpenName(const HostSide& host, OPENFILENAMEW* dialog);

// The first pattern of pairs of label and pattern, which end with an empty label. The last label
// may have an empty pattern.
WideText FirstPattern(const WideChar* pairs);

}  // namespace simhost
