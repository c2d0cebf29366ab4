// Radio groups. Attributes of the resource:
//
//     (Scope.Names         "Part" "Asm")
//     (Scope.Labels        "零件" "组件")      ! the names where there are none
//     (Scope.SelectedNames "Part")             ! none is selected where it is missing
//     (Scope.Orientation   Horizontal)         ! side by side; else below each other
#pragma once

#include <deque>
#include <optional>

#include "simhost/ui/component.h"

namespace simhost {

class RadioGroup : public Component {
public:
    static constexpr const char* kKind = "RadioGroup";
    RadioGroup(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource);

    const std::vector<std::string>& names() const { return names_; }
    const std::vector<std::string>& labels() const { return labels_; }
    bool horizontal() const { return horizontal_; }
    DialogAction selectAction;  // for what the user selects, not the plug-in
    // The index of the selected name, if any.
    std::optional<std::size_t> selected() const { return selected_; }
    bool Select(const std::string& wanted);  // false: the group has no such name
    // The selected names as an array that lives as long as the dialog; null for none.
    char** SelectedForCaller();

    std::vector<std::string> Picture() const override;
    std::string State() const override;

protected:
    std::string Act(Verb verb, const std::vector<std::string>& arguments) override;

private:
    std::vector<std::string> names_, labels_;
    bool horizontal_ = false;
    std::optional<std::size_t> selected_;
    struct Given {
        std::string text;
        char* array[1];
    };
    std::deque<Given> given_;
};

}  // namespace simhost
