// The desk at which the host's user sits: what has been shown there, what was complained about, and
// who answers. Whoever shows or asks something is given the desk.
#pragma once

#include <string>
#include <vector>

#include "simhost/core/disk.h"
#include "simhost/user/user.h"

namespace simhost {

class Desk {
public:
    User* user = nullptr;  // none: every question is a complaint

    std::vector<Shown> shown;  // in order
    // Misuse of the host or of Windows, and questions without an answer; each fails a run.
    std::vector<std::string> complaints;
    void Complain(const std::string& what) { complaints.push_back(what); }

    // What the file dialog asks that is open; null: none is.
    const FileQuestion* fileQuestion = nullptr;
    // A click of the middle button is on its way. The next dialog of the host's own takes it and is
    // confirmed by it; one that is left when a command ends would confirm a stranger's dialog.
    void SendClick();
    bool TakeClick();             // false: none is on its way
    void ComplainOfLeftClicks();  // and forgets them

    // Shows a line of the host's own.
    void Tell(const WideText& line);
    // Shows a message box and gives the button that the user pressed.
    int ShowBox(const Box& box);

private:
    int clicks_ = 0;
};

// What Windows and its dialogs are given of the host that runs on it.
struct HostSide {
    Desk& desk;
    const Disk& disk;                  // where Windows paths lead
    const WideText& workingDirectory;  // where file dialogs open
};

}  // namespace simhost
