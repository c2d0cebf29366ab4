// Settings files that the user edits by hand.
#pragma once

#include "hostapi/wide.h"

// Opens a file beside the module in the system's plain editor and does not wait. Does nothing where
// the module is not found under its name.
void OpenInNotepad(WideView fileBesideModule);
