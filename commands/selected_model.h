// Which component a command is about that takes one.
#pragma once

#include "hostapi/host.h"

// The model of the one component that is selected; while nothing is, of the one that the user picks
// when asked by this key of the message line. Null without a model, and after the notice that not
// exactly one is selected.
ProMdl SelectedModel(const char* request);
