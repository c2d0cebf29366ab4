// The door's operations on dialogs and their push-buttons.
#include "hostapi/host.h"
#include "simhost/door/dialog_component.h"

using namespace simhost;

ProError ProUIDialogCreate(char* dialog, char* resource) {
    return Op<"ProUIDialogCreate">.Call([&] { TheHost().dialogs.Create(dialog, resource); },
                                        GIVEN(dialog), GIVEN(resource));
}

ProError ProUIDialogActivate(char* dialog, int* status) {
    return Op<"ProUIDialogActivate">.Call(
        [&] {
            Dialogs& dialogs = TheHost().dialogs;
            *status = dialogs.Activate(dialogs.Require(dialog));
        },
        GIVEN(dialog), OUT(status));
}

ProError ProUIDialogExit(char* dialog, int status) {
    return Op<"ProUIDialogExit">.Call([&] { TheHost().dialogs.Require(dialog).Exit(status); },
                                      GIVEN(dialog), ARG(status));
}

ProError ProUIDialogDestroy(char* dialog) {
    return Op<"ProUIDialogDestroy">.Call(
        [&] {
            Dialogs& dialogs = TheHost().dialogs;
            dialogs.Destroy(dialogs.Require(dialog));
        },
        GIVEN(dialog));
}

ProError ProUIDialogCloseActionSet(char* dialog, ProUIAction action, ProAppData data) {
    return Op<"ProUIDialogCloseActionSet">.Call(
        [&] {
            TheHost().dialogs.Require(dialog).closeAction = {action, data};
        },
        GIVEN(dialog), ARG(action), ARG(data));
}

ProError ProUIDialogAboveactivewindowSet(char* dialog, ProBoolean above) {
    return Op<"ProUIDialogAboveactivewindowSet">.Call(
        [&] { TheHost().dialogs.Require(dialog).aboveActiveWindow = above != PRO_B_FALSE; },
        GIVEN(dialog), ARG(above));
}

ProError ProUIPushbuttonActivateActionSet(char* dialog, char* component, ProUIAction action,
                                          ProAppData data) {
    return Op<"ProUIPushbuttonActivateActionSet">.Call(
        [&] {
            Required<PushButton>(dialog, component).activateAction = {action, data};
        },
        GIVEN(dialog), GIVEN(component), ARG(action), ARG(data));
}
