// Paths to the components of an assembly.
#pragma once

#include "hostapi/host/geometry.h"
#include "hostapi/host/types.h"

#define PRO_MAX_ASSEM_LEVEL 25
typedef int ProIdTable[PRO_MAX_ASSEM_LEVEL];  // component ids from the top down

typedef struct pro_comp_path {
    ProSolid owner;
    ProIdTable comp_id_tab;
    int table_num;
} ProAsmcomppath;

// A path of `count` components (at most 25) below an assembly. It is not followed yet.
// Assumed (behaviour, 85 %): a path has at most 25 components
HOST_API ProError ProAsmcomppathInit(ProSolid assembly, ProIdTable ids, int count,
                                     ProAsmcomppath* path);

// The model at the path's end. PRO_TK_E_NOT_FOUND: the path leads nowhere, or to a model that is
// not in memory.
HOST_API ProError ProAsmcomppathMdlGet(ProAsmcomppath* path, ProMdl* model);

// The transform between the path's end and its top; from the end up with `bottomUp`.
// Assumed (behaviour, 85 %): the transform multiplies row vectors
HOST_API ProError ProAsmcomppathTrfGet(ProAsmcomppath* path, ProBoolean bottomUp,
                                       ProMatrix transform);
