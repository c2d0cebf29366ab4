// The button of VxExport that exports the selected drawings.
#pragma once

#include "hostapi/host.h"

void OnExport(char* dialog, char* component, ProAppData data);
