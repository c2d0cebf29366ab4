// What all components have in common, and the table of the kinds.
#include "simhost/ui/component.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/ui/checkbutton.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/drawingarea.h"
#include "simhost/ui/label.h"
#include "simhost/ui/list.h"
#include "simhost/ui/radiogroup.h"
#include "simhost/ui/table.h"
#include "simhost/ui/text_frame.h"
#include "simhost/ui/textfield.h"

namespace simhost {
namespace {

constexpr const char* kVerbNames[] = {"Activate", "Select", "Input",  "FocusIn", "FocusOut",
                                      "Open",     "Close",  "Update", "Arm"};

bool Says(const std::vector<std::string>* values, std::string_view word) {
    return values && values->size() == 1 && Lower((*values)[0]) == word;
}

template <class Kind>
std::unique_ptr<Component> Make(Dialog& dialog, const ResourceComponent& declared,
                                const DialogResource& resource) {
    return std::make_unique<Kind>(dialog, declared, resource);
}

struct KindRow {
    const char* kind;
    std::unique_ptr<Component> (*make)(Dialog&, const ResourceComponent&, const DialogResource&);
};
// A kind that gets operations of its own joins here.
constexpr KindRow kKinds[] = {
    {CheckButton::kKind, Make<CheckButton>}, {Label::kKind, Make<Label>},
    {InputPanel::kKind, Make<InputPanel>},   {OptionMenu::kKind, Make<OptionMenu>},
    {PushButton::kKind, Make<PushButton>},   {RadioGroup::kKind, Make<RadioGroup>},
    {TextArea::kKind, Make<TextArea>},       {Table::kKind, Make<Table>},
    {DrawingArea::kKind, Make<DrawingArea>}, {List::kKind, Make<List>},
};

}  // namespace

const char* VerbName(Verb verb) {
    return kVerbNames[static_cast<std::size_t>(verb)];
}

std::optional<Verb> ParseVerb(std::string_view word) {
    for (std::size_t i = 0; i < std::size(kVerbNames); ++i) {
        if (word == kVerbNames[i]) return static_cast<Verb>(i);
    }
    return std::nullopt;
}

std::vector<std::string> VerbNames() {
    return {std::begin(kVerbNames), std::end(kVerbNames)};
}

Component::Component(Dialog& dialog, const ResourceComponent& declared,
                     const DialogResource& resource)
    : dialog_(dialog), kind_(declared.kind), name_(declared.name), declared_(declared.name) {
    const std::vector<std::string>* text = resource.Find(name_, "Label");
    if (text && !text->empty()) label = Wide((*text)[0]);
    enabled = !Says(resource.Find(name_, "Sensitive"), "false");
    visible = !Says(resource.Find(name_, "Visible"), "false");
}

std::string Component::Use(Verb verb, const std::vector<std::string>& arguments) {
    if (!visible) return fmt::format("{} is not shown in dialog {}", name_, dialog_.name());
    if (!enabled) return fmt::format("{} is greyed in dialog {}", name_, dialog_.name());
    if (verb == Verb::FocusIn) {
        if (place_) place_->table->FocusCell(place_->row, place_->column);
        ReceiveFocus();
        return {};
    }
    if (verb == Verb::FocusOut) return {};
    return Act(verb, arguments);
}

void Component::Resemble(const Component& other) {
    label = other.label;
    enabled = other.enabled;
    visible = other.visible;
}

std::string Component::Act(Verb verb, const std::vector<std::string>&) {
    return NothingTo(verb);
}

std::string Component::NothingTo(Verb verb) const {
    return fmt::format("{} of dialog {} is a {}: nothing to {} there", name_, dialog_.name(), kind_,
                       VerbName(verb));
}

std::vector<std::string> Component::Picture() const {
    if (kind_ == "Separator") return {"----"};
    // Labels without a text only keep others apart; any other kind is there to be used.
    if (label.empty() && kind_ != "Label") return {"<" + name_ + ">"};
    return TextLines(Utf8(label));
}

std::vector<std::string> PushButton::Picture() const {
    const std::string text = label.empty() ? name() : Utf8(label);
    if (!enabled) return {"( " + text + " )"};
    const auto* byDefault = dialog().resource().Find("", "DefaultButton");
    const bool isDefault = byDefault && byDefault->at(0) == name();  // Enter presses it
    return {isDefault ? "[> " + text + " <]" : "[ " + text + " ]"};
}

std::string PushButton::Act(Verb verb, const std::vector<std::string>& arguments) {
    if (verb != Verb::Activate) return Component::Act(verb, arguments);
    dialog().RunAction(activateAction, name());
    return {};
}

std::unique_ptr<Component> MakeComponent(Dialog& dialog, const ResourceComponent& declared,
                                         const DialogResource& resource) {
    for (const KindRow& row : kKinds) {
        if (declared.kind == row.kind) return row.make(dialog, declared, resource);
    }
    return std::make_unique<Component>(dialog, declared, resource);
}

std::unique_ptr<Component> CopyForCell(const Component& from, std::string name, CellPlace place) {
    // What takes one line.
    constexpr std::string_view kKindsInCells[] = {
        CheckButton::kKind, InputPanel::kKind, Label::kKind, OptionMenu::kKind, PushButton::kKind};
    const auto* fits = std::find(std::begin(kKindsInCells), std::end(kKindsInCells), from.kind());
    if (fits == std::end(kKindsInCells)) return nullptr;
    auto copy = MakeComponent(place.table->dialog(), {from.kind_, from.declared_, 0},
                              from.dialog().resource());
    copy->Resemble(from);
    copy->name_ = std::move(name);
    copy->place_ = std::move(place);
    return copy;
}

void ComplainOfKind(const Component& component, const std::string& dialog, const char* wanted) {
    Complain(PRO_TK_BAD_INPUTS, fmt::format("{} of dialog {} is a {}, not a {}", component.name(),
                                            dialog, component.kind(), wanted));
}

}  // namespace simhost
