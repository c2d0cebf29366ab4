// Parameters of models: named values of four types. A model's parameters are those of its item
// (ProMdlToModelitem). Names are compared ignoring case.
#pragma once

#include "hostapi/host/types.h"

typedef enum : int {
    PRO_PARAM_DOUBLE = 50,
    PRO_PARAM_STRING = 51,
    PRO_PARAM_INTEGER = 52,
    PRO_PARAM_BOOLEAN = 53,
    PRO_PARAM_NOTE_ID = 54,
    PRO_PARAM_VOID = 57
} ProParamvalueType;

typedef union {
    double d_val;
    int i_val;      // integers, and the ids of notes
    short l_val;    // booleans: 0 or 1
    ProLine s_val;  // text: at most 80 characters
} ProParamvalueValue;

// Assumed (record, 85 %): the text of a value is a ProLine, at most 80 characters; a boolean is a
//   short
typedef struct Pro_Param_Value {
    ProParamvalueType type;
    ProParamvalueValue value;
} ProParamvalue;

// Names a parameter: its name and the item that owns it.
// Assumed (record, 25 %): kind, name and owning item. The owner may be a tagged record of its own
//   (type and a union); model_count.cpp reads it to see whether the handle was filled
typedef struct proparameter {
    ProType type;
    ProName id;
    ProModelitem owner;
} ProParameter;

// Makes a parameter with this value; receives its handle. PRO_TK_E_FOUND: the owner has one of this
// name, which keeps its value (whether the handle is filled then is not known).
// PRO_TK_INVALID_NAME: the host takes no such name. PRO_TK_BAD_INPUTS: an empty name, or a value of
// no type.
// Assumed (behaviour, 60 %): -5 for a name that is there already; whether the handle is filled then
//   is not known
HOST_API ProError ProParameterCreate(ProModelitem* owner, ProName name, ProParamvalue* value,
                                     ProParameter* parameter);

// Receives the handle of a parameter that is there. PRO_TK_E_NOT_FOUND: there is none.
HOST_API ProError ProParameterInit(ProModelitem* owner, ProName name, ProParameter* parameter);

// PRO_TK_E_NOT_FOUND: the parameter is gone.
HOST_API ProError ProParameterValueGet(ProParameter* parameter, ProParamvalue* value);

// Gives the parameter another value of its type. PRO_TK_INVALID_TYPE: it is of another type.
// PRO_TK_GENERAL_ERROR: it is locked, or a relation or the generic's family table decides it.
// Assumed (behaviour, 75 %): refuses a value of another type, and a parameter that is locked or
//   decided by a relation
HOST_API ProError ProParameterValueSet(ProParameter* parameter, ProParamvalue* value);

// Removes the parameter. PRO_TK_E_NOT_FOUND: it is gone. PRO_TK_GENERAL_ERROR: locked, as above.
HOST_API ProError ProParameterDelete(ProParameter* parameter);
