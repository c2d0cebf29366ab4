// The @ word show: what the session, the menu and the windows look like now.
#include <fmt/format.h>

#include <cmath>

#include "simhost/core/text.h"
#include "simhost/trail/interpreter.h"
#include "simhost/trail/picks.h"
#include "simhost/trail/words.h"
#include "simhost/ui/near_name.h"
#include "simhost/ui/text_frame.h"

namespace simhost {
namespace {

std::string KindOf(const Model& model) {
    switch (model.type) {
        case PRO_MDL_ASSEMBLY: return "assembly";
        case PRO_MDL_DRAWING: return "drawing";
        case PRO_MDL_DWGFORM: return "format";
        case PRO_MDL_MFG: return "manufacturing";
        default: break;
    }
    if (model.partData.skeleton) return "skeleton";
    return model.subtype == PROMDLSTYPE_PART_SHEETMETAL ? "sheet metal" : "part";
}

void ShowModels(Trail& trail) {
    const Session& session = TheHost().session;
    for (const Model* model : session.All()) {
        const bool current = model == session.CurrentModel();
        trail.Say(fmt::format("{} {}{} {}{}", current ? '*' : ' ', Padded(model->FileName(), 28),
                              Padded(KindOf(*model), 14), model->title,
                              model->modified ? "  (changed)" : ""));
    }
    trail.Say(fmt::format("{} models in memory, working folder {}", session.All().size(),
                          Utf8(session.workingDirectory)));
}

constexpr int kMostTreeLines = 500;

// Why a component is not on the screen, as far as its own states say.
std::string MarksOf(const Feature& component, Membership::At at) {
    std::string marks;
    const auto mark = [&](bool is, const char* word) {
        if (is) marks += (marks.empty() ? "" : ", ") + std::string(word);
    };
    mark(!component.model, "not in memory");
    mark(component.status != PRO_FEAT_ACTIVE, "suppressed");
    mark(!component.visible, "invisible");
    mark(component.hidden, "hidden");
    mark(!Membership::IsThere(at), "excluded");
    return marks.empty() ? marks : "(" + marks + ")";
}

// One line a component, with the path that select takes. Counts down what may be shown still.
void ShowBelow(Trail& trail, const Model& model, const std::string& path, Membership::At at,
               int* left) {
    for (const auto& [step, feature] : ComponentSteps(model)) {
        if (--*left < 0) return;
        const Model* below = feature->model;
        const std::string here = path.empty() ? step : path + "/" + step;
        const Membership::At member = Membership::Below(at, feature->id);
        const std::string marks = MarksOf(*feature, member);
        const std::string title = below ? below->title : "";
        const char* between = title.empty() || marks.empty() ? "" : " ";
        trail.Say(fmt::format("{} {}{}{}", Padded(here, 44), title, between, marks));
        if (below) ShowBelow(trail, *below, here, member, left);
    }
}

std::vector<int> IdsOf(const std::string& path) {
    std::string ignored;
    const auto picked = path.empty() ? std::nullopt : Pick(path, &ignored);
    return picked ? picked->path : std::vector<int>();
}

void ShowRepresentations(Trail& trail, const Model& model) {
    if (model.assemblyData.simpreps.empty()) return;
    std::string names;
    for (const Simprep& each : model.assemblyData.simpreps)
        names += (names.empty() ? "" : ", ") + Utf8(each.name);
    const Simprep* active = model.ActiveSimprep();
    trail.Say(fmt::format("simplified representations: {}; active: {}", names,
                          active ? Utf8(active->name) : "none, all components are there"));
}

void ShowTree(Trail& trail, const std::string& path) {
    const Model* model = ModelAt(path);
    if (!model) {
        return trail.Fail(path.empty() ? "no model is open"
                                       : fmt::format("there is no component {}", path));
    }
    int left = kMostTreeLines;
    // Who is a member is said by the way from the top, wherever one looks.
    const Model& top = *ModelAt("");
    const Membership membership(top.ActiveSimprep());
    Membership::At at = membership.Top();
    for (const int id : IdsOf(path)) at = Membership::Below(at, id);
    ShowBelow(trail, *model, path, at, &left);
    ShowRepresentations(trail, top);
    if (left < 0) {
        trail.Say("… and more; show tree PATH shows what is below a component");
    } else {
        trail.Say(fmt::format("{} components in {}", kMostTreeLines - left, model->FileName()));
    }
}

void ShowMenu(Trail& trail) {
    for (const Menu& menu : TheHost().commands.menus()) {
        if (menu.buttons.empty()) continue;
        trail.Say(fmt::format("{} ({}){}", Utf8(menu.title), menu.name,
                              menu.onBar ? "" : ", not on the menu bar"));
        for (const MenuButton& button : menu.buttons) {
            const Command& command = *button.command;
            const auto state = command.access ? command.access(0) : ACCESS_AVAILABLE;
            trail.Say(fmt::format("  {} {}{}", Padded(button.name, 24),
                                  Padded(Utf8(button.label), 28),
                                  state == ACCESS_AVAILABLE ? "" : AccessWord(state)));
        }
    }
}

void ShowCommands(Trail& trail) {
    Commands& commands = TheHost().commands;
    for (const std::string& name : commands.Names()) {
        const auto state = commands.Access(name);
        trail.Say(fmt::format("{} {}", Padded(name, 24), AccessWord(*state)));
    }
}

void ShowDialog(Trail& trail) {
    const Dialog* dialog = TheHost().dialogs.Active();
    if (!dialog) return trail.Say("no dialog is open");
    trail.SayAll(DialogText(*dialog));
    for (const auto& component : dialog->components()) {
        const std::string state = component->State();
        trail.Say(fmt::format("{} {}{}{}", Padded(component->kind(), 14), component->name(),
                              state.empty() ? "" : " = ", state));
    }
}

void ShowPopup(Trail& trail) {
    const Popup* popup = TheHost().commands.popup();
    if (!popup) return trail.Say("no popup is open");
    std::vector<std::string> lines;
    for (const PopupEntry& entry : popup->entries) {
        const std::string label = Utf8(entry.label);
        lines.push_back(entry.state == ACCESS_AVAILABLE ? label : "(" + label + ")");
    }
    trail.SayAll(Framed(popup->name, lines));
}

void ShowSelection(Trail& trail) {
    Session& session = TheHost().session;
    const std::vector<Selection>& buffer = session.selections.buffer();
    PathNames names;
    for (const Selection& selection : buffer) {
        const Model* owner = session.Find(selection.item.owner);
        const Model& top = *selection.top;
        trail.Say(fmt::format("{} {}{}", Padded(names.Of(selection), 44),
                              owner ? owner->FileName() : "(an erased model)",
                              owner == &top ? "" : " in " + top.FileName()));
    }
    trail.Say(fmt::format("{} selected", buffer.size()));
}

std::string ColourAndTransparency(const ProdbSurfaceProps& props) {
    const std::string text = ColourWords(props);
    if (props.transparency <= 0) return text;
    return fmt::format("{} transparency {:g}", text, props.transparency);
}

void ShowColours(Trail& trail) {
    int coloured = 0;
    for (const Model* model : TheHost().session.All()) {
        if (model->appearance) {
            ++coloured;
            trail.Say(fmt::format("{} {}", Padded(model->FileName(), 28),
                                  ColourAndTransparency(*model->appearance)));
        }
        for (const auto& [id, props] : model->partData.surfaceAppearances) {
            trail.Say(fmt::format("{} {}", Padded(fmt::format("{}#{}", model->FileName(), id), 28),
                                  ColourAndTransparency(props)));
        }
    }
    trail.Say(fmt::format("{} models have a colour of their own", coloured));
}

void ShowMessages(Trail& trail) {
    for (const Shown& shown : TheHost().shown) {
        constexpr const char* kKinds[] = {"box", "message", "prompt", "dialog", "program"};
        std::string text;
        for (const std::string& line : TextLines(Utf8(shown.text))) {
            text += (text.empty() ? "" : " / ") + std::string(Trimmed(line));
        }
        trail.Say(fmt::format("{:<8} {}", kKinds[static_cast<std::size_t>(shown.kind)], text));
    }
}

struct Topic {
    const char* name;
    void (*show)(Trail&);
};
constexpr Topic kTopics[] = {
    {"models", ShowModels},
    {"menu", ShowMenu},
    {"tree", [](Trail& trail) { ShowTree(trail, ""); }},
    {"commands", ShowCommands},
    {"dialog", ShowDialog},
    {"popup", ShowPopup},
    {"selection", ShowSelection},
    {"components", ShowComponents},
    {"constraints", ShowConstraints},
    {"colours", ShowColours},
    {"parameters", ShowParameters},
    {"relations", ShowRelations},
    {"units", [](Trail& trail) { ShowUnits(trail, ""); }},
    {"outline", [](Trail& trail) { ShowOutline(trail, ""); }},
    {"sheets", ShowSheets},
    {"views", ShowViews},
    {"dimensions", ShowDimensions},
    {"tables", ShowTables},
    {"options", ShowOptions},
    {"materials", ShowMaterials},
    {"masses", ShowMasses},
    {"bends", ShowBends},
    {"files", [](Trail& trail) { ShowFiles(trail, ""); }},
    {"references", [](Trail& trail) { ShowReferences(trail, ""); }},
    {"messages", ShowMessages},
};

// Those that take what follows them.
struct TopicOf {
    std::string_view name;
    void (*show)(Trail&, const std::string& rest);
};
constexpr TopicOf kTopicsOf[] = {
    {"tree ", [](Trail& trail, const std::string& rest) { ShowTree(trail, ParseText(rest).text); }},
    {"units ", ShowUnits},
    {"outline ", ShowOutline},
    {"files ", ShowFiles},
    {"references ", ShowReferences},
    {"edges ", ShowEdges},
};

}  // namespace

std::string ColourWords(const ProdbSurfaceProps& props) {
    const double* part = props.colour;
    return fmt::format("{}.{}.{}", std::lround(part[0] * 255), std::lround(part[1] * 255),
                       std::lround(part[2] * 255));
}

const std::vector<std::string>& ShowTopics() {
    static const std::vector<std::string> topics = [] {
        std::vector<std::string> names;
        for (const Topic& topic : kTopics) names.emplace_back(topic.name);
        return names;
    }();
    return topics;
}

void Show(Trail& trail, const std::string& rest) {
    for (const TopicOf& topic : kTopicsOf) {
        if (rest.starts_with(topic.name)) return topic.show(trail, rest.substr(topic.name.size()));
    }
    for (const Topic& topic : kTopics) {
        if (rest == topic.name) return topic.show(trail);
    }
    std::string all;
    for (const std::string& name : ShowTopics()) all += (all.empty() ? "" : ", ") + name;
    const std::string near = NearName(rest, ShowTopics());
    if (near.empty()) return trail.Fail("show what? " + all);
    trail.Fail(fmt::format("nothing called {} can be shown; did you mean {}? There are {}", rest,
                           near, all));
}

}  // namespace simhost
