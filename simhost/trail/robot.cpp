// The mindless user's way through a dialog.
#include "simhost/trail/robot.h"

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/model/picking.h"

namespace simhost {
namespace {

constexpr int kForcedEnd = -1;

bool SeemsToEnd(const std::string& name) {
    const std::string word = Lower(name);
    return word == "ok" || word == "close" || word == "cancel";
}

std::vector<std::string> PushButtonsOf(const Dialog& dialog) {
    std::vector<std::string> names;
    for (const auto& component : dialog.components()) {
        if (component->kind() == PushButton::kKind) names.push_back(component->name());
    }
    return names;
}

}  // namespace

int RobotUser::AnswerBox(const Box&) {
    return 1;
}

std::optional<WideText> RobotUser::AnswerPrompt(const WideText&, const WideText&) {
    // A command may ask until the name can be had, which it never can.
    constexpr int kPatience = 4;
    if (++prompts_ % kPatience == 0) return std::nullopt;
    return Wide("ROBOT-" + std::to_string(prompts_));
}

void RobotUser::Pick(Picking& picking) {
    // A command may ask for one pick after the other until the user wants no more.
    constexpr int kPatience = 9;
    if (++picks_ % kPatience == 0) return picking.Leave();
    std::vector<Selection> first = picking.First();
    if (first.empty() || !picking.Take(std::move(first)).empty()) picking.Leave();
}

std::optional<Click> RobotUser::AnswerClick() {
    return Click{210, 148};
}

std::optional<WideText> RobotUser::AnswerFile(const FileQuestion& question) {
    if (question.files.empty() || question.forFolder) return std::nullopt;
    return question.folder + WIDE("\\") + question.files.front();
}

void RobotUser::UseDialog(Dialog& dialog) {
    std::vector<std::string> buttons = PushButtonsOf(dialog);
    std::stable_partition(buttons.begin(), buttons.end(),
                          [](const std::string& name) { return !SeemsToEnd(name); });
    for (const std::string& button : buttons) {
        if (dialog.ended()) return;
        dialog.Press(button);
    }
    dialog.CloseWindow();
    // The OK may have had its reasons for staying; a second press finds them gone or not.
    LeaveByAButton(dialog);
    if (!dialog.ended()) dialog.Exit(kForcedEnd);
}

std::string LeaveByAButton(Dialog& dialog) {
    for (const std::string& button : PushButtonsOf(dialog)) {
        if (dialog.ended()) break;
        if (!SeemsToEnd(button)) continue;
        dialog.Press(button);
        if (dialog.ended()) return button;
    }
    return {};
}

}  // namespace simhost
