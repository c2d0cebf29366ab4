// Groups that the user defines, as features of a part: what a group is given for its prompts and
// for its variable dimensions, and its placement.
#pragma once

#include "hostapi/host/selection.h"
#include "hostapi/host/types.h"

typedef struct VxHostUdfdata* ProUdfdata;            // what a group is made from
typedef struct VxHostUdfreference* ProUdfreference;  // an item for one of its prompts
typedef struct VxHostUdfvardim* ProUdfvardim;        // a value for one of its dimensions

// What a value of a dimension is.
typedef enum : int { PROUDFVARTYPE_DIM = 0, PROUDFVARTYPE_PATTERN_PARAM = 1 } ProUdfVardimType;

typedef struct VxUdfCreateOption ProUdfCreateOption;  // never used
typedef ProModelitem ProGroup;                        // a placed group

// New data without anything in it, which the caller frees with all that was added to it.
HOST_API ProError ProUdfdataAlloc(ProUdfdata* data);
// Assumed (parameters, 70 %): takes the data, not its place
HOST_API ProError ProUdfdataFree(ProUdfdata data);

// The group's name, which is that of its file without the ending. `instance`: of its family table,
// null for none.
HOST_API ProError ProUdfdataNameSet(ProUdfdata data, WideChar* name, WideChar* instance);

// A new reference: the selected item for a prompt. The selection is copied. The caller frees what
// is not added to data. `external`: the item belongs to another model than the group.
// Assumed (frees, 70 %): the selection is copied, so that the caller may free it at once
HOST_API ProError ProUdfreferenceAlloc(WideChar* prompt, ProSelection selection,
                                       ProBoolean external, ProUdfreference* reference);
HOST_API ProError ProUdfreferenceFree(ProUdfreference reference);
// From then on the reference belongs to the data.
// Assumed (frees, 60 %): what was added is freed with the data
HOST_API ProError ProUdfdataReferenceAdd(ProUdfdata data, ProUdfreference reference);

// A new value for the dimension of this name. The caller frees what is not added to data.
// Assumed (parameters, 70 %): in the order name, value, kind of value, result
HOST_API ProError ProUdfvardimAlloc(WideChar* name, double value, ProUdfVardimType type,
                                    ProUdfvardim* dimension);
HOST_API ProError ProUdfvardimFree(ProUdfvardim dimension);
// From then on the dimension belongs to the data.
HOST_API ProError ProUdfdataUdfvardimAdd(ProUdfdata data, ProUdfvardim dimension);

// Places a group in a part. Its file is looked for in the folder of the option pro_group_dir, or,
// if that is not set, in the working folder. `options` may be null. PRO_TK_E_NOT_FOUND: there is no
// such file. PRO_TK_BAD_INPUTS: the model is no part, a prompt or dimension is not one of the
// group's, a prompt is left without an item, an item is of the wrong kind or of another model.
// PRO_TK_NO_PERMISSION: the part may not be changed. PRO_TK_GENERAL_ERROR: the file cannot be read,
// or its solids cannot have these dimensions. Then nothing has changed.
// Assumed (parameters, 70 %): takes options with their number between the data and the group
HOST_API ProError ProUdfCreate(ProSolid solid, ProUdfdata data, ProUdfCreateOption* options,
                               int count, ProGroup* group);
