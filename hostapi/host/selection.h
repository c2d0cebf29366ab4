// What the user has selected, and picks that are asked of the user.
#pragma once

#include "hostapi/host/component_path.h"
#include "hostapi/host/geometry.h"
#include "hostapi/host/types.h"
#include "hostapi/host/view.h"

// A new array with the selections of the selection buffer, in the order of picking. The caller
// frees the array. PRO_TK_E_NOT_FOUND: nothing is selected.
// Assumed (frees, 20 %): the array is the caller's; its selections are the host's and end with it.
//   If those are the caller's too, each press leaves some
HOST_API ProError ProSelbufferSelectionsGet(ProSelection** selections);

// Takes everything out of the selection buffer.
HOST_API ProError ProSelbufferClear();

// Puts a copy of a selection at the end of the selection buffer. PRO_TK_BAD_INPUTS: it is none.
HOST_API ProError ProSelbufferSelectionAdd(ProSelection selection);

// The selected item. PRO_TK_BAD_INPUTS: not a live selection.
HOST_API ProError ProSelectionModelitemGet(ProSelection selection, ProModelitem* item);

// The way from the top model to the component that is selected, or in which the selected item is;
// of an item of the top model a path without components.
HOST_API ProError ProSelectionAsmcomppathGet(ProSelection selection, ProAsmcomppath* path);

// A selection of an item without the user, who sees nothing of it; below the top of `path`, or of a
// model by itself where that is null. The caller frees it.
// PRO_TK_BAD_INPUTS: the path leads to another model than the item's, or there is no such item.
HOST_API ProError ProSelectionAlloc(ProAsmcomppath* path, ProModelitem* item,
                                    ProSelection* selection);

// Frees a selection of ProSelectionAlloc and sets the variable to null.
HOST_API ProError ProSelectionFree(ProSelection* selection);

// --- Where something was picked ---

// Copies a selection. The caller frees the copy with ProSelectionFree.
HOST_API ProError ProSelectionCopy(ProSelection from, ProSelection* copy);

// The view of a drawing in which it was picked. PRO_TK_E_NOT_FOUND: in none.
HOST_API ProError ProSelectionViewGet(ProSelection selection, ProView* view);

// The point at which it was picked, on the item, in the coordinates of the item's model.
// PRO_TK_E_NOT_FOUND: it was not picked with the mouse.
HOST_API ProError ProSelectionPoint3dGet(ProSelection selection, Pro3dPnt point);

// How a pick is to be made: pairs of an attribute and its value.
// Assumed (codes, 60 %): which attributes the numbers name
typedef enum : int {
    PRO_SELECT_DONE_REQUIRED = 50,  // 1: the pick ends when the user says so
    PRO_SELECT_BY_MENU_ALLOWED = 51,
    PRO_SELECT_BY_BOX_ALLOWED = 52,
} ProSelectionEnvAttr;
typedef struct VxSelectionEnvOption {
    ProSelectionEnvAttr attribute;
    int attribute_value;
} ProSelectionEnvOption;
typedef struct VxHostSelectionEnv* ProSelectionEnv;

// An environment with these options, for ProSelect. PRO_TK_BAD_INPUTS: an unknown option.
// Assumed (record, 70 %): an option is two 32-bit integers
// Assumed (frees, 60 %): the environment stays the host's, as nothing prescribed frees it
HOST_API ProError ProSelectionEnvAlloc(ProSelectionEnvOption* options, int count,
                                       ProSelectionEnv* environment);

typedef struct VxSelFunctions ProSelFunctions;  // filters and actions of the caller's; never used
typedef struct VxSelAppAction ProSelAppAction;  // likewise

// Lets the user pick items that the words of the filter name, at most `most` of them (-1: any
// number). Receives the host's array of what was picked, with its length: both live until the next
// pick, and the caller does not free them. Picking nothing is a success with a count of 0.
// PRO_TK_USER_ABORT: the user left it. The selection buffer stays as it is.
// Assumed (parameters, 60 %): eight parameters; the types of those for which null is handed over
// Assumed (behaviour, 80 %): the array is one that ProArraySizeGet measures
HOST_API ProError ProSelect(char* filter, int most, ProSelection* initial,
                            ProSelFunctions* functions, ProSelectionEnv environment,
                            ProSelAppAction* reference, ProSelection** selections, int* count);

// Buttons of the mouse, as a mask.
// Assumed (codes, 60 %): 0x1fff, which is handed over, means any button
typedef enum : int {
    PRO_LEFT_BUTTON = 1,
    PRO_MIDDLE_BUTTON = 2,
    PRO_RIGHT_BUTTON = 4,
    PRO_ANY_BUTTON = 0x1fff
} ProMouseButton;

// Waits for a click with one of the buttons; receives that button and, in a drawing, the place on
// the sheet. PRO_TK_USER_ABORT: the user wants none.
HOST_API ProError ProMousePickGet(ProMouseButton expected, ProMouseButton* pressed,
                                  Pro3dPnt position);
