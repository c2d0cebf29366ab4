// The @ words with which the user answers: boxes, prompts, popups, menu buttons.
#include <fmt/format.h>

#include <charconv>
#include <cmath>

#include "simhost/core/text.h"
#include "simhost/model/picking.h"
#include "simhost/trail/file_choice.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/picks.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"

namespace simhost {
namespace {

constexpr const char* kUsualPopup = "Sel Obj Menu";

bool IsOpen(const Wait* wait, Wait::Kind kind) {
    return wait && wait->kind == kind && !wait->answered;
}

// What the host waits for; that it waits for none has been told.
Picking* OpenPick(Trail& trail) {
    Wait* wait = trail.waiting();
    if (IsOpen(wait, Wait::Kind::Pick)) return wait->picking;
    trail.Fail("no command waits for a pick; select selects before one");
    return nullptr;
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

void PressMappedKey(Trail& trail, const std::string& rest) {
    const Pressed pressed = TheHost().commands.PressByKey(ParseText(rest).text);
    if (!pressed) trail.Fail(pressed.reason + UnloadedHint());
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
    const WideText typed = Wide(ParseText(rest).text);
    const FileChoice choice = wait->file ? ChoiceOf(*wait->file, typed) : FileChoice{typed, {}};
    if (!choice.problem.empty()) {
        trail.Fail(choice.problem);
        // By hand the dialog stays open; what comes next in a script belongs to something else.
        wait->answered = !trail.patient();
        return;
    }
    wait->answer = choice.path;
    wait->answered = true;
}

void PickItems(Trail& trail, const std::string& rest) {
    Picking* picking = OpenPick(trail);
    if (!picking) return;
    std::string problem;
    std::vector<Selection> items = PickAll(ParseText(rest).text, &problem);
    if (problem.empty() && items.empty())
        problem = "a path belongs after pick, such as UNIT/GEAR:2";
    if (problem.empty()) problem = picking->Take(std::move(items));
    if (!problem.empty()) trail.Fail(problem);
}

bool TakeScreenBox(Trail& trail, const std::string& rest, ScreenBox* box, const char* hint) {
    const auto fail = [&](const std::string& why) {
        trail.Fail(why);
        return false;
    };
    double* const places[] = {&box->x0, &box->y0, &box->x1, &box->y1};
    const char* at = rest.data();
    const char* end = rest.data() + rest.size();
    for (double* place : places) {
        while (at < end && (*at == ' ' || *at == '\t')) ++at;
        const auto [parsed, error] = std::from_chars(at, end, *place);
        if (error != std::errc() || !std::isfinite(*place)) {
            return fail(std::string("a box is two corners: X Y X Y") + hint);
        }
        at = parsed;
    }
    return at == end || fail("a box is two corners: X Y X Y, and nothing after them");
}

void PickBox(Trail& trail, const std::string& rest) {
    Picking* picking = OpenPick(trail);
    ScreenBox box;
    if (!picking || !TakeScreenBox(trail, rest, &box, "; what is called BOX is ./BOX")) return;
    const std::string problem = picking->TakeBox(box);
    if (!problem.empty()) return trail.Fail(problem);
    trail.Say(fmt::format("{} in the box", picking->taken().size()));
}

void PickNothing(Trail& trail, const std::string&) {
    if (Picking* picking = OpenPick(trail)) picking->TakeNothing();
}

void Quit(Trail& trail, const std::string&) {
    Wait* wait = trail.waiting();
    if (IsOpen(wait, Wait::Kind::Prompt) || IsOpen(wait, Wait::Kind::Click)) {
        wait->answered = true;
    } else if (IsOpen(wait, Wait::Kind::Pick)) {
        wait->picking->Leave();
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
        trail.Fail("neither a prompt nor a pick nor a click nor a popup is there to be left");
    }
}

}  // namespace simhost
