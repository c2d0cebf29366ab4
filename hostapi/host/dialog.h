// Dialogs built from resource files, and their push-buttons. Dialog and component names are narrow.
// A component that the resource does not declare does not exist (PRO_TK_E_NOT_FOUND).
#pragma once

#include "hostapi/host/types.h"

// Called when a component is used, with its dialog's and its own name.
typedef void (*ProUIAction)(char* dialog, char* component, ProAppData data);

// Builds a dialog from text/resource/<resource>.res (a name that ends in .res is taken as it is).
// PRO_TK_E_FOUND: a dialog of this name is there already. PRO_TK_E_NOT_FOUND: no such file.
// Assumed (behaviour, 75 %): a resource name that ends in .res is taken as the file's name, as for
//   VxInit.res
HOST_API ProError ProUIDialogCreate(char* dialog, char* resource);

// Shows the dialog and waits until it is ended; receives the status of its end.
HOST_API ProError ProUIDialogActivate(char* dialog, int* status);

// Ends an active dialog with this status, when the running action has returned.
HOST_API ProError ProUIDialogExit(char* dialog, int status);

// Removes the dialog.
HOST_API ProError ProUIDialogDestroy(char* dialog);

// The action for the closing of the dialog's window.
HOST_API ProError ProUIDialogCloseActionSet(char* dialog, ProUIAction action, ProAppData data);

// Keeps the dialog above the window that is active (true), or only above its own.
// Assumed (parameters, 80 %): takes a ProBoolean
HOST_API ProError ProUIDialogAboveactivewindowSet(char* dialog, ProBoolean above);

HOST_API ProError ProUIPushbuttonActivateActionSet(char* dialog, char* component,
                                                   ProUIAction action, ProAppData data);
