// The dialog VxParams as its buttons know it: its name, and the settings that it keeps.
#pragma once

#include "frame/services.h"

inline constexpr Dialog kParamsDialog = "VxParams";

// Shows what VxParams.ini keeps.
void LoadParamsSettings();

// Keeps what the dialog shows in VxParams.ini; the first step of each of its buttons but Close.
void SaveParamsSettings();
