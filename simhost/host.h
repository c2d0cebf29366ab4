// The simulated host as one thing: what it is made of, and how it is started anew.
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
#include "simhost/model/output_records.h"
#include "simhost/model/session.h"
#include "simhost/ui/commands.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/messages.h"
#include "simhost/user/desk.h"

namespace simhost {

class Host {
public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    Disk disk;
    WideText textFolder;  // what ProToolkitApplTextPathGet reports; no separator at its end
    ArrayLedger arrays;
    Journal journal;
    Desk desk;
    Session session{disk};
    Commands commands{desk, session, arrays};
    Dialogs dialogs{desk, disk, textFolder, session};
    Messages messages{desk, disk, textFolder};
    ConfigOptions configOptions;
    OutputRecords outputRecords;
    bool writesOutput = true;     // false: files for other programs go nowhere, for measurements
    bool toldOfNoKernel = false;  // that files hold no shape here
    ProArray optionValues = nullptr;  // of the last question for an option, until the next call
    ProArray picked = nullptr;        // of the last pick; the plug-in is lent it until the next
    std::deque<WideText> lentTexts;   // texts that operations handed out for good

    // Short ways to what is asked for most.
    User*& user = desk.user;
    std::vector<Shown>& shown = desk.shown;
    std::vector<std::string>& complaints = desk.complaints;
    std::vector<WideText>& macros = commands.macros;
    void Complain(const std::string& what) { desk.Complain(what); }
    int ShowBox(const Box& box) { return desk.ShowBox(box); }
    void Tell(const std::string& line);  // a line to the user, of the host's own

private:
    HostSide forWindows_{desk, disk, session.workingDirectory};
};

// The host of this process.
Host& TheHost();

// Throws everything away (models, menus, dialogs, journal, faults) and starts anew.
void RestartHost();

}  // namespace simhost
