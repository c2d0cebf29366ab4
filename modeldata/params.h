// The command VxParams: a parameter in many models at once, and the computed parameters for outline
// and sheet size. The dialog's buttons share its settings.
#pragma once

#include "frame/services.h"

inline constexpr Dialog kParamsDialog = "VxParams";

// Opens the dialog VxParams.
void VxParams();

// Keeps what the dialog shows in VxParams.ini; the first step of each of its buttons but Close.
void SaveParamsSettings();
