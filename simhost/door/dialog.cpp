// The door's operations on dialogs and their push-buttons.
#include "hostapi/host.h"
#include "simhost/core/operation.h"
#include "simhost/host.h"

using namespace simhost;

ProError ProUIDialogCreate(char* dialog, char* resource) {
    static Operation op("ProUIDialogCreate");
    return op.Call(
        [&] {
            Need(dialog, "the dialog's name");
            Need(resource, "the resource's name");
            TheHost().dialogs.Create(dialog, resource);
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "resource", resource);
}

ProError ProUIDialogActivate(char* dialog, int* status) {
    static Operation op("ProUIDialogActivate");
    return op.Call(
        [&] {
            Need(dialog, "the dialog's name");
            Need(status, "the place for the status");
            Dialogs& dialogs = TheHost().dialogs;
            *status = dialogs.Activate(dialogs.Require(dialog));
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "status", Out(status));
}

ProError ProUIDialogExit(char* dialog, int status) {
    static Operation op("ProUIDialogExit");
    return op.Call(
        [&] {
            Need(dialog, "the dialog's name");
            TheHost().dialogs.Require(dialog).Exit(status);
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "status", status);
}

ProError ProUIDialogDestroy(char* dialog) {
    static Operation op("ProUIDialogDestroy");
    return op.Call(
        [&] {
            Need(dialog, "the dialog's name");
            Dialogs& dialogs = TheHost().dialogs;
            dialogs.Destroy(dialogs.Require(dialog));
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog);
}

ProError ProUIDialogCloseActionSet(char* dialog, ProUIAction action, ProAppData data) {
    static Operation op("ProUIDialogCloseActionSet");
    return op.Call(
        [&] {
            Need(dialog, "the dialog's name");
            TheHost().dialogs.Require(dialog).closeAction = {action, data};
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "action", action, "data", data);
}

ProError ProUIDialogAboveactivewindowSet(char* dialog, ProBoolean above) {
    static Operation op("ProUIDialogAboveactivewindowSet");
    return op.Call(
        [&] {
            Need(dialog, "the dialog's name");
            TheHost().dialogs.Require(dialog).aboveActiveWindow = above != PRO_B_FALSE;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "above", above);
}

ProError ProUIPushbuttonActivateActionSet(char* dialog, char* component, ProUIAction action,
                                          ProAppData data) {
    static Operation op("ProUIPushbuttonActivateActionSet");
    return op.Call(
        [&] {
            Need(dialog, "the dialog's name");
            Need(component, "the component's name");
            Dialog& owner = TheHost().dialogs.Require(dialog);
            RequireKind<PushButton>(owner.Require(component), owner.name()).activateAction = {
                action, data};
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component, "action", action, "data", data);
}
