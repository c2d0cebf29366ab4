// Check buttons at the door.
#include "hostapi/host.h"
#include "simhost/host.h"
#include "simhost/ui/checkbutton.h"

using namespace simhost;

namespace {

CheckButton& RequireCheckButton(const char* dialog, const char* component) {
    Need(dialog, "the dialog's name");
    Need(component, "the component's name");
    const Dialog& owner = TheHost().dialogs.Require(dialog);
    return RequireKind<CheckButton>(owner.Require(component), owner.name());
}

}  // namespace

ProError ProUICheckbuttonGetState(char* dialog, char* component, ProBoolean* state) {
    static Operation op("ProUICheckbuttonGetState");
    return op.Call(
        [&] {
            Need(state, "the place for the state");
            *state = RequireCheckButton(dialog, component).set ? PRO_B_TRUE : PRO_B_FALSE;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component, "state", Out(state));
}

ProError ProUICheckbuttonSet(char* dialog, char* component) {
    static Operation op("ProUICheckbuttonSet");
    return op.Call(
        [&] {
            RequireCheckButton(dialog, component).set = true;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component);
}

ProError ProUICheckbuttonUnset(char* dialog, char* component) {
    static Operation op("ProUICheckbuttonUnset");
    return op.Call(
        [&] {
            RequireCheckButton(dialog, component).set = false;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component);
}
