// The host's own command that puts another model into the place of a component, and its dialogs.
#pragma once

#include <string>

namespace simhost {

class Dialogs;
class Disk;
class Session;

// The version of the simulated host, as user_initialize is told: "Creo Parametric 7.0" from the
// start. Which commands the host has depends on it.
std::string& HostVersion();
void ResetHostVersion();

// What the replace command is called in this version of the host. Up to Creo 2.0 it is pressed by
// its name alone; later it lies in the popup menu of the graphics window.
bool IsReplaceCommand(const std::string& name);
bool IsInPopup(const std::string& replaceCommand);

// Opens the dialog for the one component that is selected, and waits for its end. Empty, or the
// reason why it cannot be opened.
std::string ReplaceSelected(Dialogs& dialogs, Session& session, const Disk& disk);

}  // namespace simhost
