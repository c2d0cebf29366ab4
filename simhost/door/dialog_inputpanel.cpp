// Input panels at the door.
#include "hostapi/host.h"
#include "simhost/host.h"
#include "simhost/ui/textfield.h"

using namespace simhost;

namespace {

InputPanel& RequireInputPanel(const char* dialog, const char* component) {
    Need(dialog, "the dialog's name");
    Need(component, "the component's name");
    const Dialog& owner = TheHost().dialogs.Require(dialog);
    return RequireKind<InputPanel>(owner.Require(component), owner.name());
}

}  // namespace

ProError ProUIInputpanelValueGet(char* dialog, char* component, WideChar** value) {
    static Operation op("ProUIInputpanelValueGet");
    return op.Call(
        [&] {
            Need(value, "the place for the text");
            *value = RequireInputPanel(dialog, component).ValueForCaller();
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component, "value", Out(value));
}

ProError ProUIInputpanelValueSet(char* dialog, char* component, WideChar* value) {
    static Operation op("ProUIInputpanelValueSet");
    return op.Call(
        [&] {
            Need(value, "the text");
            RequireInputPanel(dialog, component).value = value;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component, "value", value);
}
