// Text areas at the door.
#include "hostapi/host.h"
#include "simhost/host.h"
#include "simhost/ui/textfield.h"

using namespace simhost;

namespace {

TextArea& RequireTextArea(const char* dialog, const char* component) {
    Need(dialog, "the dialog's name");
    Need(component, "the component's name");
    const Dialog& owner = TheHost().dialogs.Require(dialog);
    return RequireKind<TextArea>(owner.Require(component), owner.name());
}

}  // namespace

ProError ProUITextareaValueGet(char* dialog, char* component, WideChar** value) {
    static Operation op("ProUITextareaValueGet");
    return op.Call(
        [&] {
            Need(value, "the place for the text");
            *value = RequireTextArea(dialog, component).ValueForCaller();
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component, "value", Out(value));
}
