// Check buttons. Attribute of the resource: (Order.Set True) – set at the beginning.
#pragma once

#include "simhost/ui/component.h"

namespace simhost {

class CheckButton : public Component {
public:
    static constexpr const char* kKind = "CheckButton";
    CheckButton(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource);

    bool set = false;
    std::vector<std::string> Picture() const override;
    std::string State() const override { return set ? "set" : "not set"; }

protected:
    // ~ Activate `VxParams` `VxOutlineOrder` 1 (or 0); without a number the state changes.
    std::string Act(Verb verb, const std::vector<std::string>& arguments) override;
    void Resemble(const Component& other) override;
};

}  // namespace simhost
