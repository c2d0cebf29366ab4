// Input panels of dialogs: one line of text that the user can change.
#pragma once

#include "hostapi/host/types.h"

// Receives the text; it is the host's and lives as long as the dialog. May be null for no text.
// Assumed (frees, 15 %): the text stays the host's until the dialog is gone. If the caller frees it
//   (ProWstringFree), each press leaves a few bytes
HOST_API ProError ProUIInputpanelValueGet(char* dialog, char* component, WideChar** value);

HOST_API ProError ProUIInputpanelValueSet(char* dialog, char* component, WideChar* value);
