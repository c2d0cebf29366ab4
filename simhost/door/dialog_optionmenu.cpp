// Option menus at the door.
#include "hostapi/host.h"
#include "simhost/door/dialog_component.h"
#include "simhost/ui/textfield.h"

using namespace simhost;

ProError ProUIOptionmenuValueGet(char* dialog, char* component, WideChar** value) {
    return Op<"ProUIOptionmenuValueGet">.Call(
        [&] { *value = Required<OptionMenu>(dialog, component).ValueForCaller(); }, ARG(dialog),
        ARG(component), OUT(value));
}

// A component of another kind is refused without a complaint: callers may try this call first.
ProError ProUIOptionmenuValueSet(char* dialog, char* component, WideChar* value) {
    return Op<"ProUIOptionmenuValueSet">.Call(
        [&] {
            Component& found = TheHost().dialogs.Require(dialog).Require(component);
            auto* menu = dynamic_cast<OptionMenu*>(&found);
            if (!menu) Refuse(PRO_TK_INVALID_TYPE);
            menu->value = value;
        },
        GIVEN(dialog), GIVEN(component), GIVEN(value));
}

ProError ProUIOptionmenuEnable(char* dialog, char* component) {
    return Op<"ProUIOptionmenuEnable">.Call(
        [&] { Required<OptionMenu>(dialog, component).enabled = true; }, ARG(dialog),
        ARG(component));
}

ProError ProUIOptionmenuDisable(char* dialog, char* component) {
    return Op<"ProUIOptionmenuDisable">.Call(
        [&] { Required<OptionMenu>(dialog, component).enabled = false; }, ARG(dialog),
        ARG(component));
}
