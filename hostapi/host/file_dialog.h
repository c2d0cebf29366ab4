// The host's file dialogs.
#pragma once

#include "hostapi/host/types.h"

// Lets the user choose a file that is there; receives its full path. `filter` is "*.drw" and the
// like; shortcuts may be null; a null folder is the working directory; a null name proposes none.
// PRO_TK_USER_ABORT: the user left the dialog.
// Assumed (parameters, 70 %): in the order title, filter, shortcut paths, shortcut names, folder,
//   proposed name, path; a null folder means the working directory
HOST_API ProError ProFileOpen(WideChar* title, WideChar* filter, ProPath* shortcutPaths,
                              ProName* shortcutNames, ProPath folder, ProFileName proposed,
                              ProPath path);
