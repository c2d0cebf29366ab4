// Input panels at the door.
#include "hostapi/host.h"
#include "simhost/door/dialog_component.h"
#include "simhost/ui/textfield.h"

using namespace simhost;

ProError ProUIInputpanelValueGet(char* dialog, char* component, WideChar** value) {
    return Op<"ProUIInputpanelValueGet">.Call(
        [&] { *value = Required<InputPanel>(dialog, component).ValueForCaller(); }, ARG(dialog),
        ARG(component), OUT(value));
}

ProError ProUIInputpanelValueSet(char* dialog, char* component, WideChar* value) {
    return Op<"ProUIInputpanelValueSet">.Call(
        [&] { Required<InputPanel>(dialog, component).value = value; }, ARG(dialog), ARG(component),
        GIVEN(value));
}
