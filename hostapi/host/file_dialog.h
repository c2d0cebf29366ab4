// The host's file dialogs.
#pragma once

#include "hostapi/host/types.h"

// Lets the user choose a file that is there; receives its full path. `filter` is "*.drw" or a list
// of such with commas between them; shortcuts may be null; a null or empty folder, and one that is
// not there, is the working directory; a null name proposes none.
// PRO_TK_USER_ABORT: the user left the dialog.
// Assumed (parameters, 70 %): in the order title, filter, shortcut paths, shortcut names, folder,
//   proposed name, path; a null folder means the working directory
HOST_API ProError ProFileOpen(WideChar* title, WideChar* filter, ProPath* shortcutPaths,
                              ProName* shortcutNames, ProPath folder, ProFileName proposed,
                              ProPath path);

// Asks the user for the name of a file to be written; receives its full path, just as it was typed:
// no extension is added, and nothing is asked about a file that is there. The parameters are those
// of ProFileOpen. PRO_TK_USER_ABORT: the user left the dialog.
// Assumed (parameters, 70 %): as ProFileOpen
// Assumed (behaviour, 50 %): the path comes as it was typed; if the host asks before a file is
//   replaced, it does so before it answers
HOST_API ProError ProFileSave(WideChar* title, WideChar* filter, ProPath* shortcutPaths,
                              ProName* shortcutNames, ProPath folder, ProFileName proposed,
                              ProPath path);

// Lets the user choose a folder that is there; receives its path as it was typed, with or without a
// separator at its end. The shortcuts may be null; a null or empty default folder is the working
// directory. PRO_TK_USER_ABORT: the user left the dialog.
// Assumed (parameters, 80 %): in the order title, shortcut paths, shortcut names, default folder,
//   path
// Assumed (behaviour, 60 %): the path has no separator at its end unless it is the top of a drive
HOST_API ProError ProDirectoryChoose(WideChar* title, ProPath* shortcutPaths,
                                     ProName* shortcutNames, ProPath folder, ProPath path);

// Splits a full path: receives the folder with a separator at its end, the file's name without
// extension and version, the extension without its dot, and the version (0: none). A name of 32
// characters fills its record to the end, without a terminator.
// PRO_TK_BAD_INPUTS: an empty path. PRO_TK_LINE_TOO_LONG: a name of more than 32 characters.
// Assumed (parameters, 70 %): in the order path, folder, name, extension, version
// Assumed (length, 50 %): name and extension are each a ProName. The kit may have the name in a
//   longer record
HOST_API ProError ProFilenameParse(ProPath path, ProPath folder, ProName name, ProName extension,
                                   int* version);
