// Input panels at the door.
#include "hostapi/host.h"
#include "simhost/core/text.h"
#include "simhost/door/dialog_component.h"
#include "simhost/ui/textfield.h"

using namespace simhost;

ProError ProUIInputpanelValueGet(char* dialog, char* component, WideChar** value) {
    return Op<"ProUIInputpanelValueGet">.Call(
        [&] {
            Need(dialog, "the dialog's name");
            Need(component, "the component's name");
            const Dialog& owner = TheHost().dialogs.Require(dialog);
            Component* found = owner.Find(Utf8(FromSystemCodePage(component)));
            if (!found) Refuse(PRO_TK_GENERAL_ERROR);
            *value = RequireKind<InputPanel>(*found, owner.name()).ValueForCaller();
        },
        ARG(dialog), ARG(component), OUT(value));
}

ProError ProUIInputpanelValueSet(char* dialog, char* component, WideChar* value) {
    return Op<"ProUIInputpanelValueSet">.Call(
        [&] { Required<InputPanel>(dialog, component).value = value; }, ARG(dialog), ARG(component),
        GIVEN(value));
}

ProError ProUIInputpanelFocusinActionSet(char* dialog, char* component, ProUIAction action,
                                         ProAppData data) {
    return Op<"ProUIInputpanelFocusinActionSet">.Call(
        [&] {
            Required<InputPanel>(dialog, component).focusInAction = {action, data};
        },
        ARG(dialog), ARG(component), ARG(action), ARG(data));
}
