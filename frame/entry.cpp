// Entry and exit of the plug-in.
#include "frame/entry.h"

#include "frame/first_run_notice.h"
#include "frame/last_dir.h"
#include "frame/menus.h"
#include "frame/services/guard.h"
#include "frame/services/host_version.h"
#include "frame/services/settings.h"
#include "frame/services/text.h"

namespace {

// Only an explicit "0" switches the popup additions on.
bool PopupsAreWanted() {
    return ConfigValue(WIDE("RmbDisable"), Place::TextFolder) == WIDE("0");
}

int Initialize(const char* version) {
    HostVersionText = Widen(version);
    const ProError status = FirstRunNotice();
    if (status != PRO_TK_NO_ERROR) return status;
    RegisterMenu();
    RestoreLastDirLater();
    if (PopupsAreWanted()) HookPopups();
    return PRO_TK_NO_ERROR;
}

}  // namespace

int user_initialize(int, char*[], char* version, char*, WideChar[80]) {
    return Guard<Initialize>::Call(version);
}

void user_terminate() {
    // Guarded one by one: the timer must go also where the directory could not be saved.
    Guard<SaveLastDir>::Call();
    Guard<RestoreLastDirNoMore>::Call();
}
