// What the components of a dialog hold. The host may answer with a null text or an empty list of
// names; nothing here dereferences them.
#pragma once

#include <optional>
#include <string>

#include "hostapi/host.h"

// The first selected name of a radio group; empty if none is selected or the call failed.
std::string SelectedName(const char* dialog, const char* radioGroup);

// Texts; empty for a null text and after a failed call.
WideText InputPanelText(const char* dialog, const char* component);
WideText OptionMenuText(const char* dialog, const char* component);
WideText TextAreaText(const char* dialog, const char* component);

// The text as the host hands it out, null included; nothing after a failed call. For settings,
// where a null deletes the key.
std::optional<const WideChar*> InputPanelValue(const char* dialog, const char* component);
std::optional<const WideChar*> OptionMenuValue(const char* dialog, const char* component);

// The state of a check button: 1, 0, or -1 after a failed call.
int CheckButtonState(const char* dialog, const char* component);
