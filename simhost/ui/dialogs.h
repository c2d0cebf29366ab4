// Dialogs: those that the plug-in builds from resource files, and the host's own that macros use.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "simhost/model/session.h"
#include "simhost/ui/component.h"
#include "simhost/ui/host_dialogs.h"
#include "simhost/ui/resource.h"
#include "simhost/user/desk.h"

namespace simhost {

class Dialog {
public:
    // An exception that an action lets out is a complaint at the desk; without a desk it goes on.
    Dialog(std::string name, DialogResource resource, Desk* desk = nullptr);

    const std::string& name() const { return name_; }
    WideText title() const;
    const DialogResource& resource() const { return resource_; }
    const std::vector<std::unique_ptr<Component>>& components() const { return components_; }
    // Those that the resource declares, and those in the cells of its tables.
    Component* Find(std::string_view component) const;
    std::vector<std::string> ComponentNames() const;
    // For tables: a component in a cell comes, with a name that is new, and goes.
    void AddInCell(Component& component) { inCells_[component.name()] = &component; }
    void ForgetInCell(const Component& component) { inCells_.erase(component.name()); }

    // --- The plug-in's side ---
    Component& Require(const char* component) const;  // refused if the resource declares none
    DialogAction closeAction;
    bool aboveActiveWindow = false;
    void Exit(int status);  // takes effect when the running action has returned

    // --- The user's side ---
    bool active() const { return active_; }
    bool ended() const { return exiting_ && runningActions_ == 0; }
    int status() const { return status_; }
    // Does this to a component; empty, or the reason why it cannot be done.
    std::string Use(Verb verb, const std::string& component,
                    const std::vector<std::string>& arguments = {});
    std::string Press(const std::string& component) { return Use(Verb::Activate, component); }
    // Closes the window: runs the close action. A dialog that has none stays open.
    void CloseWindow();

    // For components: calls into the plug-in.
    void RunAction(const DialogAction& action, const std::string& component);

private:
    friend class Dialogs;
    std::string name_;
    DialogResource resource_;
    std::unordered_map<std::string, Component*> inCells_;
    std::vector<std::unique_ptr<Component>> components_;
    Desk* desk_;
    bool active_ = false;
    bool exiting_ = false;
    int status_ = 0;
    int runningActions_ = 0;
};

class Dialogs {
public:
    // Resources lie in \text\resource below `textFolder`, as it is when they are asked for.
    Dialogs(Desk& desk, const Disk& disk, const WideText& textFolder, Session& session)
        : mainWindow(desk, session), desk_(desk), disk_(disk), textFolder_(textFolder) {}

    // --- The plug-in's side; failures are refusals ---
    void Create(const char* name, const char* resource);
    Dialog& Require(const char* name) const;
    int Activate(Dialog& dialog);  // the status of its end
    void Destroy(Dialog& dialog);

    // --- The user's side ---
    Dialog* Find(std::string_view name) const;
    Dialog* Active() const { return active_.empty() ? nullptr : active_.back(); }
    const std::vector<Dialog*>& OpenOnes() const { return active_; }  // the active one is the last
    std::vector<std::string> Existing() const;  // what was created and not destroyed, in order
    void Clear();                               // forgets all, as when the plug-in is gone

    // A trail step on a dialog of the plug-in or of the host: empty, or why it cannot be done.
    std::string Use(Verb verb, const std::string& dialog, const std::string& component,
                    const std::vector<std::string>& arguments = {});

    MainWindow mainWindow;

private:
    Desk& desk_;
    const Disk& disk_;
    const WideText& textFolder_;
    std::vector<std::unique_ptr<Dialog>> dialogs_;
    std::vector<Dialog*> active_;  // the last one has the user's attention
};

// The dialog on a terminal: its layout in a frame with its title, buttons as [ OK ].
std::vector<std::string> DialogText(const Dialog& dialog);

}  // namespace simhost
