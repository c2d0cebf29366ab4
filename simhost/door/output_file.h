// The one road of all files that the host writes for other programs.
#pragma once

#include <functional>
#include <string>

#include "hostapi/wide.h"

namespace simhost {

// A path without a drive lies in the working folder.
WideText WholePath(WideView path);

// Writes a file of this very name, whole or not at all; one that is there is replaced. `compose`
// gives its bytes, and is asked only when the file can be written. Refused with PRO_TK_CANT_WRITE,
// the user being told why: Windows knows no such name, there is no such folder, folder or file are
// read-only, another program keeps the file, or the disk is full. Where the host writes no output,
// all of this is checked and nothing composed.
void WriteOutput(WideView path, const std::function<std::string()>& compose);

}  // namespace simhost
