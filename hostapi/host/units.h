// Units of models: the systems that a model holds, and the one that its numbers are in.
#pragma once

#include "hostapi/host/types.h"

// A unit of a model, by its name.
// Assumed (record, 40 %): the model and a name of 32 characters; it is only filled and handed back
typedef struct VxHostUnititem {
    ProMdl owner;
    ProName name;
} ProUnititem;

// A system of units of a model.
// Assumed (record, 40 %): the model and a name of 32 characters, of which set_unit.cpp reads the
//   name
typedef struct VxHostUnitsystem {
    ProMdl owner;
    ProName name;
} ProUnitsystem;

// What a system is built on: length, mass and time, or length, force and time.
// Assumed (codes, 70 %): these numbers; 1 is handed over with a unit of mass
typedef enum : int { PRO_UNITSYSTEM_MLT = 1, PRO_UNITSYSTEM_FLT = 2 } ProUnitsystemType;

// What stays as it is when a model goes over to another system: its numbers, so that a length of
// 10 mm becomes one of 10 in; or its size, so that 25.4 mm become 1 in.
// Assumed (codes, 75 %): these numbers
typedef enum : int {
    PRO_UNITCONVERT_SAME_DIMS = 0,
    PRO_UNITCONVERT_SAME_SIZE = 1
} ProUnitConvertType;

// Receives the model's unit of this name ("mm", "g", "sec", "C"). PRO_TK_E_NOT_FOUND: it has none
// of that name, whose case counts.
HOST_API ProError ProUnitInit(ProMdl model, ProName name, ProUnititem* unit);

// Adds a system to the model; its principal one stays. `units`: an array of four, for length, mass
// or force (as `type` says), time and temperature. Receives the new system. PRO_TK_E_FOUND: the
// name is taken, in this very case. PRO_TK_INVALID_NAME: the name is empty or fills no record.
// PRO_TK_BAD_INPUTS: a unit is of another kind than its place is for, or of another model.
// Assumed (parameters, 75 %): the units are a ProArray
HOST_API ProError ProMdlUnitsystemCreate(ProMdl model, ProUnitsystemType type, ProName name,
                                         ProUnititem* units, ProUnitsystem* system);

// Receives an array of all systems that the model holds; the caller frees it.
HOST_API ProError ProMdlUnitsystemsCollect(ProMdl model, ProUnitsystem** systems);

// Makes a system of the model its principal one and converts the model. `ignoreParameterUnits`: 1
// leaves parameters as they are, number and unit; 0 converts those that have a unit as everything
// else. The one that is in force already changes nothing. PRO_TK_NO_PERMISSION: the model cannot be
// changed. PRO_TK_BAD_INPUTS: an empty record, a system of another model, another conversion.
// Assumed (parameters, 75 %): in this order; the last are flags for a regeneration, -1 as usual
// Assumed (behaviour, 65 %): 1 in the fourth place leaves lengths in parameters alone; if it means
//   the opposite, parameters with a unit are converted along
HOST_API ProError ProMdlPrincipalunitsystemSet(ProMdl model, ProUnitsystem* system,
                                               ProUnitConvertType conversion,
                                               ProBoolean ignoreParameterUnits, int regeneration);
