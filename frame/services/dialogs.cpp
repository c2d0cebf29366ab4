// The one pattern of all dialogs.
#include "frame/services/dialogs.h"

#include "frame/services/messages.h"
#include "frame/services/text.h"

ProError CreateDialog(const char* dialog) {
    const ProError status = ProUIDialogCreate(HostText(dialog), HostText(dialog));
    if (status != PRO_TK_NO_ERROR) ShowPlainError(WIDE("UIDialog Create error!"));
    return status;
}

ProError ShowCreatedDialog(const char* dialog) {
    int ended = 0;
    ProError status = ProUIDialogActivate(HostText(dialog), &ended);
    if (status != PRO_TK_NO_ERROR) {
        ShowPlainError(WIDE("UIDialog Activate error!"));
        return status;
    }
    status = ProUIDialogDestroy(HostText(dialog));
    if (status != PRO_TK_NO_ERROR) ShowPlainError(WIDE("UIDialog Destroy error!"));
    return status;
}

ProError RunModalDialog(const char* dialog, const std::function<void()>& prepare) {
    const ProError status = CreateDialog(dialog);
    if (status != PRO_TK_NO_ERROR) return status;
    prepare();
    return ShowCreatedDialog(dialog);
}

void EndDialogWithOk(char* dialog, char*, ProAppData) noexcept {
    ProUIDialogExit(dialog, 1);
}

void EndDialogOnClose(char* dialog, char*, ProAppData) noexcept {
    ProUIDialogExit(dialog, 0);
}
