// The buttons of the dialog VxParams, each in the file of its work.
#pragma once

#include "hostapi/host.h"

// One named parameter in many models: parameters.cpp.
void OnAddParameter(char* dialog, char* component, ProAppData data);
void OnUpdateParameter(char* dialog, char* component, ProAppData data);
void OnDeleteParameter(char* dialog, char* component, ProAppData data);

// Each model's outline size as a text parameter: outline.cpp.
void OnOutline(char* dialog, char* component, ProAppData data);

// The sheet sizes of the drawing of each model's name as a text parameter: sheet_size.cpp.
void OnSheetSize(char* dialog, char* component, ProAppData data);
