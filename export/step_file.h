// STEP files, as the commands of this room have them written.
#pragma once

#include "frame/services.h"

// Lets the host write a part or an assembly as STEP into a file of this very name. A status is not
// told.
inline void WriteStep(ProMdl model, const WideText& file) {
    ProOutputFileWrite(model, HostText(file), PRO_STEP_FILE, nullptr, nullptr, nullptr, nullptr);
}
