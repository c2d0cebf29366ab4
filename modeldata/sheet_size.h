// The button VxSheetSize of the dialog VxParams: the sheet sizes of each model's drawing as a text
// parameter of the model.
#pragma once

#include <string>
#include <vector>

#include "hostapi/host.h"

void OnSheetSize(char* dialog, char* component, ProAppData data);

// "A3,A4"; empty for no sheets.
WideText SheetSizeText(const std::vector<WideText>& sizes);
