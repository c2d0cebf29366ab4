// The steps of trails: the pressing of commands, and the verbs on the components of dialogs.
#include "simhost/trail/steps.h"

#include <fmt/format.h>

#include "simhost/host.h"
#include "simhost/ui/near_name.h"

namespace simhost {

std::string PerformTrailStep(const Step& step) {
    if (step.verb == "Command") {
        if (step.arguments.empty()) return "a command's name belongs after ~ Command";
        return TheHost().commands.Press(step.arguments[0]).reason;
    }
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
    return TheHost().dialogs.Use(
        *verb, step.arguments[0], wholeDialog ? std::string() : step.arguments[1],
        {step.arguments.begin() + (wholeDialog ? 1 : 2), step.arguments.end()});
}

}  // namespace simhost
