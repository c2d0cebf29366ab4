// The running host: its mode, folders, notifications and macros.
#pragma once

#include "hostapi/host/types.h"

// What the current window is for. These numbers are not those of ProMdlType.
typedef enum : int {
    PRO_MODE_UNKNOWN = -1,
    PRO_MODE_PART = 1,
    PRO_MODE_SHEET_METAL = 2,
    PRO_MODE_ASSEMBLY = 5,
    PRO_MODE_DRAWING = 6,
    PRO_MODE_MANUFACTURING = 8
} ProMode;

// PRO_TK_BAD_CONTEXT: no model is open.
// Assumed (codes, 80 %): modes are 1 part, 2 sheet metal, 5 assembly, 6 drawing, 8 manufacturing
HOST_API ProError ProModeCurrentGet(ProMode* mode);

// Receives the working directory, with a separator at its end.
// Assumed (behaviour, 70 %): the path ends with a separator
HOST_API ProError ProDirectoryCurrentGet(ProPath directory);

// Makes this folder the working directory; a path without a drive lies on that of the present one.
// PRO_TK_BAD_INPUTS: an empty path. PRO_TK_INVALID_DIR: there is no such folder.
// Assumed (behaviour, 60 %): takes a path without a drive, as ProMdlDataGet hands it out
HOST_API ProError ProDirectoryChange(ProPath directory);

// Receives the plug-in's text folder as registered with the host, with no separator at its end.
// Assumed (behaviour, 85 %): the text folder registered for the module (the folder that holds
//   text\), without a separator at its end
HOST_API ProError ProToolkitApplTextPathGet(ProPath directory);

// The event of a popup menu that has just been created. Its handler is
// `ProError handler(char* popupName)`.
enum ProNotifyType : int { PRO_POPUPMENU_CREATE_POST = 72 };

// Makes `handler` the one handler of the event; a later call replaces it.
// Assumed (codes, 60 %): event 72 is the popup menu's creation; its handler takes the popup's name
//   (char*) and returns a ProError; the event is an enumeration in the kit
HOST_API ProError ProNotificationSet(ProNotifyType type, ProFunction handler);

// Queues a macro (trail steps, each with a tilde, separated by semicolons) that the host runs when
// the command has returned.
// Assumed (length, 50 %): takes a wide text of any length, copies it, and runs it when the command
//   has returned. If 256 characters are the limit, VxClearAllColor's 474 are cut
HOST_API ProError ProMacroLoad(WideChar* macro);
