// The coordinate systems of a solid, and which of them a command takes.
#pragma once

#include "frame/services.h"

using CsysArray = HostArray<ProCsys>;

// Appends all coordinate systems of a solid, in the host's order; without an array it asks for
// none. One collects by the action of the visit, the other by its filter, which then takes none.
using CollectCsyses = void (*)(ProMdl solid, CsysArray* found);
void CollectByAction(ProMdl solid, CsysArray* found);
void CollectByFilter(ProMdl solid, CsysArray* found);

// Which of several is taken: the first, or the first whose feature has no parents (the first of
// all, if none is without).
enum class CsysChoice { First, WithoutParents };

// Null for an empty array.
ProCsys Chosen(ProMdl solid, const CsysArray& from, CsysChoice choice);

// A selection of a coordinate system, which the caller frees; below `path`, or of the solid by
// itself. Null where the host does not give all that it needs.
ProSelection SelectionOf(ProMdl solid, ProCsys csys, ProAsmcomppath* path);
