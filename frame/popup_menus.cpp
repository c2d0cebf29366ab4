// The plug-in's buttons on the host's popup menus. The first popup of a run only tells us that
// popups exist: it registers the commands and stays without buttons. Every later "Sel Obj Menu"
// gets six.
#include <cstring>

#include "frame/command_table.h"
#include "frame/menus.h"
#include "frame/services/guard.h"
#include "frame/services/text.h"

namespace {

constexpr const char* kSelectionPopup = "Sel Obj Menu";
constexpr const char* kActionMenu = "ActionMenu";
constexpr auto kImmediate = uiCmdPriority(2);
constexpr auto kOnSelection = uiCmdPriority(5);

void AddToActionMenu(const char* button, const char* labelKey, const char* helpKey,
                     uiCmdCmdId command, const WideText& textFile) {
    ProMenubarmenuPushbuttonAdd(HostText(kActionMenu), HostText(button), HostText(labelKey),
                                HostText(helpKey), nullptr, PRO_B_TRUE, command,
                                HostText(textFile));
}

void AddPopupButton(ProPopupMenuId popup, const PopupRow& row) {
    uiCmdCmdId command = nullptr;
    ProCmdCmdIdFind(HostText(row.command->name), &command);
    // The help is the key itself, not its text.
    const WideText help = Widen(row.command->helpKey);
    ProPopupmenuButtonAdd(popup, -1, HostText(row.command->name), HostText(row.label),
                          HostText(help), command, row.popupAccess, nullptr);
}

// Opening a drawing is registered here and nowhere else, anew for each popup.
void AddOpenDrawing(ProPopupMenuId popup) {
    const CommandRow& row = kOpenDrawingRow;
    const WideText textFile = Widen(kMenuTextFile);
    uiCmdCmdId command = nullptr;
    ProCmdActionAdd(HostText(row.name), row.action, kImmediate, row.access, PRO_B_FALSE,
                    PRO_B_FALSE, &command);
    ProLine label = {};
    ProLine help = {};
    ProMessageToBuffer(label, HostText(textFile), HostText(row.name));
    ProMessageToBuffer(help, HostText(textFile), HostText(row.helpKey));
    ProPopupmenuButtonAdd(popup, -1, HostText(row.name), label, help, command,
                          kOpenDrawingPopupAccess, nullptr);
    AddToActionMenu(row.name, row.name, row.helpKey, command, textFile);
}

ProError PopupHookSelObj(char* popupName) {
    ProPopupMenuId popup = 0;
    ProPopupmenuIdGet(popupName, &popup);
    if (!popupName || std::strcmp(popupName, kSelectionPopup) != 0) return PRO_TK_NO_ERROR;
    for (const PopupRow& row : kPopupTable) AddPopupButton(popup, row);
    AddOpenDrawing(popup);
    return PRO_TK_NO_ERROR;
}

void RegisterPopupCommand(const PopupRow& row, const WideText& textFile) {
    uiCmdCmdId command = nullptr;
    ProCmdActionAdd(HostText(row.command->name), row.command->action, kOnSelection, row.access,
                    PRO_B_FALSE, PRO_B_FALSE, &command);
    const std::string button = Narrow(row.actionMenuButton);
    AddToActionMenu(button.c_str(), row.command->name, row.command->helpKey, command, textFile);
}

ProError PopupHookFirst(char*) {
    const WideText textFile = Widen(kMenuTextFile);
    for (const PopupRow& row : kPopupTable) RegisterPopupCommand(row, textFile);
    ProNotificationSet(PRO_POPUPMENU_CREATE_POST, AsProFunction(Guarded<PopupHookSelObj>));
    return PRO_TK_NO_ERROR;
}

}  // namespace

void HookPopups() {
    ProNotificationSet(PRO_POPUPMENU_CREATE_POST, AsProFunction(Guarded<PopupHookFirst>));
}
