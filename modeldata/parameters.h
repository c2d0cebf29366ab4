// The buttons Add, Update and Delete of the dialog VxParams: one named parameter in many models.
#pragma once

#include <optional>

#include "hostapi/host.h"

void OnAddParameter(char* dialog, char* component, ProAppData data);
void OnUpdateParameter(char* dialog, char* component, ProAppData data);
void OnDeleteParameter(char* dialog, char* component, ProAppData data);

// A value of text, cut where the host's record ends.
ProParamvalue TextValue(WideView text);

// Writes a text parameter: makes it or, if the model has it already, changes its value.
void WriteTextParameter(ProMdl model, ProName name, WideView text);
