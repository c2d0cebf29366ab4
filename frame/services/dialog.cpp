// What the components of dialogs hold and do, and the one pattern of all dialogs.
#include "frame/services/dialog.h"

#include "frame/services/left_to_host.h"
#include "frame/services/messages.h"
#include "frame/services/text.h"

namespace {

using TextGet = ProError (*)(char* dialog, char* component, WideChar** value);

std::optional<DialogText> Value(TextGet get, const char* dialog, const char* component) {
    WideChar* text = nullptr;
    if (get(HostText(dialog), HostText(component), &text) != PRO_TK_NO_ERROR) return std::nullopt;
    DialogText value{text == nullptr, text ? text : WideText()};
    LeaveText(text);
    return value;
}

WideText TextOf(TextGet get, const char* dialog, const char* component) {
    return Value(get, dialog, component).value_or(DialogText()).text;
}

}  // namespace

// --- Actions ---

void Dialog::OnPress(const char* pushButton, ProUIAction action, const void* data) const {
    ProUIPushbuttonActivateActionSet(HostText(name_), HostText(pushButton), action,
                                     const_cast<void*>(data));
}

void Dialog::OnSelect(const char* radioGroup, ProUIAction action) const {
    ProUIRadiogroupSelectActionSet(HostText(name_), HostText(radioGroup), action, nullptr);
}

void Dialog::OnManaged(const char* drawingArea, ProUIAction action, const void* data) const {
    ProUIDrawingareaPostmanagenotifyActionSet(HostText(name_), HostText(drawingArea), action,
                                              const_cast<void*>(data));
}

void Dialog::OnFocus(const char* inputPanel, ProUIAction action) const {
    ProUIInputpanelFocusinActionSet(HostText(name_), HostText(inputPanel), action, nullptr);
}

void Dialog::OnClose(ProUIAction action) const {
    ProUIDialogCloseActionSet(HostText(name_), action, nullptr);
}

// --- Radio groups ---

std::string Dialog::Selected(const char* radioGroup) const {
    int count = 0;
    char** names = nullptr;
    const ProError status =
        ProUIRadiogroupSelectednamesGet(HostText(name_), HostText(radioGroup), &count, &names);
    if (status != PRO_TK_NO_ERROR) return {};
    const bool selected = count > 0 && names && names[0];
    const std::string first = selected ? names[0] : std::string();
    LeaveNames(names, count);
    return first;
}

void Dialog::Select(const char* radioGroup, std::string item) const {
    char* names[] = {item.data()};
    ProUIRadiogroupSelectednamesSet(HostText(name_), HostText(radioGroup), 1, names);
}

// --- Texts ---

WideText Dialog::InputText(const char* inputPanel) const {
    return TextOf(ProUIInputpanelValueGet, name_, inputPanel);
}

WideText Dialog::MenuText(const char* optionMenu) const {
    return TextOf(ProUIOptionmenuValueGet, name_, optionMenu);
}

WideText Dialog::AreaText(const char* textArea) const {
    return TextOf(ProUITextareaValueGet, name_, textArea);
}

std::optional<DialogText> Dialog::InputValue(const char* inputPanel) const {
    return Value(ProUIInputpanelValueGet, name_, inputPanel);
}

ProError Dialog::ReadInput(const char* inputPanel, WideText* text) const {
    text->clear();
    WideChar* value = nullptr;
    const ProError status = ProUIInputpanelValueGet(HostText(name_), HostText(inputPanel), &value);
    if (status != PRO_TK_NO_ERROR) return status;
    if (value) *text = value;
    LeaveText(value);
    return status;
}

std::optional<DialogText> Dialog::MenuValue(const char* optionMenu) const {
    return Value(ProUIOptionmenuValueGet, name_, optionMenu);
}

void Dialog::SetInputText(const char* inputPanel, const WideChar* text) const {
    ProUIInputpanelValueSet(HostText(name_), HostText(inputPanel), HostText(text));
}

void Dialog::SetMenuText(const char* optionMenu, const WideChar* text) const {
    ProUIOptionmenuValueSet(HostText(name_), HostText(optionMenu), HostText(text));
}

// --- Option menus, check buttons, drawing areas ---

void Dialog::EnableMenu(const char* optionMenu) const {
    ProUIOptionmenuEnable(HostText(name_), HostText(optionMenu));
}

void Dialog::DisableMenu(const char* optionMenu) const {
    ProUIOptionmenuDisable(HostText(name_), HostText(optionMenu));
}

int Dialog::CheckState(const char* checkButton) const {
    ProBoolean state = PRO_B_FALSE;
    const ProError status =
        ProUICheckbuttonGetState(HostText(name_), HostText(checkButton), &state);
    return status == PRO_TK_NO_ERROR ? int(state) : -1;
}

void Dialog::Check(const char* checkButton) const {
    ProUICheckbuttonSet(HostText(name_), HostText(checkButton));
}

void Dialog::Uncheck(const char* checkButton) const {
    ProUICheckbuttonUnset(HostText(name_), HostText(checkButton));
}

void Dialog::SetImages(const char* drawingArea, int count, char** images) const {
    ProUIDrawingareaImagesSet(HostText(name_), HostText(drawingArea), count, images);
}

void Dialog::DrawImages(const char* drawingArea, int count, char** images,
                        ProUIPoint* places) const {
    ProUIDrawingareaImagesDraw(HostText(name_), HostText(drawingArea), count, images, places);
}

// --- The dialog itself ---

void Dialog::StayAboveWindow() const {
    ProUIDialogAboveactivewindowSet(HostText(name_), PRO_B_TRUE);
}

void Dialog::End(int status) const {
    ProUIDialogExit(HostText(name_), status);
}

CreatedDialog::CreatedDialog(Dialog dialog)
    : dialog_(dialog),
      status_(ProUIDialogCreate(HostText(dialog.Name()), HostText(dialog.Name()))),
      destroys_(status_ == PRO_TK_NO_ERROR) {
    if (status_ != PRO_TK_NO_ERROR) ShowPlainError(WIDE("UIDialog Create error!"));
}

CreatedDialog::~CreatedDialog() {
    if (destroys_) ProUIDialogDestroy(HostText(dialog_.Name()));
}

ProError CreatedDialog::Show() {
    destroys_ = false;
    int ended = 0;
    ProError status = ProUIDialogActivate(HostText(dialog_.Name()), &ended);
    if (status != PRO_TK_NO_ERROR) {
        ShowPlainError(WIDE("UIDialog Activate error!"));
        return status;
    }
    status = ProUIDialogDestroy(HostText(dialog_.Name()));
    if (status != PRO_TK_NO_ERROR) ShowPlainError(WIDE("UIDialog Destroy error!"));
    return status;
}

ProError RunModalDialog(Dialog dialog, const std::function<void()>& prepare) {
    CreatedDialog created(dialog);
    if (created.Status() != PRO_TK_NO_ERROR) return created.Status();
    prepare();
    return created.Show();
}

void EndDialogWithOk(char* dialog, char*, ProAppData) noexcept {
    ProUIDialogExit(dialog, 1);
}

void EndDialogOnClose(char* dialog, char*, ProAppData) noexcept {
    ProUIDialogExit(dialog, 0);
}
