// Simplified representations of assemblies: a name, and which components are there.
#pragma once

#include "hostapi/host/component_path.h"
#include "hostapi/host/types.h"

// What is done with a component.
// Assumed (codes, 60 %): these numbers include and exclude
typedef enum : int {
    PRO_SIMPREP_INCLUDE = 2,
    PRO_SIMPREP_EXCLUDE = 3,
} ProSimprepActionType;

// A representation of an assembly, as an item of it.
typedef ProModelitem ProSimprep;

// What a representation is made from; allocated and freed by the calls below.
typedef struct VxHostSimprepdata ProSimprepdata;

// For kinds of actions that are not used.
typedef struct VxSimprepActionParam ProSimprepActionParam;

// Assumed (record, 50 %): its layout; it is only filled and handed back
typedef struct VxSimprepAction {
    ProSimprepActionType type;
    ProSimprepActionParam* parameter;
} ProSimprepAction;

// A component with its action.
// Assumed (record, 50 %): its layout; it is only filled and handed back
typedef struct VxSimprepitem {
    ProIdTable path;  // from the top down
    int count;
    int feature;  // -1: the component itself
    ProSimprepAction action;
} ProSimprepitem;

// The assembly of this name with its representation of that name; `data` is null. Nothing is
// opened or activated. PRO_TK_E_NOT_FOUND: there is no such assembly, or it has none of that name.
// Assumed (parameters, 60 %): four of them, without a type of file between the names
HOST_API ProError ProAssemblySimprepRetrieve(WideChar* assembly, WideChar* representation,
                                             ProSimprepdata* data, ProAssembly* retrieved);

// A new set of data, which the caller frees. `action` is what is done with whatever is not named.
// Assumed (parameters, 70 %): the data is handed out as a pointer
HOST_API ProError ProSimprepdataAlloc(WideChar* name, ProBoolean temporary,
                                      ProSimprepActionType action, ProSimprepdata** data);

// Frees a set of data; the caller's pointer becomes null.
HOST_API ProError ProSimprepdataFree(ProSimprepdata** data);

// The record of the representation of this name, or of this id if that is not -1.
// PRO_TK_E_NOT_FOUND: there is none yet; the record stays as it was.
// Assumed (behaviour, 50 %): does not find one that is made later
HOST_API ProError ProSimprepInit(WideChar* name, int id, ProSolid owner,
                                 ProSimprep* representation);

// Makes a representation of the assembly. PRO_TK_E_FOUND: the name is taken. PRO_TK_BAD_INPUTS:
// the name is empty, longer than 32 characters or not one of a model, or the model is no assembly.
HOST_API ProError ProSimprepCreate(ProSolid assembly, ProSimprepdata* data,
                                   ProSimprep* representation);

// An action, and an item: the first `count` ids of a path with an action.
// Assumed (names, 60 %): both calls, and what -1 for the feature means
HOST_API ProError ProSimprepActionInit(ProSimprepActionType type, ProSimprepActionParam* parameter,
                                       ProSimprepAction* action);
HOST_API ProError ProSimprepitemInit(ProIdTable path, int count, int feature,
                                     ProSimprepAction* action, ProSimprepitem* item);

// Adds a copy of an item to a set of data.
HOST_API ProError ProSimprepdataitemAdd(ProSimprepdata* data, ProSimprepitem* item);

// Gives a representation the items and the default action of a set of data.
HOST_API ProError ProSimprepdataSet(ProSimprep* representation, ProSimprepdata* data);

// Makes a representation the one that counts in its assembly; ProSolidDisplay shows it.
HOST_API ProError ProSimprepActivate(ProSolid assembly, ProSimprep* representation);
