// The commands as data: one row is one command, and its menu button, label, help, icon, access rule
// and designation all come from that row.
#pragma once

#include <array>

#include "hostapi/host.h"

struct CommandRow {
    const char* name;     // the command; also its button, its label key and its designation
    const char* helpKey;  // key of its help text in vxMenu.txt
    const char* icon;     // picture file; null: it has none
    uiCmdCmdActFn action;
    uiCmdAccessFn access;
    bool designated;  // offered for the customising of the ribbon
};

// All commands of the menu `Menu`, in its order.
extern const std::array<CommandRow, 56> kCommandTable;

// A command of the menu that is also on the host's popup menus.
struct PopupRow {
    const CommandRow* command;         // its row above: name, help and action
    const WideChar* actionMenuButton;  // its button name in the host's menu ActionMenu
    const WideChar* label;             // its label in the popup
    uiCmdAccessFn access;              // as a command of ActionMenu
    ProPopupmenuAccessFn popupAccess;
};
extern const std::array<PopupRow, 5> kPopupTable;

// The one command that exists on popups only, and the rule of its popup button.
extern const CommandRow kOpenDrawingRow;
extern const ProPopupmenuAccessFn kOpenDrawingPopupAccess;

// The message file of all labels and help texts.
inline constexpr const char* kMenuTextFile = "vxMenu.txt";
