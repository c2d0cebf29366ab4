// The components of a dialog. Every kind that has operations of its own is a class of its own; the
// other kinds (labels, separators, layouts) are only there to be seen.
#pragma once

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
class Table;

// What a user does to a component, by the words of trail files.
enum class Verb { Activate, Select, Input, FocusIn, FocusOut, Open, Close, Update, Arm };
const char* VerbName(Verb verb);
std::optional<Verb> ParseVerb(std::string_view word);
std::vector<std::string> VerbNames();

// A callback into the plug-in.
struct DialogAction {
    ProUIAction function = nullptr;
    ProAppData data = nullptr;
};

// The cell of a table that a component is in.
struct CellPlace {
    Table* table = nullptr;
    std::string row, column;
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

    // The cell that it is in; none: it is in the dialog itself.
    const std::optional<CellPlace>& place() const { return place_; }

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
    // The focus comes, to the cell first if it is in one.
    virtual void ReceiveFocus() {}
    // Takes over what another of its kind holds.
    virtual void Resemble(const Component& other);
    // The answer to a step that this kind does not know.
    std::string NothingTo(Verb verb) const;

private:
    friend std::unique_ptr<Component> CopyForCell(const Component&, std::string, CellPlace);
    Dialog& dialog_;
    std::string kind_, name_;
    std::string declared_;  // the name whose attributes the resource has
    std::optional<CellPlace> place_;
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

// A copy for a cell, with all that the component shows and holds but without its actions; null for
// a kind that no cell can hold.
std::unique_ptr<Component> CopyForCell(const Component& from, std::string name, CellPlace place);

// Complains that a component is of another kind than an operation is for.
[[noreturn]] void ComplainOfKind(const Component& component, const std::string& dialog,
                                 const char* wanted);

// The component as one of its kind. An operation for another kind is a misuse: a complaint.
template <class Kind>
Kind& RequireKind(Component& component, const std::string& dialog) {
    auto* kind = dynamic_cast<Kind*>(&component);
    if (!kind) ComplainOfKind(component, dialog, Kind::kKind);
    return *kind;
}

}  // namespace simhost
