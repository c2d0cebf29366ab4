// Text areas of dialogs: several lines of text that the user can change.
#pragma once

#include "hostapi/host/types.h"

// Receives the text with line feeds between its lines; it is the host's and lives as long as the
// dialog. May be null for no text.
// Assumed (frees, 15 %): as of an input panel
HOST_API ProError ProUITextareaValueGet(char* dialog, char* component, WideChar** value);
