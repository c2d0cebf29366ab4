// Boxes that are shown at the user's desk.
#include "simhost/user/desk.h"

namespace simhost {

void Desk::SendClick() {
    ++clicks_;
    Tell(WIDE("(a click of the middle button waits for the next dialog)"));
}

bool Desk::TakeClick() {
    if (clicks_ == 0) return false;
    --clicks_;
    return true;
}

void Desk::ComplainOfLeftClicks() {
    if (clicks_ > 0) Complain("a click of the middle button was sent, and no dialog has taken it");
    clicks_ = 0;
}

void Desk::Tell(const WideText& line) {
    shown.push_back({Shown::Kind::Message, line, {}});
}

int Desk::ShowBox(const Box& box) {
    shown.push_back({Shown::Kind::Box, box.text, box});
    if (user) return user->AnswerBox(box);
    Complain("a box is open and nobody answers it");
    return 1;
}

}  // namespace simhost
