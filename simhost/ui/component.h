// The components of a dialog. Every kind that has operations of its own is a class of its own; the
// other kinds (labels, separators, layouts) are only there to be seen.
#pragma once

#include <fmt/format.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostapi/host.h"
#include "simhost/core/operation.h"
#include "simhost/ui/resource.h"

namespace simhost {

class Dialog;

// What a user does to a component, by the words of trail files.
enum class Verb { Activate, Select, Input, FocusIn, FocusOut, Open, Close, Update };
const char* VerbName(Verb verb);
std::optional<Verb> ParseVerb(std::string_view word);
std::vector<std::string> VerbNames();

// A callback into the plug-in.
struct DialogAction {
    ProUIAction function = nullptr;
    ProAppData data = nullptr;
};

class Component {
public:
    Component(Dialog& dialog, const ResourceComponent& declared, const DialogResource& resource);
    virtual ~Component() = default;
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;

    const std::string& kind() const { return kind_; }
    const std::string& name() const { return name_; }
    Dialog& dialog() const { return dialog_; }

    WideText label;
    bool enabled = true;
    bool visible = true;

    // The user does this; empty, or the reason why it cannot be done.
    std::string Use(Verb verb, const std::vector<std::string>& arguments);

    // How it looks on a terminal: lines of text.
    virtual std::vector<std::string> Picture() const;
    // What it holds, and what else could be chosen, in one line; empty where it holds nothing.
    virtual std::string State() const { return {}; }

protected:
    // For the kinds: everything but the focus. The component is shown and not greyed.
    virtual std::string Act(Verb verb, const std::vector<std::string>& arguments);
    // The answer to a step that this kind does not know.
    std::string NothingTo(Verb verb) const;

private:
    Dialog& dialog_;
    std::string kind_, name_;
};

class PushButton : public Component {
public:
    static constexpr const char* kKind = "PushButton";
    using Component::Component;
    DialogAction activateAction;
    std::vector<std::string> Picture() const override;

protected:
    std::string Act(Verb verb, const std::vector<std::string>& arguments) override;
};

// The component that a resource declares; a kind unknown here is only there to be seen.
std::unique_ptr<Component> MakeComponent(Dialog& dialog, const ResourceComponent& declared,
                                         const DialogResource& resource);

// The component as one of its kind. An operation for another kind is a misuse: a complaint.
template <class Kind>
Kind& RequireKind(Component& component, const std::string& dialog) {
    auto* kind = dynamic_cast<Kind*>(&component);
    if (!kind) {
        Complain(PRO_TK_BAD_INPUTS,
                 fmt::format("{} of dialog {} is a {}, not a {}", component.name(), dialog,
                             component.kind(), Kind::kKind));
    }
    return *kind;
}

}  // namespace simhost
