// The mindless user's way through a dialog.
#include "simhost/trail/robot.h"

#include <algorithm>

#include "simhost/core/text.h"

namespace simhost {
namespace {

constexpr int kForcedEnd = -1;

bool SeemsToEnd(const std::string& name) {
    const std::string word = Lower(name);
    return word == "ok" || word == "close" || word == "cancel";
}

}  // namespace

int RobotUser::AnswerBox(const Box&) {
    return 1;
}

std::optional<WideText> RobotUser::AnswerPrompt(const WideText&, const WideText&) {
    return std::nullopt;
}

void RobotUser::UseDialog(Dialog& dialog) {
    std::vector<std::string> buttons;
    for (const auto& component : dialog.components()) {
        if (component->kind() == PushButton::kKind) buttons.push_back(component->name());
    }
    std::stable_partition(buttons.begin(), buttons.end(),
                          [](const std::string& name) { return !SeemsToEnd(name); });
    for (const std::string& button : buttons) {
        if (dialog.ended()) return;
        dialog.Press(button);
    }
    dialog.CloseWindow();
    // The OK may have had its reasons for staying; a second press finds them gone or not.
    if (!dialog.ended()) dialog.Press("OK");
    if (!dialog.ended()) dialog.Exit(kForcedEnd);
}

}  // namespace simhost
