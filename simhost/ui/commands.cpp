// Registrations, menus and presses. A press asks the access function of the very registration that
// the button was added with, as a name can be registered more than once.
#include "simhost/ui/commands.h"

#include <fmt/format.h>

#include <algorithm>
#include <exception>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/ui/near_name.h"

namespace simhost {
namespace {

constexpr uiCmdAccessMode kMenuBar = 0;
// A macro may press a command that queues a macro; more than this in a row never ends.
constexpr int kMostMacros = 1000;

struct BuiltInMenu {
    const char* name;
    const WideChar* title;
    bool onBar;
};
// clang-format off
constexpr BuiltInMenu kBuiltInMenus[] = {
    {"File",         WIDE("文件"),     true},
    {"Edit",         WIDE("编辑"),     true},
    {"View",         WIDE("视图"),     true},
    {"Insert",       WIDE("插入"),     true},
    {"Analysis",     WIDE("分析"),     true},
    {"Info",         WIDE("信息"),     true},
    {"Applications", WIDE("应用程序"), true},
    {"Tools",        WIDE("工具"),     true},
    {"Window",       WIDE("窗口"),     true},
    {"Help",         WIDE("帮助"),     true},
    {"ActionMenu",   WIDE("操作"),     false},
};
// clang-format on

std::string FromDoor(const char* name) {
    return Utf8(FromSystemCodePage(name));
}

template <class Items>
auto ByName(Items& items, std::string_view name) {
    return std::find_if(items.begin(), items.end(),
                        [&](const auto& item) { return item.name == name; });
}

}  // namespace

const char* AccessWord(uiCmdAccessState state) {
    switch (state) {
        case ACCESS_AVAILABLE: return "available";
        case ACCESS_UNAVAILABLE: return "greyed";
        default: return "not shown";
    }
}

Commands::Commands(Desk& desk, Session& session, ArrayLedger& arrays)
    : desk_(desk), session_(session), arrays_(arrays) {
    Clear();
}

void Commands::Clear() {
    for (const Command& command : commands_) ids_.Drop(command.id);
    commands_.clear();
    handlers_.clear();
    popup_.reset();
    menus_.clear();
    for (const BuiltInMenu& menu : kBuiltInMenus) {
        menus_.push_back({menu.name, menu.title, menu.onBar, {}});
    }
}

// --- The plug-in's side -----------------------------------------------------------------------

Command& Commands::Add(const char* name, uiCmdCmdActFn action, uiCmdPriority priority,
                       uiCmdAccessFn access) {
    if (*name == '\0') Refuse(PRO_TK_BAD_INPUTS);
    Command& command = commands_.emplace_back();
    command.name = FromDoor(name);
    command.action = action;
    command.priority = priority;
    command.access = access;
    command.id = static_cast<uiCmdCmdId>(ids_.Add(&command));
    return command;
}

Command& Commands::Require(uiCmdCmdId id) const {
    if (!id) Refuse(PRO_TK_BAD_INPUTS);
    Command* command = ids_.Find(id);
    if (!command) Complain(PRO_TK_BAD_INPUTS, "a command id that the host did not give");
    return *command;
}

Command& Commands::RequireName(const char* name) const {
    const Command* command = Newest(FromDoor(name));
    if (!command) Refuse(PRO_TK_E_NOT_FOUND);
    return Require(command->id);
}

void Commands::AddMenu(const char* name, WideText title, const char* neighbour, bool after) {
    if (FindMenu(FromDoor(name))) Refuse(PRO_TK_E_FOUND);
    auto place = menus_.end();
    if (neighbour) {
        place = ByName(menus_, FromDoor(neighbour));
        if (place == menus_.end()) Refuse(PRO_TK_E_NOT_FOUND);
        if (after) ++place;
    }
    menus_.insert(place, Menu{FromDoor(name), std::move(title), true, {}});
}

void Commands::AddButton(const char* menu, MenuButton button, const char* neighbour, bool after) {
    Menu* target = EditMenu(FromDoor(menu));
    if (!target) Refuse(PRO_TK_E_NOT_FOUND);
    button.name = FromDoor(button.name.c_str());
    if (ByName(target->buttons, button.name) != target->buttons.end()) Refuse(PRO_TK_E_FOUND);
    auto place = target->buttons.end();
    if (neighbour) {
        place = ByName(target->buttons, FromDoor(neighbour));
        if (place == target->buttons.end()) Refuse(PRO_TK_E_NOT_FOUND);
        if (after) ++place;
    }
    target->buttons.insert(place, std::move(button));
}

// --- The user's side --------------------------------------------------------------------------

const Menu* Commands::FindMenu(std::string_view name) const {
    const auto found = ByName(menus_, name);
    return found == menus_.end() ? nullptr : &*found;
}

Menu* Commands::EditMenu(std::string_view name) {
    const auto found = ByName(menus_, name);
    return found == menus_.end() ? nullptr : &*found;
}

const MenuButton* Commands::FindButton(std::string_view menu, std::string_view button) const {
    const Menu* owner = FindMenu(menu);
    if (!owner) return nullptr;
    const auto found = ByName(owner->buttons, button);
    return found == owner->buttons.end() ? nullptr : &*found;
}

const Command* Commands::Newest(std::string_view name) const {
    const auto found = std::find_if(commands_.rbegin(), commands_.rend(),
                                    [&](const Command& command) { return command.name == name; });
    return found == commands_.rend() ? nullptr : &*found;
}

std::string Commands::Describe(const void* id) const {
    const Command* command = ids_.Find(id);
    return command ? "command " + command->name : "dangling command";
}

std::vector<std::string> Commands::Names() const {
    std::vector<std::string> names;
    for (const Command& command : commands_) {
        if (std::find(names.begin(), names.end(), command.name) == names.end()) {
            names.push_back(command.name);
        }
    }
    return names;
}

Command* Commands::ByPress(const std::string& name) {
    for (const Menu& menu : menus_) {
        if (!menu.onBar) continue;
        for (const MenuButton& button : menu.buttons) {
            if (button.command->name == name) return button.command;
        }
    }
    const Command* newest = Newest(name);
    return newest ? ids_.Find(newest->id) : nullptr;
}

Pressed Commands::Press(const std::string& name) {
    Command* command = ByPress(name);
    if (!command) {
        return {false, fmt::format("there is no command {}{}", name, DidYouMean(name, Names()))};
    }
    return Run(*command, command->access ? command->access(kMenuBar) : ACCESS_AVAILABLE);
}

Pressed Commands::PressButton(const std::string& menu, const std::string& button) {
    const Menu* owner = FindMenu(menu);
    if (!owner) {
        std::vector<std::string> names;
        for (const Menu& each : menus_) names.push_back(each.name);
        return {false, fmt::format("there is no menu {}{}", menu, DidYouMean(menu, names))};
    }
    const MenuButton* found = FindButton(menu, button);
    if (!found) {
        std::vector<std::string> names;
        for (const MenuButton& each : owner->buttons) names.push_back(each.name);
        return {false, fmt::format("the menu {} has no button {}{}", menu, button,
                                   DidYouMean(button, names))};
    }
    Command& command = *found->command;
    return Run(command, command.access ? command.access(kMenuBar) : ACCESS_AVAILABLE);
}

std::optional<uiCmdAccessState> Commands::Access(const std::string& name) {
    Command* command = ByPress(name);
    if (!command) return std::nullopt;
    return command->access ? command->access(kMenuBar) : ACCESS_AVAILABLE;
}

Pressed Commands::Run(Command& command, uiCmdAccessState state) {
    if (state == ACCESS_AVAILABLE) return RunAction(command);
    const bool noModel = session_.CurrentModel() == nullptr;
    return {false,
            fmt::format("{} is {} {} (its access rule answers {})", command.name, AccessWord(state),
                        noModel ? "while no model is open" : "in the present window",
                        static_cast<int>(state))};
}

Pressed Commands::RunAction(Command& command) {
    ClosePopup();
    Pressed pressed{true, {}, 0};
    const HolderScope holder(arrays_, "command " + command.name);
    ++running_;
    try {
        if (command.action) pressed.result = command.action(command.id, nullptr, nullptr);
    } catch (const std::exception& error) {
        desk_.Complain(
            fmt::format("the action of {} let an exception out: {}", command.name, error.what()));
    }
    --running_;
    if (running_ == 0) desk_.ComplainOfLeftClicks();
    Operation::ComplainOfForeignCalls();
    RunMacros();
    return pressed;
}

void Commands::RunMacros() {
    if (running_ > 0 || runningMacros_) return;
    runningMacros_ = true;
    for (int left = kMostMacros; !macros.empty(); --left) {
        if (left == 0) {
            desk_.Complain("macros queue macros without end; the rest is thrown away");
            macros.clear();
            break;
        }
        const WideText macro = std::move(macros.front());
        macros.erase(macros.begin());
        if (runMacro) {
            runMacro(Utf8(macro));
        } else {
            desk_.Complain("a macro is queued and nobody runs it");
        }
    }
    runningMacros_ = false;
}

}  // namespace simhost
