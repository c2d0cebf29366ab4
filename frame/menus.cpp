// The plug-in's menu, filled from the command table.
#include "frame/menus.h"

#include "frame/command_table.h"
#include "frame/services/text.h"

namespace {

// Commands that act at once on what is shown.
constexpr auto kImmediate = uiCmdPriority(2);

void RegisterCommand(const CommandRow& row, const WideText& textFile) {
    uiCmdCmdId command = nullptr;
    ProCmdActionAdd(HostText(row.name), row.action, kImmediate, row.access, PRO_B_FALSE,
                    PRO_B_FALSE, &command);
    ProMenubarmenuPushbuttonAdd(HostText("Menu"), HostText(row.name), HostText(row.name),
                                HostText(row.helpKey), nullptr, PRO_B_TRUE, command,
                                HostText(textFile));
    if (row.icon) ProCmdIconSet(command, HostText(row.icon));
    if (row.designated) {
        ProCmdDesignate(command, HostText(row.name), HostText(row.helpKey), HostText(row.name),
                        HostText(textFile));
    }
}

}  // namespace

void RegisterMenu() {
    const WideText textFile = Widen(kMenuTextFile);
    ProMenubarMenuAdd(HostText("Menu"), HostText("Menu"), HostText("Help"), PRO_B_TRUE,
                      HostText(textFile));
    for (const CommandRow& row : kCommandTable) RegisterCommand(row, textFile);
}
