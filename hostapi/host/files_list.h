// What lies in a folder.
#pragma once

#include "hostapi/host/types.h"

// Which versions of a file are listed.
typedef enum : int {
    PRO_FILE_LIST_ALL = 0,
    PRO_FILE_LIST_LATEST = 1  // the newest of each
} ProFileListOpt;

// Receives new arrays with the full paths of the files in a folder that fit the filter ("*.drw"),
// in the order of their names, and of the folders in it; a null folder is the working directory.
// The caller frees both. PRO_TK_E_NOT_FOUND: no file fits.
// Assumed (parameters, 60 %): in the order folder, filter, versions, files, folders
// Assumed (frees, 60 %): both arrays are new ones, which the caller frees
HOST_API ProError ProFilesList(WideChar* folder, WideChar* filter, ProFileListOpt versions,
                               ProPath** files, ProPath** folders);
