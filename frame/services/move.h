// Files that get another path, as Windows does it: a file that is there already is not replaced,
// the same path keeps the file, and the new path may be on another volume. What cannot be moved
// stays where it is.
#pragma once

#include "hostapi/wide.h"

// False if the file stays.
bool MoveToPath(const WideText& from, const WideText& to);

// The same by paths in the system code page: a letter without a place there is in no file's name,
// so such a file stays.
bool MoveToNarrowPath(const WideText& from, const WideText& to);
