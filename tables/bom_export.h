// The button of VxBom that writes the table as a spreadsheet.
#pragma once

#include "hostapi/host.h"

void OnExportBom(char* dialog, char* component, ProAppData data);
