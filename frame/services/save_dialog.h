// The system's dialog for the name of a file to be written.
#pragma once

#include <optional>

#include "hostapi/wide.h"

// The path that the user chooses, nothing if there is none. `filter` has a bar behind each label
// and pattern and one more at its end: "Text (*.txt)|*.txt||". The dialog asks by itself before a
// file that is there is chosen.
std::optional<WideText> AskSavePath(WideView filter, const WideChar* defaultExtension,
                                    const WideText& folder);
