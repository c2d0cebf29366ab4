// Components that hold a text: input panels, text areas and option menus.
#include "simhost/ui/textfield.h"

#include <fmt/format.h>

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/ui/dialogs.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/text_frame.h"

namespace simhost {

namespace {

const std::string* One(const DialogResource& resource, const std::string& component,
                       const char* attribute) {
    const auto* values = resource.Find(component, attribute);
    return values && !values->empty() ? &values->front() : nullptr;
}

std::string Unescaped(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        ++i;
        result += text[i] == 'n' ? '\n' : text[i] == 'r' ? '\r' : text[i] == 't' ? '\t' : text[i];
    }
    return result;
}

std::string InOneLine(const WideText& text) {
    std::string line;
    for (const char c : Utf8(text)) {
        if (c == '\n') {
            line += "\\n";
        } else if (c == '\r') {
            line += "\\r";
        } else {
            line += c;
        }
    }
    return line;
}

}  // namespace

TextField::TextField(Dialog& dialog, const ResourceComponent& declared,
                     const DialogResource& resource)
    : Component(dialog, declared, resource) {
    if (const std::string* text = One(resource, name(), "Value")) value = Wide(*text);
    columns_ = resource.Whole(name(), "Columns", columns_);
}

WideChar* TextField::ValueForCaller() {
    return given_.emplace_back(value).data();
}

std::string TextField::State() const {
    return '"' + InOneLine(value) + '"';
}

std::string TextField::Act(Verb verb, const std::vector<std::string>& arguments) {
    if (verb != Verb::Input && verb != Verb::Update) return Component::Act(verb, arguments);
    if (arguments.size() != 1) return fmt::format("one text belongs after {}", VerbName(verb));
    value = Wide(arguments[0]);
    return {};
}

void TextField::Resemble(const Component& other) {
    Component::Resemble(other);
    if (const auto* field = dynamic_cast<const TextField*>(&other)) value = field->value;
}

void InputPanel::ReceiveFocus() {
    dialog().RunAction(focusInAction, name());
}

std::vector<std::string> InputPanel::Picture() const {
    std::string text = Utf8(value);
    const auto width = std::size_t(std::max(columns(), 1));
    const std::size_t used = DisplayWidth(text);
    if (used < width) text.append(width - used, '_');
    return {"[" + text + "]"};
}

TextArea::TextArea(Dialog& dialog, const ResourceComponent& declared,
                   const DialogResource& resource)
    : TextField(dialog, declared, resource) {
    rows_ = resource.Whole(name(), "Rows", rows_);
}

std::vector<std::string> TextArea::Picture() const {
    std::vector<std::string> lines = TextLines(Utf8(value));
    while (int(lines.size()) < rows_) lines.emplace_back();
    for (std::string& line : lines) {
        line = "|" + Padded(std::move(line), std::size_t(std::max(columns(), 1))) + "|";
    }
    return lines;
}

std::string TextArea::Act(Verb verb, const std::vector<std::string>& arguments) {
    std::vector<std::string> texts = arguments;
    for (std::string& text : texts) text = Unescaped(text);
    return TextField::Act(verb, texts);
}

OptionMenu::OptionMenu(Dialog& dialog, const ResourceComponent& declared,
                       const DialogResource& resource)
    : TextField(dialog, declared, resource) {
    if (const auto* names = resource.Find(name(), "Names")) names_ = *names;
    if (const auto* labels = resource.Find(name(), "Labels")) labels_ = *labels;
    for (std::size_t i = labels_.size(); i < names_.size(); ++i) labels_.push_back(names_[i]);
}

std::vector<std::string> OptionMenu::Picture() const {
    std::size_t width = 0;
    for (const std::string& one : labels_) width = std::max(width, DisplayWidth(one));
    const std::string text = Padded(Utf8(value), width);
    return {enabled ? "<" + text + " v>" : "(" + text + " v)"};
}

std::string OptionMenu::State() const {
    std::string all;
    for (const std::string& one : labels_) all += (all.empty() ? "" : ", ") + one;
    return fmt::format("{} (of {})", TextField::State(), all);
}

std::string OptionMenu::Act(Verb verb, const std::vector<std::string>& arguments) {
    if (verb == Verb::Open || verb == Verb::Close) return {};
    if (verb != Verb::Select) return NothingTo(verb);
    if (arguments.empty()) return fmt::format("an entry of {} belongs after Select", name());
    for (std::size_t i = 0; i < labels_.size(); ++i) {
        if (labels_[i] != arguments.back() &&
            (i >= names_.size() || names_[i] != arguments.back())) {
            continue;
        }
        value = Wide(labels_[i]);
        return {};
    }
    return fmt::format("{} has no {}{}", name(), arguments.back(),
                       DidYouMean(arguments.back(), labels_));
}

}  // namespace simhost
