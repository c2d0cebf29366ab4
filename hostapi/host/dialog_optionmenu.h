// Option menus of dialogs: a text that the user chooses from a list.
#pragma once

#include "hostapi/host/types.h"

// Receives the text that is shown; it is the host's and lives as long as the dialog. May be null
// for no text.
// Assumed (frees, 15 %): as of an input panel
HOST_API ProError ProUIOptionmenuValueGet(char* dialog, char* component, WideChar** value);

// Shows this text, whether it is in the list or not. A status if the component is no option menu.
// Assumed (behaviour, 80 %): refuses a component that is no option menu with a status and does no
//   harm
HOST_API ProError ProUIOptionmenuValueSet(char* dialog, char* component, WideChar* value);

// Whether the user can choose from it.
HOST_API ProError ProUIOptionmenuEnable(char* dialog, char* component);
HOST_API ProError ProUIOptionmenuDisable(char* dialog, char* component);
