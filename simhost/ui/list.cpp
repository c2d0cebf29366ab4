// What a user sees of a list and does to it.
#include "simhost/ui/list.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/ui/dialogs.h"
#include "simhost/ui/near_name.h"

namespace simhost {

void List::SetItems(std::vector<std::string> items) {
    items_ = std::move(items);
    chosen_.reset();
}

std::string List::chosen() const {
    return chosen_ ? items_[*chosen_] : std::string();
}

std::vector<std::string> List::Picture() const {
    constexpr std::size_t kMost = 20;
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < items_.size() && i < kMost; ++i) {
        lines.push_back((chosen_ == i ? "* " : "  ") + items_[i]);
    }
    if (items_.size() > kMost) lines.push_back(fmt::format("  … {} in all", items_.size()));
    if (lines.empty()) lines.emplace_back("  -");
    return lines;
}

std::string List::State() const {
    return chosen();
}

std::string List::Act(Verb verb, const std::vector<std::string>& arguments) {
    if (verb != Verb::Activate && verb != Verb::Select) return Component::Act(verb, arguments);
    if (arguments.empty()) {
        return fmt::format("a name of {} belongs after {}", name(), VerbName(verb));
    }
    const auto found = std::find(items_.begin(), items_.end(), arguments.back());
    if (found == items_.end()) {
        return fmt::format("{} has no {}{}", name(), arguments.back(),
                           DidYouMean(arguments.back(), items_));
    }
    chosen_ = std::size_t(found - items_.begin());
    if (verb == Verb::Activate) dialog().RunAction(activateAction, name());
    return {};
}

}  // namespace simhost
