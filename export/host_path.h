// Whether a path can be told to the host.
#pragma once

#include "frame/services.h"

// Whether the host has room for a path; one that is cut would be another file's.
inline bool FitsHostPath(const WideText& path) {
    return path.size() < PRO_PATH_SIZE;
}
