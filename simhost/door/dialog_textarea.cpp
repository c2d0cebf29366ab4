// Text areas at the door.
#include "hostapi/host.h"
#include "simhost/door/dialog_component.h"
#include "simhost/ui/textfield.h"

using namespace simhost;

ProError ProUITextareaValueGet(char* dialog, char* component, WideChar** value) {
    return Op<"ProUITextareaValueGet">.Call(
        [&] { *value = Required<TextArea>(dialog, component).ValueForCaller(); }, ARG(dialog),
        ARG(component), OUT(value));
}
