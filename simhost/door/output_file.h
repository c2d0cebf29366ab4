// Files that operations write for the user: drawings and models in the formats of other systems.
#pragma once

#include <string>

#include "hostapi/wide.h"

namespace simhost {

// Writes the file whole, under its name as it is, or leaves what was there. A path without a drive
// lies in the working directory. Refuses with PRO_TK_CANT_WRITE what Windows takes for no file's
// name, a folder that is not there, and a file that is held by another program or read-only.
void WriteOutput(WideView path, const std::string& bytes);

}  // namespace simhost
