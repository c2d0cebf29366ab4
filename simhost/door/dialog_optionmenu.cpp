// Option menus at the door.
#include "hostapi/host.h"
#include "simhost/host.h"
#include "simhost/ui/textfield.h"

using namespace simhost;

namespace {

OptionMenu& RequireOptionMenu(const char* dialog, const char* component) {
    Need(dialog, "the dialog's name");
    Need(component, "the component's name");
    const Dialog& owner = TheHost().dialogs.Require(dialog);
    return RequireKind<OptionMenu>(owner.Require(component), owner.name());
}

}  // namespace

ProError ProUIOptionmenuValueGet(char* dialog, char* component, WideChar** value) {
    static Operation op("ProUIOptionmenuValueGet");
    return op.Call(
        [&] {
            Need(value, "the place for the text");
            *value = RequireOptionMenu(dialog, component).ValueForCaller();
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component, "value", Out(value));
}

// A component of another kind is refused without a complaint: callers may try this call first.
ProError ProUIOptionmenuValueSet(char* dialog, char* component, WideChar* value) {
    static Operation op("ProUIOptionmenuValueSet");
    return op.Call(
        [&] {
            Need(dialog, "the dialog's name");
            Need(component, "the component's name");
            Need(value, "the text");
            Component& found = TheHost().dialogs.Require(dialog).Require(component);
            auto* menu = dynamic_cast<OptionMenu*>(&found);
            if (!menu) Refuse(PRO_TK_INVALID_TYPE);
            menu->value = value;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component, "value", value);
}

ProError ProUIOptionmenuEnable(char* dialog, char* component) {
    static Operation op("ProUIOptionmenuEnable");
    return op.Call(
        [&] {
            RequireOptionMenu(dialog, component).enabled = true;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component);
}

ProError ProUIOptionmenuDisable(char* dialog, char* component) {
    static Operation op("ProUIOptionmenuDisable");
    return op.Call(
        [&] {
            RequireOptionMenu(dialog, component).enabled = false;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component);
}
