// Check buttons: their state, and how they look.
#include "simhost/ui/checkbutton.h"

#include <fmt/format.h>

#include "simhost/core/text.h"

namespace simhost {

CheckButton::CheckButton(Dialog& dialog, const ResourceComponent& declared,
                         const DialogResource& resource)
    : Component(dialog, declared, resource) {
    const auto* value = resource.Find(name(), "Set");
    set = value && !value->empty() && Lower((*value)[0]) == "true";
}

void CheckButton::Resemble(const Component& other) {
    Component::Resemble(other);
    if (const auto* button = dynamic_cast<const CheckButton*>(&other)) set = button->set;
}

std::vector<std::string> CheckButton::Picture() const {
    return {(set ? "[x] " : "[ ] ") + Utf8(label)};
}

std::string CheckButton::Act(Verb verb, const std::vector<std::string>& arguments) {
    if (verb != Verb::Activate) return Component::Act(verb, arguments);
    if (arguments.empty()) {
        set = !set;
    } else if (arguments[0] == "1" || arguments[0] == "0") {
        set = arguments[0] == "1";
    } else {
        return fmt::format("{} is 1 or 0, not {}", name(), arguments[0]);
    }
    return {};
}

}  // namespace simhost
