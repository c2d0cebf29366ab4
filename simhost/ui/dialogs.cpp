// Making, showing and ending of dialogs.
#include "simhost/ui/dialogs.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>

#include "simhost/core/text.h"
#include "simhost/ui/drawingarea.h"
#include "simhost/ui/label.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/textfield.h"

namespace simhost {
namespace {

// How a dialog ends that its user has left open: the run must go on.
constexpr int kForcedEnd = -1;

bool EndsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

}  // namespace

// --- One dialog -------------------------------------------------------------------------------

Dialog::Dialog(std::string name, DialogResource resource, Desk* desk)
    : name_(std::move(name)), resource_(std::move(resource)), desk_(desk) {
    for (const ResourceComponent& declared : resource_.components) {
        components_.push_back(MakeComponent(*this, declared, resource_));
    }
}

WideText Dialog::title() const {
    const std::vector<std::string>* label = resource_.Find("", "Label");
    return label && !label->empty() ? Wide((*label)[0]) : Wide(name_);
}

Component* Dialog::Find(std::string_view component) const {
    for (const auto& each : components_) {
        if (each->name() == component) return each.get();
    }
    const auto inCell = inCells_.find(std::string(component));
    return inCell == inCells_.end() ? nullptr : inCell->second;
}

std::vector<std::string> Dialog::ComponentNames() const {
    std::vector<std::string> names;
    for (const auto& each : components_) names.push_back(each->name());
    for (const auto& [name, component] : inCells_) names.push_back(name);
    return names;
}

Component& Dialog::Require(const char* component) const {
    Component* found = Find(Utf8(FromSystemCodePage(component)));
    if (!found) Refuse(PRO_TK_E_NOT_FOUND);
    return *found;
}

void Dialog::Exit(int status) {
    if (!active_) Refuse(PRO_TK_BAD_CONTEXT);
    exiting_ = true;
    status_ = status;
}

std::string Dialog::Use(Verb verb, const std::string& component,
                        const std::vector<std::string>& arguments) {
    if (!active_ || ended()) return fmt::format("dialog {} is not open", name_);
    Component* found = Find(component);
    if (!found) {
        return fmt::format("no component {} in dialog {}{}", component, name_,
                           DidYouMean(component, ComponentNames()));
    }
    return found->Use(verb, arguments);
}

void Dialog::CloseWindow() {
    if (!active_ || ended()) return;
    RunAction(closeAction, "");
}

void Dialog::RunAction(const DialogAction& action, const std::string& component) {
    if (!action.function) return;
    // The callback's parameters are not const, so it gets copies of its own.
    std::string dialogName = ToSystemCodePage(Wide(name_));
    std::string componentName = ToSystemCodePage(Wide(component));
    ++runningActions_;
    try {
        action.function(dialogName.data(), componentName.data(), action.data);
    } catch (const std::exception& error) {
        if (!desk_) throw;
        desk_->Complain(
            fmt::format("an action of dialog {} let an exception out: {}", name_, error.what()));
    }
    --runningActions_;
}

// --- All dialogs ------------------------------------------------------------------------------

void Dialogs::Create(const char* name, const char* resource) {
    const std::string dialogName = Utf8(FromSystemCodePage(name));
    if (dialogName.empty()) Refuse(PRO_TK_BAD_INPUTS);
    if (Find(dialogName)) Refuse(PRO_TK_E_FOUND);
    std::string fileName = Utf8(FromSystemCodePage(resource));
    if (!EndsWith(fileName, ".res")) fileName += ".res";
    const WideText path = textFolder_ + WIDE("\\text\\resource\\") + Wide(fileName);
    bool found = false;
    const std::string text = ReadFile(disk_.Real(path), &found);
    if (!found) Refuse(PRO_TK_E_NOT_FOUND);
    try {
        DialogResource parsed = ParseResource(text, fileName);
        CheckPictures(parsed, fileName, disk_.Real(path).parent_path());
        dialogs_.push_back(std::make_unique<Dialog>(dialogName, std::move(parsed), &desk_));
    } catch (const ResourceError& error) {
        Complain(PRO_TK_INVALID_FILE, error.what());
    }
}

Dialog* Dialogs::Find(std::string_view name) const {
    for (const auto& dialog : dialogs_) {
        if (dialog->name() == name) return dialog.get();
    }
    return nullptr;
}

Dialog& Dialogs::Require(const char* name) const {
    Dialog* dialog = Find(Utf8(FromSystemCodePage(name)));
    if (!dialog) Refuse(PRO_TK_E_NOT_FOUND);
    return *dialog;
}

int Dialogs::Activate(Dialog& dialog) {
    if (dialog.active_) {
        Complain(PRO_TK_BAD_CONTEXT, fmt::format("dialog {} is active already", dialog.name()));
    }
    dialog.active_ = true;
    dialog.exiting_ = false;
    dialog.status_ = 0;
    active_.push_back(&dialog);
    desk_.shown.push_back({Shown::Kind::Dialog, Wide(dialog.name()), {}});
    for (const auto& component : dialog.components_) {
        auto* area = dynamic_cast<DrawingArea*>(component.get());
        if (area && area->visible) area->BecomeManaged();
    }
    if (desk_.user) {
        desk_.user->UseDialog(dialog);
    }
    if (!dialog.ended()) {
        const char* what =
            desk_.user ? "the user left open the dialog " : "nobody uses the dialog ";
        desk_.Complain(what + dialog.name());
        dialog.CloseWindow();
    }
    if (!dialog.ended()) dialog.Exit(kForcedEnd);
    dialog.active_ = false;
    active_.pop_back();
    return dialog.status_;
}

void Dialogs::Destroy(Dialog& dialog) {
    if (dialog.active_) {
        Complain(PRO_TK_BAD_CONTEXT,
                 fmt::format("dialog {} is destroyed while it is active", dialog.name()));
    }
    std::erase_if(dialogs_, [&](const auto& each) { return each.get() == &dialog; });
}

std::vector<std::string> Dialogs::Existing() const {
    std::vector<std::string> names;
    for (const auto& dialog : dialogs_) names.push_back(dialog->name());
    return names;
}

void Dialogs::Clear() {
    // An active dialog is in use further up; only its end may take it away.
    std::erase_if(dialogs_, [](const auto& dialog) { return !dialog->active(); });
    mainWindow.CloseAll();
}

std::string Dialogs::Use(Verb verb, const std::string& dialog, const std::string& component,
                         const std::vector<std::string>& arguments) {
    if (dialog == MainWindow::kQuestionName) return mainWindow.UseQuestion(verb, component);
    if (dialog == MainWindow::kName && !Active()) return mainWindow.Use(verb, component);
    if (!Active()) return fmt::format("no dialog {} is open", dialog);
    if (Active()->name() != dialog) {
        return fmt::format("dialog {} is open and has to be used first, not {}", Active()->name(),
                           dialog);
    }
    // The window itself, unless it is a menu's list that is closed.
    if (verb == Verb::Close && !dynamic_cast<OptionMenu*>(Active()->Find(component))) {
        Active()->CloseWindow();
        return {};
    }
    return Active()->Use(verb, component, arguments);
}

}  // namespace simhost
