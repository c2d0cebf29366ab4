// Relations of models: lines of text in two sets, one evaluated before the model regenerates and
// one after it.
#pragma once

#include "hostapi/host/types.h"

// Names a relation set: the item that owns it, and which of the two it is.
// Assumed (record, 30 %): the owning item and which of its two sets; the kit's is another one, and
//   nothing but the host reads it
typedef struct VxRelset {
    ProModelitem owner;
    int afterRegeneration;
} ProRelset;

// Receives the item's initial relation set. PRO_TK_E_NOT_FOUND: it has none.
HOST_API ProError ProModelitemToRelset(ProModelitem* item, ProRelset* set);

// Receives the relation set that is evaluated after the regeneration of a part or an assembly.
// Assumed (parameters, 50 %): takes the model and gives its set for after the regeneration, even an
//   empty one; the kit may want a ProSolid
HOST_API ProError ProRelsetPostregenerationInit(ProMdl model, ProRelset* set);

// Makes an empty initial relation set. PRO_TK_E_FOUND: there is one already.
HOST_API ProError ProRelsetCreate(ProModelitem* item, ProRelset* set);

// Adds the set's lines at the end of `lines`, a host array of pointers to text; it may move. The
// texts are the host's, and live until the session ends.
// Assumed (frees, 60 %): adds to the caller's array of text pointers; the texts stay the host's
HOST_API ProError ProRelsetRelationsGet(ProRelset* set, WideChar*** lines);

// Replaces all lines of the set by the first `count` of the array. The host copies the texts.
// Assumed (parameters, 75 %): in the order set, array, count; the host copies the texts
HOST_API ProError ProRelsetRelationsSet(ProRelset* set, WideChar** lines, int count);
