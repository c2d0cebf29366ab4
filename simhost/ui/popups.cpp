// Popup menus. A popup is made afresh at every right click, the plug-in may add its entries while
// the host tells it of the making, and it is gone when an entry is pressed or the user leaves it.
#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <exception>

#include "simhost/core/operation.h"
#include "simhost/core/text.h"
#include "simhost/ui/commands.h"
#include "simhost/ui/near_name.h"

namespace simhost {
namespace {

Feature* SelectedComponent(const Selection& selection) {
    Model* model = selection.top;
    Feature* component = nullptr;
    for (const int id : selection.path) {
        component = model ? model->FindFeature(id) : nullptr;
        if (!component) return nullptr;
        model = component->model;
    }
    return component;
}

void OpenSelected(Session& session) {
    const std::vector<Selection>& selected = session.selections.buffer();
    if (selected.empty()) return;
    if (Model* model = session.Find(selected.front().item.owner)) session.Open(*model);
}

void ShowSelected(Session& session, bool shown) {
    for (const Selection& selection : session.selections.buffer()) {
        if (Feature* component = SelectedComponent(selection)) component->hidden = !shown;
    }
    if (session.current) ++session.current->repaints;
}

void HideSelected(Session& session) {
    ShowSelected(session, /*shown=*/false);
}
void UnhideSelected(Session& session) {
    ShowSelected(session, /*shown=*/true);
}
void Repaint(Session& session) {
    if (session.current) ++session.current->repaints;
}
void ClearSelected(Session& session) {
    session.selections.ClearBuffer();
}

struct OwnEntry {
    const char* popup;
    const char* name;
    const WideChar* label;
    void (*own)(Session&);
};
// The popups of the host and what they hold before any plug-in comes.
// clang-format off
constexpr OwnEntry kOwnEntries[] = {
    {"Sel Obj Menu",      "Open",    WIDE("打开"),     OpenSelected},
    {"Sel Obj Menu",      "Hide",    WIDE("隐藏"),     HideSelected},
    {"Sel Obj Menu",      "Unhide",  WIDE("取消隐藏"), UnhideSelected},
    {"Graphic Area Menu", "Repaint", WIDE("重画"),     Repaint},
    {"Graphic Area Menu", "Clear",   WIDE("清除选择"), ClearSelected},
    {"Model Tree Menu",   "Open",    WIDE("打开"),     OpenSelected},
    {"Model Tree Menu",   "Hide",    WIDE("隐藏"),     HideSelected},
    {"Model Tree Menu",   "Unhide",  WIDE("取消隐藏"), UnhideSelected},
};
// clang-format on

bool IsShown(const PopupEntry& entry) {
    return entry.state == ACCESS_AVAILABLE || entry.state == ACCESS_UNAVAILABLE;
}

// The selections as the host hands them to access functions: a host array, null for none.
class SelectionArgument {
public:
    SelectionArgument(Session& session, ArrayLedger& arrays) : arrays_(arrays) {
        std::vector<ProSelection> handles = session.selections.LendBuffer();
        if (handles.empty()) return;
        array_ = arrays_.Make(handles, "popup menu");
        session.selections.KeptIn(array_, std::move(handles));
    }
    ~SelectionArgument() {
        if (array_) arrays_.Free(array_);
    }
    SelectionArgument(const SelectionArgument&) = delete;
    SelectionArgument& operator=(const SelectionArgument&) = delete;
    ProSelection* get() const { return array_; }

private:
    ArrayLedger& arrays_;
    ProSelection* array_ = nullptr;
};

}  // namespace

std::vector<std::string> Commands::PopupNames() {
    std::vector<std::string> names;
    for (const OwnEntry& own : kOwnEntries) {
        if (names.empty() || names.back() != own.popup) names.push_back(own.popup);
    }
    return names;
}

const Popup* Commands::OpenPopup(const std::string& name) {
    const std::vector<std::string> names = PopupNames();
    if (std::find(names.begin(), names.end(), name) == names.end()) return nullptr;
    popup_ = Popup{name, nextPopup_++, {}};
    for (const OwnEntry& own : kOwnEntries) {
        if (name != own.popup) continue;
        PopupEntry entry;
        entry.name = own.name;
        entry.label = own.label;
        entry.own = own.own;
        popup_->entries.push_back(std::move(entry));
    }
    if (const auto found = handlers_.find(PRO_POPUPMENU_CREATE_POST);
        found != handlers_.end() && found->second) {
        using Handler = ProError (*)(char*);
        std::vector<char> argument(name.begin(), name.end());
        argument.push_back('\0');
        try {
            // Each event has a parameter list of its own behind the one type of the door.
            reinterpret_cast<Handler>(reinterpret_cast<void (*)()>(found->second))(argument.data());
        } catch (const std::exception& error) {
            desk_.Complain(fmt::format("the handler of the popup {} let an exception out: {}", name,
                                       error.what()));
        }
    }
    const SelectionArgument selections(session_, arrays_);
    const HolderScope holder(arrays_, "popup access");
    for (PopupEntry& entry : popup_->entries) {
        if (entry.access) {
            entry.state = entry.access(entry.command->id, entry.data, selections.get());
        }
    }
    std::erase_if(popup_->entries, [](const PopupEntry& entry) { return !IsShown(entry); });
    return &*popup_;
}

Popup& Commands::RequirePopup(const char* name) {
    if (!popup_ || popup_->name != Utf8(FromSystemCodePage(name))) Refuse(PRO_TK_E_NOT_FOUND);
    return *popup_;
}

void Commands::AddPopupEntry(ProPopupMenuId popup, int position, PopupEntry entry) {
    if (!popup_ || popup_->id != popup) {
        Complain(PRO_TK_BAD_INPUTS, fmt::format("no popup of the id {} is being made", popup));
    }
    std::vector<PopupEntry>& entries = popup_->entries;
    for (const PopupEntry& each : entries) {
        if (each.command && each.name == entry.name) Refuse(PRO_TK_E_FOUND);
    }
    if (position < -1 || position > static_cast<int>(entries.size())) Refuse(PRO_TK_BAD_INPUTS);
    entries.insert(position == -1 ? entries.end() : entries.begin() + position, std::move(entry));
}

Pressed Commands::PressPopup(const std::string& label) {
    if (!popup_) return {false, "no popup is open"};
    const WideText wanted = Wide(label);
    std::vector<std::string> labels;
    for (const PopupEntry& entry : popup_->entries) labels.push_back(Utf8(entry.label));
    const auto found = std::find_if(popup_->entries.begin(), popup_->entries.end(),
                                    [&](const PopupEntry& entry) { return entry.label == wanted; });
    if (found == popup_->entries.end()) {
        return {false, fmt::format("the popup {} has no button {}{}", popup_->name, label,
                                   DidYouMean(label, labels))};
    }
    if (found->state != ACCESS_AVAILABLE) {
        return {false, fmt::format("the button {} is {}", label, AccessWord(found->state))};
    }
    const PopupEntry entry = *found;
    ClosePopup();
    if (entry.command) return RunAction(*entry.command);
    entry.own(session_);
    return {true, {}, 0};
}

}  // namespace simhost
