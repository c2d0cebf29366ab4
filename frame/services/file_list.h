// What lies in the working directory, as the host lists it.
#pragma once

#include "frame/services/host_array.h"
#include "hostapi/host.h"

// The files that fit a filter by their full paths, each in its newest version, in the order of
// their names; and the folders, which the host lists along. Both are given back at the end.
struct FileList {
    HostArray<ProPath> files, folders;
    int count = 0;  // of files; 0 after a failed call
};
FileList ListFiles(const WideText& filter);
