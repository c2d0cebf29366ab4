// The button VxOutline of the dialog VxParams: each model's outline size as a text parameter.
#pragma once

#include "hostapi/host.h"

void OnOutline(char* dialog, char* component, ProAppData data);

// Measures a part or an assembly and writes its outline size into the parameter; for other models
// it does nothing. A model without surfaces loses the parameter. Reads the dialog's options.
void ComputeOutlineParameter(ProMdl model, const WideText& name);
