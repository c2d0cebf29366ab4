// Radio groups: the selection, and how they look.
#include "simhost/ui/radiogroup.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/near_name.h"

namespace simhost {

RadioGroup::RadioGroup(Dialog& dialog, const ResourceComponent& declared,
                       const DialogResource& resource)
    : Component(dialog, declared, resource) {
    if (const auto* names = resource.Find(name(), "Names")) names_ = *names;
    if (const auto* labels = resource.Find(name(), "Labels")) labels_ = *labels;
    for (std::size_t i = labels_.size(); i < names_.size(); ++i) labels_.push_back(names_[i]);
    const auto* orientation = resource.Find(name(), "Orientation");
    horizontal_ = orientation && !orientation->empty() && (*orientation)[0] == "Horizontal";
    const auto* selected = resource.Find(name(), "SelectedNames");
    if (!selected || selected->empty()) return;
    if (!Select((*selected)[0])) {
        throw ResourceError(fmt::format("{}: {} has no name {} to be selected", dialog.name(),
                                        name(), (*selected)[0]));
    }
}

bool RadioGroup::Select(const std::string& wanted) {
    const auto found = std::find(names_.begin(), names_.end(), wanted);
    if (found == names_.end()) return false;
    selected_ = std::size_t(found - names_.begin());
    return true;
}

char** RadioGroup::SelectedForCaller() {
    if (!selected_) return nullptr;
    Given& given = given_.emplace_back();
    given.text = ToSystemCodePage(Wide(names_[*selected_]));
    given.array[0] = given.text.data();
    return given.array;
}

std::vector<std::string> RadioGroup::Picture() const {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < names_.size(); ++i) {
        const std::string one = (selected_ == i ? "(*) " : "( ) ") + labels_[i];
        if (horizontal_ && !lines.empty()) {
            lines[0] += "  " + one;
        } else {
            lines.push_back(one);
        }
    }
    return lines;
}

std::string RadioGroup::State() const {
    std::string all;
    for (const std::string& one : names_) all += (all.empty() ? "" : ", ") + one;
    return fmt::format("{} (of {})", selected_ ? names_[*selected_] : "nothing selected", all);
}

// ~ Select `Relations` `TypeRadio` 1 `Part`; the 1 may be left out.
std::string RadioGroup::Act(Verb verb, const std::vector<std::string>& arguments) {
    if (verb != Verb::Select) return Component::Act(verb, arguments);
    if (arguments.empty()) return fmt::format("a name of {} belongs after Select", name());
    const auto before = selected_;
    if (Select(arguments.back())) {
        if (selected_ != before) dialog().RunAction(selectAction, name());
        return {};
    }
    return fmt::format("{} has no {}{}", name(), arguments.back(),
                       DidYouMean(arguments.back(), names_));
}

}  // namespace simhost
