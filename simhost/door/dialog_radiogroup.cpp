// Radio groups at the door.
#include "hostapi/host.h"
#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/ui/radiogroup.h"

using namespace simhost;

namespace {

RadioGroup& RequireRadioGroup(const char* dialog, const char* component) {
    Need(dialog, "the dialog's name");
    Need(component, "the component's name");
    const Dialog& owner = TheHost().dialogs.Require(dialog);
    return RequireKind<RadioGroup>(owner.Require(component), owner.name());
}

}  // namespace

ProError ProUIRadiogroupSelectednamesGet(char* dialog, char* component, int* count, char*** names) {
    static Operation op("ProUIRadiogroupSelectednamesGet");
    return op.Call(
        [&] {
            Need(count, "the place for the number");
            Need(names, "the place for the names");
            RadioGroup& group = RequireRadioGroup(dialog, component);
            *names = group.SelectedForCaller();
            *count = *names ? 1 : 0;
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component, "count", Out(count));
}

ProError ProUIRadiogroupSelectednamesSet(char* dialog, char* component, int count, char** names) {
    static Operation op("ProUIRadiogroupSelectednamesSet");
    return op.Call(
        [&] {
            RadioGroup& group = RequireRadioGroup(dialog, component);
            if (count != 1) Complain(PRO_TK_BAD_INPUTS, "a radio group selects one name");
            Need(names, "the names");
            Need(names[0], "the name");
            if (!group.Select(Utf8(FromSystemCodePage(names[0])))) Refuse(PRO_TK_BAD_INPUTS);
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component, "name",
        count == 1 && names ? names[0] : static_cast<char*>(nullptr));
}

ProError ProUIRadiogroupSelectActionSet(char* dialog, char* component, ProUIAction action,
                                        ProAppData data) {
    static Operation op("ProUIRadiogroupSelectActionSet");
    return op.Call(
        [&] {
            RequireRadioGroup(dialog, component).selectAction = {action, data};
            return PRO_TK_NO_ERROR;
        },
        "dialog", dialog, "component", component, "action", action, "data", data);
}
