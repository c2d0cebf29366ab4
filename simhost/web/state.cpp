// What the user can do now: what waits for an answer, the menus, the windows, the selection.
#include <string>

#include "simhost/host.h"
#include "simhost/model/picking.h"
#include "simhost/trail/known_names.h"
#include "simhost/trail/picks.h"
#include "simhost/ui/host_dialogs.h"
#include "simhost/web/answers.h"
#include "simhost/web/json_text.h"

namespace simhost {
namespace {

const char* StateWord(uiCmdAccessState state) {
    if (state == ACCESS_AVAILABLE) return "available";
    return state == ACCESS_UNAVAILABLE ? "greyed" : "absent";
}

// While something waits for the user no rule is asked: nothing but that can be used.
uiCmdAccessState StateOf(const Command& command, bool waits) {
    if (waits) return ACCESS_UNAVAILABLE;
    return command.access ? command.access(0) : ACCESS_AVAILABLE;
}

Json MenusNow(bool waits) {
    Json menus = Json::array();
    for (const Menu& menu : TheHost().commands.menus()) {
        if (menu.buttons.empty()) continue;
        Json buttons = Json::array();
        for (const MenuButton& button : menu.buttons) {
            const Command& command = *button.command;
            buttons.push_back({{"name", button.name},
                               {"command", command.name},
                               {"label", Text(button.label)},
                               {"help", Text(button.help)},
                               {"english", Text(button.english)},
                               {"englishHelp", Text(button.englishHelp)},
                               {"icon", command.icon},
                               {"state", StateWord(StateOf(command, waits))}});
        }
        menus.push_back({{"name", menu.name},
                         {"title", Text(menu.title)},
                         {"onBar", menu.onBar},
                         {"buttons", std::move(buttons)}});
    }
    return menus;
}

Json PopupNow() {
    const Popup* popup = TheHost().commands.popup();
    if (!popup) return nullptr;
    Json entries = Json::array();
    for (const PopupEntry& entry : popup->entries) {
        entries.push_back({{"label", Text(entry.label)},
                           {"help", Text(entry.help)},
                           {"state", StateWord(entry.state)}});
    }
    return entries;
}

Json FileQuestionOf(const FileQuestion& question) {
    Json files = Json::array();
    for (const WideText& file : question.files) files.push_back(Text(file));
    return {{"title", Text(question.title)},   {"filter", Text(question.filter)},
            {"folder", Text(question.folder)}, {"proposed", Text(question.proposed)},
            {"toWrite", question.toWrite},     {"mayBeMissing", question.mayBeMissing},
            {"forFolder", question.forFolder}, {"files", std::move(files)}};
}

Json BoxOf(const Box& box) {
    return {{"kind", "box"},
            {"text", Text(box.text)},
            {"caption", box.hasCaption ? Text(box.caption) : std::string()}};
}

// The kinds of items that a click in the 3-D view can mean.
Json TakenBy(const Picking& picking) {
    struct Kind {
        const char* word;
        ProType type;
    };
    constexpr Kind kKinds[] = {
        {"part", PRO_PART}, {"assembly", PRO_ASSEMBLY}, {"surface", PRO_SURFACE}};
    Json taken = Json::array();
    for (const Kind& kind : kKinds) {
        if (picking.Allows(kind.type)) taken.push_back(kind.word);
    }
    return taken;
}

// What waits for the user; null: nothing but the main window.
Json WaitNow(Trail& trail) {
    const Wait* wait = trail.waiting();
    if (!wait && TheHost().dialogs.mainWindow.questionOpen()) {
        return {{"kind", "question"}, {"name", MainWindow::kQuestionName}};
    }
    if (!wait) return nullptr;
    switch (wait->kind) {
        case Wait::Kind::Box: return BoxOf(*wait->box);
        case Wait::Kind::Dialog:
            return {{"kind", "dialog"},
                    {"name", wait->dialog->name()},
                    {"title", Text(wait->dialog->title())}};
        case Wait::Kind::Pick:
            return {{"kind", "pick"},
                    {"question", wait->picking->Question()},
                    {"takes", TakenBy(*wait->picking)},
                    {"most", wait->picking->most()},
                    {"byBox", wait->picking->byBox()}};
        case Wait::Kind::Click: return {{"kind", "click"}};
        case Wait::Kind::Prompt: break;
    }
    return {{"kind", "prompt"},
            {"text", Text(wait->prompt)},
            {"byDefault", Text(wait->byDefault)},
            {"file", wait->file ? FileQuestionOf(*wait->file) : Json(nullptr)}};
}

Json ModelNow(const Model& model) {
    return {{"file", model.FileName()}, {"title", model.title}, {"changed", model.modified}};
}

Json WindowsNow() {
    const Session& session = TheHost().session;
    Json windows = Json::array();
    for (const Window& window : session.windows()) {
        if (!window.model) continue;
        Json one = ModelNow(*window.model);
        one["current"] = &window == session.current;
        windows.push_back(std::move(one));
    }
    return windows;
}

Json SelectionNow() {
    Json paths = Json::array();
    PathNames names;
    for (const Selection& each : TheHost().session.selections.buffer()) {
        paths.push_back(names.Of(each));
    }
    return paths;
}

Json UnsavedNow() {
    Json files = Json::array();
    for (const Model* model : TheHost().session.All()) {
        if (model->modified) files.push_back(model->FileName());
    }
    return files;
}

}  // namespace

Reply StateNow(const Seat& seat, const Query&) {
    Host& host = TheHost();
    const Model* current = host.session.CurrentModel();
    const Json state = {{"waitingFor", seat.trail.WaitingFor()},
                        {"wait", WaitNow(seat.trail)},
                        {"message", Text(host.messages.last())},
                        {"popup", PopupNow()},
                        {"menus", MenusNow(seat.trail.waiting() != nullptr)},
                        {"current", current ? ModelNow(*current) : Json(nullptr)},
                        {"windows", WindowsNow()},
                        {"selection", SelectionNow()},
                        {"unsaved", UnsavedNow()},
                        {"openable", ModelFiles()},
                        {"folder", Text(host.session.workingDirectory)},
                        {"complaints", host.complaints.size()}};
    return {200, Reply().type, Dump(state), {}};
}

}  // namespace simhost
