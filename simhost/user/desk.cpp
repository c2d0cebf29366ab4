// Boxes that are shown at the user's desk.
#include "simhost/user/desk.h"

namespace simhost {

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
