// Input panels of dialogs: one line of text that the user can change. They stand in the dialog or,
// as copies, in the cells of a table.
#pragma once

#include "hostapi/host/dialog.h"

// Receives the text; it is the host's and lives as long as the dialog. May be null for no text.
// PRO_TK_GENERAL_ERROR: the dialog has no component of this name.
// Assumed (frees, 15 %): the text stays the host's until the dialog is gone. If the caller frees it
//   (ProWstringFree), each press leaves a few bytes
HOST_API ProError ProUIInputpanelValueGet(char* dialog, char* component, WideChar** value);

HOST_API ProError ProUIInputpanelValueSet(char* dialog, char* component, WideChar* value);

// Called when the panel gets the focus.
// Assumed (behaviour, 80 %): runs for what the user does, not for what the plug-in sets
HOST_API ProError ProUIInputpanelFocusinActionSet(char* dialog, char* component, ProUIAction action,
                                                  ProAppData data);
