// A user without a mind, for runs in which operations of the host fail in turn: it answers whatever
// comes so that every command ends.
#pragma once

#include "simhost/host.h"

namespace simhost {

// Answers every box with OK, types a new name at each prompt and leaves every fourth one, picks the
// first item on the screen that may be picked but leaves every ninth pick, clicks into the middle
// of the sheet, chooses the first file that a dialog lists, and presses each push-button of a
// dialog once: those that seem to end it last. A dialog that is still open then is closed, and left
// by a button if that does not end it.
class RobotUser : public User {
public:
    int AnswerBox(const Box& box) override;
    void UseDialog(Dialog& dialog) override;
    std::optional<WideText> AnswerPrompt(const WideText& prompt,
                                         const WideText& byDefault) override;
    void Pick(Picking& picking) override;
    std::optional<Click> AnswerClick() override;
    std::optional<WideText> AnswerFile(const FileQuestion& question) override;

private:
    int prompts_ = 0;
    int picks_ = 0;
};

// Presses the buttons that seem to end a dialog (OK, Close, Cancel) until one does; its name, or
// empty if none did or none was needed.
std::string LeaveByAButton(Dialog& dialog);

}  // namespace simhost
