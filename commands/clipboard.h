// Text for the clipboard of Windows.
#pragma once

#include "hostapi/wide.h"

// Puts the text on the clipboard in the place of what lies there. 1 when it is there, 0 otherwise.
int ClipboardSetText(const WideText& text);
