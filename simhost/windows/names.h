// How Windows compares names of files, keys and sections: ignoring case in every script.
#pragma once

#include "hostapi/wide.h"

namespace simhost {

// The text in small letters. Characters beyond the basic plane are left as they are.
WideText FoldCase(WideView text);

}  // namespace simhost
