// What the components of a dialog hold.
#include "frame/services/dialog_values.h"

#include "frame/services/text.h"

namespace {

using TextGet = ProError (*)(char* dialog, char* component, WideChar** value);

std::optional<const WideChar*> Value(TextGet get, const char* dialog, const char* component) {
    WideChar* value = nullptr;
    if (get(HostText(dialog), HostText(component), &value) != PRO_TK_NO_ERROR) return std::nullopt;
    return value;
}

WideText TextOf(TextGet get, const char* dialog, const char* component) {
    const WideChar* value = Value(get, dialog, component).value_or(nullptr);
    return value ? value : WideText();
}

}  // namespace

std::string SelectedName(const char* dialog, const char* radioGroup) {
    int count = 0;
    char** names = nullptr;
    const ProError status =
        ProUIRadiogroupSelectednamesGet(HostText(dialog), HostText(radioGroup), &count, &names);
    const bool selected = status == PRO_TK_NO_ERROR && count > 0 && names && names[0];
    return selected ? names[0] : std::string();
}

WideText InputPanelText(const char* dialog, const char* component) {
    return TextOf(ProUIInputpanelValueGet, dialog, component);
}

WideText OptionMenuText(const char* dialog, const char* component) {
    return TextOf(ProUIOptionmenuValueGet, dialog, component);
}

WideText TextAreaText(const char* dialog, const char* component) {
    return TextOf(ProUITextareaValueGet, dialog, component);
}

std::optional<const WideChar*> InputPanelValue(const char* dialog, const char* component) {
    return Value(ProUIInputpanelValueGet, dialog, component);
}

std::optional<const WideChar*> OptionMenuValue(const char* dialog, const char* component) {
    return Value(ProUIOptionmenuValueGet, dialog, component);
}

int CheckButtonState(const char* dialog, const char* component) {
    ProBoolean state = PRO_B_FALSE;
    const ProError status = ProUICheckbuttonGetState(HostText(dialog), HostText(component), &state);
    return status == PRO_TK_NO_ERROR ? int(state) : -1;
}
