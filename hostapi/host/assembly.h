// Components of an assembly.
#pragma once

#include "hostapi/host/types.h"

// The model of a component. PRO_TK_E_NOT_FOUND: it is not in memory.
// PRO_TK_BAD_INPUTS: the feature is not a component.
HOST_API ProError ProAsmcompMdlGet(ProAsmcomp* component, ProMdl* model);
