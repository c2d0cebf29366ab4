// Where files lie that the user is to find at once.
#pragma once

#include "hostapi/wide.h"

// The folder of the user's desktop; empty on failure.
WideText DesktopFolder();
