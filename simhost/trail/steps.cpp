// The steps of trails: the pressing of commands, and the verbs on the components of dialogs.
#include "simhost/trail/steps.h"

#include <fmt/format.h>

#include "simhost/host.h"
#include "simhost/ui/dimension_menu.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/replace_dialog.h"

namespace simhost {

namespace {

constexpr const char* kPopup = "rmb_popup";         // the popup of the graphics window,
constexpr const char* kPopupMenu = "Sel Obj Menu";  // as plug-ins know it

// The host's own replace command, which lies in the popup menu in later versions.
std::string PressReplace(const std::string& command) {
    Host& host = TheHost();
    if (IsInPopup(command) && !host.commands.popup()) {
        return fmt::format("{} lies in the popup menu, which is not open", command);
    }
    host.commands.ClosePopup();
    return ReplaceSelected(host.dialogs, host.session, host.disk);
}

std::string OpenPopup(const Step& step) {
    if (step.arguments.empty() || step.arguments[0] != kPopup) {
        return "a verb belongs after the ~, or the name of the popup menu";
    }
    const bool opened = TheHost().commands.OpenPopup(kPopupMenu) != nullptr;
    return opened ? "" : "nothing is selected that has a popup menu";
}

}  // namespace

bool IsCommand(const std::string& name) {
    return IsReplaceCommand(name) || IsDimensionCommand(name) ||
           TheHost().commands.Newest(name) != nullptr;
}

std::string PerformTrailStep(const Step& step) {
    if (step.verb == "Command") {
        if (step.arguments.empty()) return "a command's name belongs after ~ Command";
        const std::string& command = step.arguments[0];
        if (IsReplaceCommand(command)) return PressReplace(command);
        if (IsDimensionCommand(command)) {
            const bool chosen = step.arguments.size() > 1;
            OrientDimension(TheHost().desk, TheHost().session,
                            chosen ? step.arguments[1] : std::string());
            return {};
        }
        return TheHost().commands.Press(command).reason;
    }
    if (step.verb == "Trail") return {};  // only records
    if (step.verb.empty()) return OpenPopup(step);
    const auto verb = ParseVerb(step.verb);
    if (!verb) {
        std::vector<std::string> verbs = VerbNames();
        verbs.emplace_back("Command");
        return fmt::format("there is no step {}{}", step.verb, DidYouMean(step.verb, verbs));
    }
    if (step.arguments.empty()) {
        return fmt::format("a dialog's name belongs after ~ {}", step.verb);
    }
    const bool wholeDialog = step.arguments.size() == 1;
    if (wholeDialog && *verb != Verb::Close) {
        return fmt::format("a component's name belongs after ~ {} `{}`", step.verb,
                           step.arguments[0]);
    }
    if (!wholeDialog && IsDimensionWindow(step.arguments[0], step.arguments[1])) return {};
    return TheHost().dialogs.Use(
        *verb, step.arguments[0], wholeDialog ? std::string() : step.arguments[1],
        {step.arguments.begin() + (wholeDialog ? 1 : 2), step.arguments.end()});
}

}  // namespace simhost
