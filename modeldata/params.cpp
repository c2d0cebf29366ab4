// VxParams: one parameter in many models at once, and the computed parameters for outline and sheet
// size. Here is the dialog as a whole; its buttons have files of their own.
#include "modeldata/commands.h"
#include "modeldata/params_buttons.h"
#include "modeldata/params_settings.h"

namespace {

struct Button {
    const char* name;
    ProUIAction action;
};
const Button kButtons[] = {
    {"Add", Guarded<OnAddParameter>},       {"Update", Guarded<OnUpdateParameter>},
    {"Delete", Guarded<OnDeleteParameter>}, {"VxOutline", Guarded<OnOutline>},
    {"VxSheetSize", Guarded<OnSheetSize>},  {"Close", EndDialogOnClose},
};

void Prepare() {
    for (const Button& button : kButtons) kParamsDialog.OnPress(button.name, button.action);
    kParamsDialog.OnClose(EndDialogOnClose);
    LoadParamsSettings();
}

}  // namespace

void VxParams() {
    RunModalDialog(kParamsDialog, Prepare);
}
