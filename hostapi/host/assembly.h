// Components of an assembly, and where their constraints put them.
#pragma once

#include "hostapi/host/component_path.h"
#include "hostapi/host/geometry.h"
#include "hostapi/host/types.h"

// The model of a component. PRO_TK_E_NOT_FOUND: it is not in memory.
// PRO_TK_BAD_INPUTS: the feature is not a component.
HOST_API ProError ProAsmcompMdlGet(ProAsmcomp* component, ProMdl* model);

// Puts a part or an assembly into the assembly, at the matrix in its coordinates and without
// constraints. Receives the new component. PRO_TK_BAD_INPUTS: not an assembly, not a solid, or the
// assembly would contain itself. PRO_TK_INVALID_MATRIX: no rotation with a move.
// PRO_TK_NO_PERMISSION: the assembly may not be changed.
// Assumed (parameters, 85 %): in the order assembly, model, matrix, component
HOST_API ProError ProAsmcompAssemble(ProAssembly assembly, ProSolid model, ProMatrix place,
                                     ProAsmcomp* component);

// Puts the component where its constraints want it; with `updateSoft` also what hangs on it.
// Assumed (parameters, 75 %): takes the component and a ProBoolean
HOST_API ProError ProAsmcompRegenerate(ProAsmcomp* component, ProBoolean updateSoft);

// --- Constraints ---

typedef enum : int {
    PRO_ASM_MATE = 0,
    PRO_ASM_MATE_OFF = 1,
    PRO_ASM_ALIGN = 2,
    PRO_ASM_ALIGN_OFF = 3,
    PRO_ASM_INSERT = 4,
    PRO_ASM_ORIENT = 5,
    PRO_ASM_CSYS = 6,  // two coordinate systems become one
    PRO_ASM_TANGENT = 7,
    PRO_ASM_PNT_ON_SRF = 8,
    PRO_ASM_EDGE_ON_SRF = 9,
    PRO_ASM_DEF_PLACEMENT = 10,
    PRO_ASM_SUBSTITUTE = 11,
    PRO_ASM_PNT_ON_LINE = 12,
    PRO_ASM_FIX = 13,  // stays where it is
    PRO_ASM_AUTO = 14
} ProAsmcompConstrType;

// Which side of a reference counts.
typedef enum : int {
    PRO_DATUM_SIDE_RED = -1,
    PRO_DATUM_SIDE_NONE = 0,
    PRO_DATUM_SIDE_YELLOW = 1
} ProDatumside;

typedef struct VxHostConstraint* ProAsmcompconstraint;

// A new constraint without type and references, which the caller frees.
HOST_API ProError ProAsmcompconstraintAlloc(ProAsmcompconstraint* constraint);
// Assumed (parameters, 70 %): takes the constraint, not its place
HOST_API ProError ProAsmcompconstraintFree(ProAsmcompconstraint constraint);

HOST_API ProError ProAsmcompconstraintTypeSet(ProAsmcompconstraint constraint,
                                              ProAsmcompConstrType type);

// What the constraint holds on to: an item of the assembly or below it, and one of the component's
// model. The selection is copied.
// Assumed (frees, 70 %): the selection is copied, so that the caller may free it at once
HOST_API ProError ProAsmcompconstraintAsmreferenceSet(ProAsmcompconstraint constraint,
                                                      ProSelection reference, ProDatumside side);
HOST_API ProError ProAsmcompconstraintCompreferenceSet(ProAsmcompconstraint constraint,
                                                       ProSelection reference, ProDatumside side);

// A new array with copies of the component's constraints, in their order. The caller frees the
// array, and the copies end with it. After the last one was removed it is empty.
// PRO_TK_E_NOT_FOUND: the component has never had any.
// Assumed (frees, 40 %): the copies end with the array; a kit may have a call that frees both
// Assumed (behaviour, 60 %): a component that never had a constraint is told apart from one whose
//   constraints were all removed
HOST_API ProError ProAsmcompConstraintsGet(ProAsmcomp* component,
                                           ProAsmcompconstraint** constraints);

// Gives the component these constraints (a host array) in the place of all that it has, and puts it
// where they want it. `path` leads to the assembly that holds it, and may be null.
// PRO_TK_BAD_INPUTS: one of them has no type, lacks a reference that its type needs, or has one
// that leads nowhere. PRO_TK_NO_PERMISSION: the assembly may not be changed. Then nothing changes.
// Assumed (frees, 70 %): the constraints are copied, so that the caller may free them at once
HOST_API ProError ProAsmcompConstraintsSet(ProAsmcomppath* path, ProAsmcomp* component,
                                           ProAsmcompconstraint* constraints);

// Takes one constraint away; those after it move up. -1: all of them.
// PRO_TK_BAD_INPUTS: there is none at this place; nothing changes.
// Assumed (behaviour, 70 %): -1 means all
HOST_API ProError ProAsmcompConstrRemove(ProAsmcomp* component, int index);

// Opens the host's dialog in which the user redefines the component's constraints, and waits for
// its end. PRO_TK_USER_ABORT: the user cancelled it, and nothing has changed.
// Assumed (behaviour, 60 %): waits until the user has ended the dialog
HOST_API ProError ProAsmcompConstrRedefUI(ProAsmcomp* component);
