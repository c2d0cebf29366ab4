// The simulated host as one thing: what it is made of, and how it is started afresh.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "simhost/core/arrays.h"
#include "simhost/core/disk.h"
#include "simhost/core/journal.h"
#include "simhost/core/operation.h"
#include "simhost/model/config_options.h"
#include "simhost/model/session.h"
#include "simhost/ui/commands.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/messages.h"
#include "simhost/user/user.h"

namespace simhost {

class Host {
public:
    Host();

    Disk disk;
    ArrayLedger arrays;
    Journal journal;
    Session session;
    Commands commands;
    Dialogs dialogs;
    Messages messages;

    WideText textFolder;  // what ProToolkitApplTextPathGet reports; no separator at its end
    ConfigOptions configOptions;
    std::deque<WideText> lentTexts;  // texts that operations handed out for good
    std::vector<WideText> macros;    // queued by ProMacroLoad, run when the command has returned
    User* user = nullptr;            // none: every question is a complaint

    std::vector<Shown> shown;
    std::vector<std::string> complaints;
    void Complain(const std::string& what);
    void Tell(const std::string& line);  // a line to the user, of the host's own

    // Shows a box to the user and notes it. Used by whoever plays MessageBoxW.
    int ShowBox(const Box& box);
};

// The host of this process.
Host& TheHost();

// Throws everything away (models, menus, dialogs, journal, faults) and starts afresh.
void RestartHost();

}  // namespace simhost
