// How far long work is, on the last line of a terminal.
#pragma once

namespace simhost {

// Shows it while it lasts longer than a moment, where the standard error output is a terminal.
void ShowProgress();

// Takes the line away again, before anything else is printed.
void ClearProgressLine();

}  // namespace simhost
