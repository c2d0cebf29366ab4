// Dialogs by their names: what their components hold and do, and the one pattern in which they are
// created, filled, shown and destroyed.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "hostapi/host.h"

// A text of a dialog as it was: null is not the same as empty.
struct DialogText {
    bool isNull = true;
    WideText text;
    const WideChar* OrNull() const { return isNull ? nullptr : text.c_str(); }
};

// A dialog that the host has under this name. Holds the name and nothing else: every member is one
// call of the host at the moment at which it is called, and copies mean the same dialog. Of two
// members in one expression nobody knows which comes first, so each has a statement of its own.
class Dialog {
public:
    // The name must outlive it: a literal, or what a callback is handed for as long as it runs.
    constexpr Dialog(const char* name) : name_(name) {}
    constexpr const char* Name() const { return name_; }

    // --- Actions; `data` is handed on to the action and must outlive the dialog ---
    void OnPress(const char* pushButton, ProUIAction action, const void* data = nullptr) const;
    void OnSelect(const char* radioGroup, ProUIAction action) const;
    void OnManaged(const char* drawingArea, ProUIAction action, const void* data) const;
    void OnFocus(const char* inputPanel, ProUIAction action) const;  // it gets the focus
    void OnClose(ProUIAction action) const;                          // of its window

    // --- Radio groups ---
    // The first selected name; empty if none is selected or the call failed.
    std::string Selected(const char* radioGroup) const;
    void Select(const char* radioGroup, std::string item) const;

    // --- Texts; empty for a null text and after a failed call ---
    WideText InputText(const char* inputPanel) const;
    WideText MenuText(const char* optionMenu) const;
    WideText AreaText(const char* textArea) const;
    // The same with null told apart; nothing after a failed call. For settings, where a null
    // deletes the key.
    std::optional<DialogText> InputValue(const char* inputPanel) const;
    std::optional<DialogText> MenuValue(const char* optionMenu) const;
    // The same with the host's status; `text` is emptied first.
    ProError ReadInput(const char* inputPanel, WideText* text) const;
    void SetInputText(const char* inputPanel, const WideChar* text) const;
    void SetMenuText(const char* optionMenu, const WideChar* text) const;

    // --- Option menus that can be used or are greyed ---
    void EnableMenu(const char* optionMenu) const;
    void DisableMenu(const char* optionMenu) const;

    // --- Check buttons ---
    int CheckState(const char* checkButton) const;  // 1, 0, or -1 after a failed call
    void Check(const char* checkButton) const;
    void Uncheck(const char* checkButton) const;

    // --- Drawing areas: the list of pictures is left to the area ---
    void SetImages(const char* drawingArea, int count, char** images) const;
    void DrawImages(const char* drawingArea, int count, char** images, ProUIPoint* places) const;

    // --- The dialog itself ---
    void StayAboveWindow() const;  // above the active window
    void End(int status) const;    // it closes when the callback has returned

private:
    const char* name_;
};

// Creates the dialog from the resource of the same name, lets `prepare` attach the actions and fill
// the components, shows it until it is ended, and destroys it. A failed step shows its plain error
// and its status is returned; after a failed activation the dialog is not destroyed. What `prepare`
// throws is passed on when the dialog has been destroyed.
ProError RunModalDialog(Dialog dialog, const std::function<void()>& prepare);

// The same in two halves, for a dialog that decides after its creation whether it is shown at all:
//
//     CreatedDialog created(kDialog);
//     if (created.Status() != PRO_TK_NO_ERROR) return;
//     …                                       // attach, fill, perhaps return
//     created.Show();
//
// A dialog that ends here without having been shown, be it by an exception, is destroyed silently.
class CreatedDialog {
public:
    explicit CreatedDialog(Dialog dialog);
    ~CreatedDialog();
    CreatedDialog(const CreatedDialog&) = delete;
    CreatedDialog& operator=(const CreatedDialog&) = delete;

    ProError Status() const { return status_; }  // of the creation
    // Shows it until it is ended, and destroys it.
    ProError Show();
    // Leaves it with the host as it is, neither shown nor destroyed.
    void Leave() { destroys_ = false; }

private:
    Dialog dialog_;
    ProError status_;
    bool destroys_;  // it is there, and nothing has tried to show it
};

// The two actions that end a dialog: with status 1 (its OK) and with status 0 (its window closed).
void EndDialogWithOk(char* dialog, char* component, ProAppData data) noexcept;
void EndDialogOnClose(char* dialog, char* component, ProAppData data) noexcept;
