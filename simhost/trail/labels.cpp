// Looks for labels on the menu bar and in the dialog that is open.
#include "simhost/trail/labels.h"

#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/ui/checkbutton.h"
#include "simhost/ui/radiogroup.h"

namespace simhost {
namespace {

bool Contains(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string Several(const std::string& label, const std::vector<std::string>& names) {
    std::string all;
    for (const std::string& name : names) all += (all.empty() ? "" : " and ") + name;
    return fmt::format("\"{}\" is the label of {}; say which by its name", label, all);
}

// The commands whose button bears this label, each once.
std::vector<std::string> CommandsOf(const std::string& label) {
    std::vector<std::string> names;
    for (const Menu& menu : TheHost().commands.menus()) {
        for (const MenuButton& button : menu.buttons) {
            const bool same = Utf8(button.label) == label;
            if (same && !Contains(names, button.command->name)) {
                names.push_back(button.command->name);
            }
        }
    }
    return names;
}

bool IsButton(const Component& component) {
    return component.visible && (dynamic_cast<const PushButton*>(&component) ||
                                 dynamic_cast<const CheckButton*>(&component));
}

std::vector<std::string> ButtonsOf(const Dialog& dialog, const std::string& label) {
    std::vector<std::string> names;
    for (const auto& component : dialog.components()) {
        if (IsButton(*component) && Utf8(component->label) == label) {
            names.push_back(component->name());
        }
    }
    return names;
}

std::vector<std::string> ItemsOf(const RadioGroup& group, const std::string& label) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < group.names().size(); ++i) {
        if (group.labels()[i] == label) names.push_back(group.names()[i]);
    }
    return names;
}

void Write(Step* step) {
    step->written = "~ " + step->verb;
    for (const std::string& argument : step->arguments) step->written += " `" + argument + "`";
}

// Replaces the argument by the one name that bears it as a label.
std::string Replace(Step* step, std::size_t argument, const std::vector<std::string>& names) {
    if (names.empty()) return {};
    if (names.size() > 1) return Several(step->arguments[argument], names);
    step->arguments[argument] = names[0];
    Write(step);
    return {};
}

Step MadeStep(const std::string& verb, const std::vector<std::string>& arguments) {
    Step step;
    step.kind = Step::Kind::Trail;
    step.verb = verb;
    step.arguments = arguments;
    Write(&step);
    return step;
}

// What a plain word can mean in a dialog.
std::vector<Step> Meanings(const Dialog& dialog, const std::string& text) {
    std::vector<Step> steps;
    const auto press = [&](const std::string& name) {
        steps.push_back(MadeStep("Activate", {dialog.name(), name}));
    };
    const Component* named = dialog.Find(text);
    if (named && IsButton(*named)) {
        press(text);
        return steps;
    }
    for (const std::string& name : ButtonsOf(dialog, text)) press(name);
    for (const auto& component : dialog.components()) {
        const auto* group = dynamic_cast<const RadioGroup*>(component.get());
        if (!group || !group->visible) continue;
        std::vector<std::string> names = ItemsOf(*group, text);
        if (Contains(group->names(), text)) names = {text};
        for (const std::string& name : names) {
            steps.push_back(MadeStep("Select", {dialog.name(), group->name(), "1", name}));
        }
    }
    return steps;
}

}  // namespace

std::string NameLabels(Step* step) {
    if (step->arguments.empty()) return {};
    if (step->verb == "Command") {
        const std::string& name = step->arguments[0];
        if (TheHost().commands.Newest(name)) return {};
        return Replace(step, 0, CommandsOf(name));
    }
    const Dialog* dialog = TheHost().dialogs.Active();
    if (!dialog || dialog->name() != step->arguments[0] || step->arguments.size() < 2) return {};
    const Component* component = dialog->Find(step->arguments[1]);
    if (!component) return Replace(step, 1, ButtonsOf(*dialog, step->arguments[1]));
    const auto* group = dynamic_cast<const RadioGroup*>(component);
    if (!group || step->verb != "Select" || step->arguments.size() < 3) return {};
    if (Contains(group->names(), step->arguments.back())) return {};
    return Replace(step, step->arguments.size() - 1, ItemsOf(*group, step->arguments.back()));
}

void ResolvePlain(Step* step) {
    std::vector<Step> meanings;
    if (const Dialog* dialog = TheHost().dialogs.Active()) meanings = Meanings(*dialog, step->text);
    const bool isName = TheHost().commands.Newest(step->text) != nullptr;
    if (meanings.empty() && isName) meanings.push_back(MadeStep("Command", {step->text}));
    if (meanings.empty()) {
        for (const std::string& name : CommandsOf(step->text)) {
            meanings.push_back(MadeStep("Command", {name}));
        }
    }
    if (meanings.empty()) return;
    if (meanings.size() > 1) {
        std::string all;
        for (const Step& each : meanings) all += (all.empty() ? "" : ", or ") + each.written;
        step->problem = fmt::format("\"{}\" can mean several: {}", step->text, all);
        return;
    }
    const bool byName = meanings[0].arguments.back() == step->text;
    meanings[0].byLabel = !byName;
    *step = std::move(meanings[0]);
}

}  // namespace simhost
