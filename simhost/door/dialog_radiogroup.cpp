// Radio groups at the door.
#include "hostapi/host.h"
#include "simhost/core/text.h"
#include "simhost/door/dialog_component.h"
#include "simhost/ui/radiogroup.h"

using namespace simhost;

ProError ProUIRadiogroupSelectednamesGet(char* dialog, char* component, int* count, char*** names) {
    return Op<"ProUIRadiogroupSelectednamesGet">.Call(
        [&] {
            RadioGroup& group = Required<RadioGroup>(dialog, component);
            *names = group.SelectedForCaller();
            *count = *names ? 1 : 0;
        },
        ARG(dialog), ARG(component), OUT(count), OUT_LIST(names, count));
}

ProError ProUIRadiogroupSelectednamesSet(char* dialog, char* component, int count, char** names) {
    return Op<"ProUIRadiogroupSelectednamesSet">.Call(
        [&] {
            RadioGroup& group = Required<RadioGroup>(dialog, component);
            if (count != 1) Complain(PRO_TK_BAD_INPUTS, "a radio group selects one name");
            Need(names, "the names");
            Need(names[0], "the name");
            if (!group.Select(Utf8(FromSystemCodePage(names[0])))) Refuse(PRO_TK_BAD_INPUTS);
        },
        ARG(dialog), ARG(component), LIST(names, count));
}

ProError ProUIRadiogroupSelectActionSet(char* dialog, char* component, ProUIAction action,
                                        ProAppData data) {
    return Op<"ProUIRadiogroupSelectActionSet">.Call(
        [&] {
            Required<RadioGroup>(dialog, component).selectAction = {action, data};
        },
        ARG(dialog), ARG(component), ARG(action), ARG(data));
}
