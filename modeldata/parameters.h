// The buttons Add, Update and Delete of the dialog VxParams: one named parameter in many models.
#pragma once

#include "hostapi/host.h"

void OnAddParameter(char* dialog, char* component, ProAppData data);
void OnUpdateParameter(char* dialog, char* component, ProAppData data);
void OnDeleteParameter(char* dialog, char* component, ProAppData data);
