// The fault sweep: whatever of the host or of Windows fails, once or for good, the plug-in does not
// crash, hang, leak or hand nonsense to the host, it can be unloaded, and the session goes on.
//
// Each room has a suite of its own: its stories, and each of their commands in every scene.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <functional>
#include <set>
#include <utility>

#include "simhost/core/text.h"
#include "tests/sweep/frame_stories.h"
#include "tests/sweep/imports.h"
#include "tests/sweep/sweep.h"
#include "tests/sweep/told_story.h"

namespace {

using namespace sweep;

// --- Commands ----------------------------------------------------------------------------------

struct Button {
    std::string menu, name, command;
};

// Every button of both menus, so that new commands join by themselves.
std::vector<Button> AllButtons() {
    std::vector<Button> buttons;
    World world;
    StartWithPopups(world);
    world.RightClick();
    world.RightClick();
    for (const char* name : {"Menu", "ActionMenu"}) {
        const simhost::Menu* menu = world.host().commands.FindMenu(name);
        if (!menu) continue;
        for (const auto& button : menu->buttons) {
            buttons.push_back({name, button.name, button.command->name});
        }
    }
    world.Stop();
    return buttons;
}

// A command does the same in a scene that makes no difference to it: one run does for all these.
void SweepInAllScenes(const Button& button, Sweep* faults) {
    for (const Scene& scene : Scenes()) {
        const auto prepare = [&scene](World& world) {
            StartWithPopups(world);
            world.RightClick();
            world.RightClick();
            world.host().commands.ClosePopup();
            scene.build(world);
        };
        const auto act = [&button](World& world) { world.Press(button.menu, button.name); };
        faults->Run({button.menu + "/" + button.name + " with " + scene.name,
                     prepare,
                     act,
                     {},
                     {},
                     button.command});
    }
}

// What its stories are forced to, the command may be forced to in any scene.
void SweepCommand(const std::string& command) {
    std::vector<Forced> forced;
    for (const ToldStory& told : ToldStories()) {
        const auto& pressed = told.commands;
        if (std::find(pressed.begin(), pressed.end(), command) == pressed.end()) continue;
        forced.insert(forced.end(), told.forced.begin(), told.forced.end());
    }
    Sweep faults(std::move(forced), /*allNeeded=*/false);
    int found = 0;
    for (const Button& button : AllButtons()) {
        if (button.command != command) continue;
        ++found;
        SweepInAllScenes(button, &faults);
    }
    EXPECT_GE(found, 1) << "no menu has the command " << command;
}

std::set<std::string> CommandsWithStories() {
    std::set<std::string> commands;
    for (const ToldStory& story : ToldStories()) {
        commands.insert(story.commands.begin(), story.commands.end());
    }
    return commands;
}

// The buttons of commands that no story presses.
std::vector<Button> ButtonsWithoutStories() {
    const std::set<std::string> told = CommandsWithStories();
    std::vector<Button> buttons = AllButtons();
    buttons.erase(std::remove_if(buttons.begin(), buttons.end(),
                                 [&](const Button& each) { return told.count(each.command) > 0; }),
                  buttons.end());
    return buttons;
}

// --- The suites --------------------------------------------------------------------------------

class FaultSweep : public ::testing::Test {};
using FrameSweep = FaultSweep;

// A test that is registered by its name.
class Registered : public FaultSweep {
public:
    explicit Registered(std::function<void()> run) : run_(std::move(run)) {}
    void TestBody() override { run_(); }

private:
    std::function<void()> run_;
};

void Register(const std::string& room, const std::string& name, std::function<void()> run) {
    std::string suite = room + "Sweep";
    suite.front() = char(std::toupper(suite.front()));
    ::testing::RegisterTest(
        suite.c_str(), name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
        [run = std::move(run)]() -> FaultSweep* { return new Registered(run); });
}

// A command belongs to the room whose story presses it; the first one, if several do.
void RegisterStories() {
    std::set<std::string> commands;
    for (const ToldStory& told : ToldStories()) {
        Register(told.room, told.name, [&told] { Sweep(told.forced).Run(StoryOf(told)); });
        for (const std::string& command : told.commands) {
            if (!commands.insert(command).second) continue;
            Register(told.room, command, [command] { SweepCommand(command); });
        }
    }
}

void RegisterFrame() {
    for (const FrameStories& group : AllFrameStories()) {
        Register("frame", group.name, [&group] {
            Sweep faults(group.forced);
            for (const Story& story : group.stories) faults.Run(story);
        });
    }
}

class Count : public ::testing::Environment {
public:
    void TearDown() override {
        static constexpr const char* kExtents[] = {"the first call of one operation in four",
                                                   "the first call of each operation",
                                                   "every call"};
        std::printf("fault sweep: %d runs of %d stories, %s\n", Sweep::runs, Sweep::stories,
                    kExtents[int(Sweep::HowMuch())]);
    }
};

const bool registered = [] {
    ::testing::AddGlobalTestEnvironment(new Count);
    RegisterFrame();
    RegisterStories();
    return true;
}();

TEST_F(FrameSweep, PopupButtons) {
    std::vector<std::string> labels;
    {
        World world;
        StartBehindFirstPopup(world);
        world.RightClick();
        ASSERT_NE(world.host().commands.popup(), nullptr);
        for (const auto& entry : world.host().commands.popup()->entries) {
            if (entry.command) labels.push_back(simhost::Utf8(entry.label));
        }
        world.Stop();
    }
    ASSERT_EQ(labels.size(), 6u);
    Sweep faults;
    for (const std::string& label : labels) {
        const auto prepare = [](World& world) {
            StartBehindFirstPopup(world);
            world.RightClick();
        };
        faults.Run({"the popup button " + label,
                    prepare,
                    [label](World& world) { world.PressPopup(label); },
                    {},
                    {}});
    }
}

TEST_F(FrameSweep, EveryCommandHasAStory) {
    ASSERT_EQ(AllButtons().size(), 56u + 6u);
    for (const Button& button : ButtonsWithoutStories()) {
        ADD_FAILURE() << button.command << " has no story: tell one in tests/<room>/stories/";
    }
}

// Operations that no story can reach.
struct Unreached {
    const char* operation;
    const char* reason;
};
const std::vector<Unreached> kUnreached = {
    {"GlobalFree", "memory is freed where the clipboard did not take it, which only a fault does"},
    {"ProUdfreferenceFree", "a reference is freed where the group did not take it"},
    {"ProUdfvardimFree", "a dimension is freed where the group did not take it"},
    {"ProValueFree", "a value is freed where its element did not take it"},
};

TEST_F(FrameSweep, EveryOperationOfTheModuleIsReachedByAStory) {
    std::set<std::string> missing = ImportedOperations();
    ASSERT_GT(missing.size(), 100u) << "is there no nm?";
    Sweep faults;
    const auto take = [&](const Story& story) {
        for (const std::string& name : faults.Reached(story)) missing.erase(name);
    };
    for (const FrameStories& group : AllFrameStories()) {
        for (const Story& story : group.stories) take(story);
    }
    for (const ToldStory& told : ToldStories()) take(StoryOf(told));
    for (const Unreached& row : kUnreached) {
        EXPECT_EQ(missing.erase(row.operation), 1u)
            << row.operation << " is reached or gone: strike its exception";
    }
    for (const std::string& name : missing) {
        ADD_FAILURE() << "no story reaches " << name << ": tell one, or say why that cannot be";
    }
}

}  // namespace
