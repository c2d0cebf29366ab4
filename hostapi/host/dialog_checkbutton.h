// Check buttons of dialogs: set or not.
#pragma once

#include "hostapi/host/types.h"

// Receives PRO_B_TRUE if it is set.
HOST_API ProError ProUICheckbuttonGetState(char* dialog, char* component, ProBoolean* state);

HOST_API ProError ProUICheckbuttonSet(char* dialog, char* component);
HOST_API ProError ProUICheckbuttonUnset(char* dialog, char* component);
