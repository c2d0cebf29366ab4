// Radio groups of dialogs: one of several names is selected.
#pragma once

#include "hostapi/host/dialog.h"

// Receives how many names are selected and an array of them, null if there are none. The array and
// its texts are the host's, and live as long as the dialog.
// Assumed (frees, 20 %): names stay the host's until the dialog is gone. If the caller frees them
//   (ProStringarrayFree), each press leaves a few bytes
HOST_API ProError ProUIRadiogroupSelectednamesGet(char* dialog, char* component, int* count,
                                                  char*** names);

// Selects the one name of `names`. PRO_TK_BAD_INPUTS: the group has no such name; its selection
// stays.
HOST_API ProError ProUIRadiogroupSelectednamesSet(char* dialog, char* component, int count,
                                                  char** names);

// Called when the user selects another name.
// Assumed (behaviour, 80 %): runs for what the user does, not for what the plug-in sets
HOST_API ProError ProUIRadiogroupSelectActionSet(char* dialog, char* component, ProUIAction action,
                                                 ProAppData data);
