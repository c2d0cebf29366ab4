// Materials of parts.
#pragma once

#include "hostapi/host/types.h"

// A material by its name, in the part that has it.
// Assumed (record, 70 %): the material's name and the part
typedef struct VxMaterial {
    ProName matl_name;
    ProSolid part;
} ProMaterial;

// Reads a material into a part from its file in the working folder: `name` is the file's, without
// its extension. A material of that name that the part has is replaced; the current one stays.
// PRO_TK_E_NOT_FOUND: there is no such file. PRO_TK_INVALID_FILE: it cannot be understood.
// PRO_TK_NO_PERMISSION: nobody may change the part. PRO_TK_BAD_INPUTS: not a part.
// Assumed (parameters, 60 %): takes the part, and the name without folder and extension
// Assumed (behaviour, 60 %): looks in the working folder
HOST_API ProError ProMaterialfileRead(ProSolid part, WideChar* name);

// Makes a material that the part has the one that it is made of.
// PRO_TK_E_NOT_FOUND: it has none of that name. PRO_TK_NO_PERMISSION: nobody may change the part.
HOST_API ProError ProMaterialCurrentSet(ProMaterial* material);
