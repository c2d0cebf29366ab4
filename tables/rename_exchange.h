// The buttons of VxRename that write the table as a spreadsheet and read it back.
#pragma once

#include "hostapi/host.h"

void OnExportRename(char* dialog, char* component, ProAppData data);
void OnLoadRename(char* dialog, char* component, ProAppData data);
