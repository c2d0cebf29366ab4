// The @ words with which the user answers: boxes, prompts, popups, menu buttons.
#include <fmt/format.h>

#include "simhost/core/text.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"

namespace simhost {
namespace {

constexpr const char* kUsualPopup = "Sel Obj Menu";

bool IsOpen(const Wait* wait, Wait::Kind kind) {
    return wait && wait->kind == kind && !wait->answered;
}

}  // namespace

void RightClick(Trail& trail, const std::string& rest) {
    std::string name = ParseText(rest).text;
    if (name.empty()) name = kUsualPopup;
    Commands& commands = TheHost().commands;
    if (!commands.OpenPopup(name)) {
        return trail.Fail(fmt::format("there is no popup menu {}{}", name,
                                      DidYouMean(name, Commands::PopupNames())));
    }
    Show(trail, "popup");
}

void ChooseEntry(Trail& trail, const std::string& rest) {
    if (!TheHost().commands.popup()) return trail.Fail("no popup is open; right-click opens one");
    const Pressed pressed = TheHost().commands.PressPopup(ParseText(rest).text);
    if (!pressed) trail.Fail(pressed.reason);
}

void PressMenuButton(Trail& trail, const std::string& rest) {
    const std::string path = ParseText(rest).text;
    const std::size_t slash = path.find('/');
    if (slash == std::string::npos) return trail.Fail("a button is MENU/BUTTON");
    const Pressed pressed = TheHost().commands.PressButton(
        std::string(Trimmed(path.substr(0, slash))), std::string(Trimmed(path.substr(slash + 1))));
    if (!pressed) trail.Fail(pressed.reason);
}

void PressEnter(Trail& trail, const std::string&) {
    Wait* wait = trail.waiting();
    if (IsOpen(wait, Wait::Kind::Box)) {
        wait->answered = true;
        return;
    }
    const Dialog* dialog = TheHost().dialogs.Active();
    if (!dialog) return trail.Fail("neither a box nor a dialog is open");
    const auto* button = dialog->resource().Find("", "DefaultButton");
    if (!button) return trail.Fail(fmt::format("{} has no default button", dialog->name()));
    const std::string problem =
        TheHost().dialogs.Use(Verb::Activate, dialog->name(), button->at(0));
    if (!problem.empty()) trail.Fail(problem);
}

// A script says which of the two it means, so that a box that did not come is not overlooked.
void AnswerOk(Trail& trail, const std::string& rest) {
    Wait* wait = trail.waiting();
    if (trail.typed() && IsOpen(wait, Wait::Kind::Dialog)) return PressEnter(trail, rest);
    if (!IsOpen(wait, Wait::Kind::Box)) return trail.Fail("no box is open");
    wait->answered = true;
}

void AnswerText(Trail& trail, const std::string& rest) {
    Wait* wait = trail.waiting();
    if (!IsOpen(wait, Wait::Kind::Prompt)) return trail.Fail("no prompt waits for an answer");
    wait->answer = Wide(ParseText(rest).text);
    wait->answered = true;
}

void Quit(Trail& trail, const std::string&) {
    Wait* wait = trail.waiting();
    if (IsOpen(wait, Wait::Kind::Prompt)) {
        wait->answered = true;
    } else if (wait) {
        trail.Fail(wait->kind == Wait::Kind::Box
                       ? "a box is open: ok answers it"
                       : fmt::format("the dialog is ended by its buttons or by ~ Close `{}`",
                                     wait->dialog->name()));
    } else if (TheHost().commands.popup()) {
        TheHost().commands.ClosePopup();
    } else if (trail.typed()) {
        trail.Leave();
    } else {
        trail.Fail("neither a prompt nor a popup is there to be left");
    }
}

}  // namespace simhost
