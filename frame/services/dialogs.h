// The one pattern of all dialogs: create, attach, fill, activate, destroy.
#pragma once

#include <functional>

#include "hostapi/host.h"

// Creates the dialog from the resource of the same name, lets `prepare` attach the actions and fill
// the components, shows it until it is ended, and destroys it. A failed step shows its plain error
// and its status is returned; after a failed activation the dialog is not destroyed.
ProError RunModalDialog(const char* dialog, const std::function<void()>& prepare);

// Its two halves, for a dialog that decides after its creation whether it is shown at all.
ProError CreateDialog(const char* dialog);
ProError ShowCreatedDialog(const char* dialog);  // shows it until it is ended, and destroys it

// The two actions that end a dialog: with status 1 (its OK) and with status 0 (its window closed).
void EndDialogWithOk(char* dialog, char* component, ProAppData data) noexcept;
void EndDialogOnClose(char* dialog, char* component, ProAppData data) noexcept;
