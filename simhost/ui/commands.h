// Commands, the menu bar and the popup menus: what the plug-in registers with the host, and what
// the user sees of it and presses.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostapi/host.h"
#include "simhost/core/arrays.h"
#include "simhost/core/handles.h"
#include "simhost/model/session.h"
#include "simhost/user/desk.h"

namespace simhost {

// One registration. A name that is registered again gets a second registration with an id of its
// own; buttons added with the first id keep the first.
struct Command {
    std::string name;
    uiCmdCmdActFn action = nullptr;
    uiCmdPriority priority = 0;
    uiCmdAccessFn access = nullptr;
    uiCmdCmdId id = nullptr;
    std::string icon;
    bool designated = false;            // offered for the customising of the ribbon
    WideText label, help, description;  // as designated
};

// Names are UTF-8 here; at the door they are in the system code page.
struct MenuButton {
    std::string name;
    WideText label, help;
    Command* command = nullptr;
    WideText english, englishHelp;  // the same as the message file has them untranslated
};

struct Menu {
    std::string name;
    WideText title;
    bool onBar = true;  // false: the host's ActionMenu, which the menu bar does not show
    std::vector<MenuButton> buttons;
};

struct PopupEntry {
    std::string name;
    WideText label, help;
    Command* command = nullptr;  // null for the host's own entries
    ProPopupmenuAccessFn access = nullptr;
    ProAppData data = nullptr;
    void (*own)(Session&) = nullptr;            // what an entry of the host's own does
    uiCmdAccessState state = ACCESS_AVAILABLE;  // as its access function answered
};

struct Popup {
    std::string name;
    ProPopupMenuId id = 0;
    std::vector<PopupEntry> entries;
};

// What came of a press: either the action ran, or `reason` says why not.
struct Pressed {
    bool ran = false;
    std::string reason;
    int result = 0;  // what the action returned
    explicit operator bool() const { return ran; }
};

class Commands {
public:
    Commands(Desk& desk, Session& session, ArrayLedger& arrays);
    Commands(const Commands&) = delete;
    Commands& operator=(const Commands&) = delete;

    // --- The plug-in's side; failures are refusals ---
    Command& Add(const char* name, uiCmdCmdActFn action, uiCmdPriority priority,
                 uiCmdAccessFn access);
    Command& Require(uiCmdCmdId id) const;  // a complaint for an id that was never given
    Command& RequireName(const char* name) const;
    void AddMenu(const char* name, WideText title, const char* neighbour, bool after);
    // Before or after the neighbour; without one (null) at the menu's end.
    void AddButton(const char* menu, MenuButton button, const char* neighbour, bool after);
    Popup& RequirePopup(const char* name);  // only a popup that is being shown exists
    void AddPopupEntry(ProPopupMenuId popup, int position, PopupEntry entry);
    void SetNotification(ProNotifyType type, ProFunction handler) { handlers_[type] = handler; }
    // The handler of an event, null if there is none.
    ProFunction Notification(ProNotifyType type) const {
        const auto found = handlers_.find(type);
        return found == handlers_.end() ? nullptr : found->second;
    }

    // Forgets all that a plug-in registered: its functions are gone once it is unloaded.
    void Clear();

    // --- The user's side ---
    const std::deque<Command>& registrations() const { return commands_; }
    const std::vector<Menu>& menus() const { return menus_; }
    const Menu* FindMenu(std::string_view name) const;
    const MenuButton* FindButton(std::string_view menu, std::string_view button) const;
    const Command* Newest(std::string_view name) const;  // what ProCmdCmdIdFind gives
    std::vector<std::string> Names() const;              // each command once, in order
    std::string Describe(const void* id) const;          // for the journal: "command VxBom"

    // Presses the command's button on the menu bar, or the newest registration of a command that
    // has none there. Macros that the action queued have run when the outermost press returns.
    Pressed Press(const std::string& name);
    Pressed PressButton(const std::string& menu, const std::string& button);
    // The same as Press whatever the access rule says, which is not asked: a mapped key reaches
    // commands that no menu offers now.
    Pressed PressByKey(const std::string& name);
    // What the access function of that registration answers now; nothing for an unknown name.
    std::optional<uiCmdAccessState> Access(const std::string& name);

    // --- Popup menus ---
    // A right click: creates the popup, tells the handler of the event, and shows the entries.
    // Nothing for a name that is no popup of the host's. An open popup is closed first.
    const Popup* OpenPopup(const std::string& name);
    const Popup* popup() const { return popup_ ? &*popup_ : nullptr; }
    void ClosePopup() { popup_.reset(); }
    // Presses a shown entry by its label; the popup is closed then.
    Pressed PressPopup(const std::string& label);
    static std::vector<std::string> PopupNames();

    // --- Macros ---
    std::vector<WideText> macros;  // queued by ProMacroLoad, run when the command has returned
    // How a macro (UTF-8) is run. Whoever can do trail steps hands it in; unset, a macro is a
    // complaint.
    std::function<void(const std::string& macro)> runMacro;
    // Runs what is queued, unless a command is running still.
    void RunMacros();

private:
    Pressed NoCommand(const std::string& name) const;
    Pressed Run(Command& command, uiCmdAccessState state);
    Pressed RunAction(Command& command);
    Command* ByPress(const std::string& name);
    Menu* EditMenu(std::string_view name);

    Desk& desk_;
    Session& session_;
    ArrayLedger& arrays_;
    HandleTable<Command> ids_{HandleKind::Command};
    std::deque<Command> commands_;
    std::vector<Menu> menus_;
    std::map<ProNotifyType, ProFunction> handlers_;
    std::optional<Popup> popup_;
    ProPopupMenuId nextPopup_ = 1;
    int running_ = 0;
    bool runningMacros_ = false;
};

// "available", "greyed", "not shown" for people.
const char* AccessWord(uiCmdAccessState state);

}  // namespace simhost
