// Windows of the host.
#pragma once

#include "hostapi/host/types.h"

#define PRO_VALUE_UNUSED (-1)

// Redraws a window; PRO_VALUE_UNUSED (-1) is the current window.
HOST_API ProError ProWindowRepaint(int window);

// Redraws a window from what it holds already.
HOST_API ProError ProWindowRefresh(int window);

// The id of the current window. PRO_TK_BAD_CONTEXT: none is.
HOST_API ProError ProWindowCurrentGet(int* window);

// Opens a window for the model of this name and kind, from memory or from the working folder, or
// finds the one that shows it. Receives its id. The current window stays the current one.
// PRO_TK_E_NOT_FOUND: no such model.
// Assumed (length, 60 %): opens the window without making it the current one; takes a name of at
//   most 31 characters, and newer kits have another call for longer ones
HOST_API ProError ProObjectwindowCreate(ProName name, ProType type, int* window);

// Receives the model that a window shows. PRO_TK_BAD_INPUTS: no such window.
// Assumed (parameters, 80 %): takes the id and the place for the model
HOST_API ProError ProWindowMdlGet(int window, ProMdl* model);

// Takes a window away; what it showed stays in memory. PRO_TK_BAD_CONTEXT: it is the current one.
// PRO_TK_BAD_INPUTS: no such window.
HOST_API ProError ProWindowDelete(int window);

// Closes the current window; then none is the current one. PRO_TK_BAD_CONTEXT: none is.
// Assumed (behaviour, 60 %): asks the user nothing, and no other window becomes the current one
HOST_API ProError ProWindowCurrentClose();

// Makes a window the one that commands work on. PRO_TK_BAD_INPUTS: no such window.
HOST_API ProError ProWindowCurrentSet(int window);

// Brings a window to the front and gives it the user's attention; it is then the current one.
HOST_API ProError ProWindowActivate(int window);

// Shows a model in the current window, or in a new one if there is none; the model of the current
// window is the current one.
// Assumed (behaviour, 70 %): shows the model in the current window, whose model, the current one,
//   is then this
HOST_API ProError ProMdlDisplay(ProMdl model);

// The window that shows a model. PRO_TK_E_NOT_FOUND: none does.
HOST_API ProError ProMdlWindowGet(ProMdl model, int* window);
