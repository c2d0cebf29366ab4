// Lists of the host's own dialogs, such as that of files: entries by their names, of which one is
// chosen, and done by a double click.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simhost/ui/component.h"

namespace simhost {

class List : public Component {
public:
    static constexpr const char* kKind = "List";
    using Component::Component;

    void SetItems(std::vector<std::string> items);
    const std::vector<std::string>& items() const { return items_; }
    std::string chosen() const;   // empty: nothing
    DialogAction activateAction;  // the double click

    std::vector<std::string> Picture() const override;
    std::string State() const override;

protected:
    // ~ Select and ~ Activate with a name, which a trail puts after how many there are.
    std::string Act(Verb verb, const std::vector<std::string>& arguments) override;

private:
    std::vector<std::string> items_;
    std::optional<std::size_t> chosen_;
};

}  // namespace simhost
