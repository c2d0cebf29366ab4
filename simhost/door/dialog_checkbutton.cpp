// Check buttons at the door.
#include "hostapi/host.h"
#include "simhost/door/dialog_component.h"
#include "simhost/ui/checkbutton.h"

using namespace simhost;

ProError ProUICheckbuttonGetState(char* dialog, char* component, ProBoolean* state) {
    return Op<"ProUICheckbuttonGetState">.Call(
        [&] { *state = Required<CheckButton>(dialog, component).set ? PRO_B_TRUE : PRO_B_FALSE; },
        ARG(dialog), ARG(component), OUT(state));
}

ProError ProUICheckbuttonSet(char* dialog, char* component) {
    return Op<"ProUICheckbuttonSet">.Call(
        [&] { Required<CheckButton>(dialog, component).set = true; }, ARG(dialog), ARG(component));
}

ProError ProUICheckbuttonUnset(char* dialog, char* component) {
    return Op<"ProUICheckbuttonUnset">.Call(
        [&] { Required<CheckButton>(dialog, component).set = false; }, ARG(dialog), ARG(component));
}
