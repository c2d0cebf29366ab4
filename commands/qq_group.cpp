// VxQQGroup: the groups in which users help each other.
#include "commands/commands.h"
#include "frame/services.h"

namespace {

constexpr Dialog kDialog = "VxQQGroup";

}  // namespace

void VxQQGroup() {
    RunModalDialog(kDialog, [] {
        kDialog.OnPress("OK", EndDialogWithOk);
        kDialog.OnClose(EndDialogOnClose);
    });
}
