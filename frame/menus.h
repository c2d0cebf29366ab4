// The plug-in's menu, and its buttons on the host's popup menus.
#pragma once

// Makes the menu `Menu` after the host's Help menu and puts every row of the command table on it.
void RegisterMenu();

// Adds the popup commands from the second popup of the host's run on.
void HookPopups();
