// Start, timer, end and popups.
#include "tests/sweep/frame_stories.h"

namespace sweep {

namespace {

// What a user does next, whatever became of the start.
void GoOn(World& world) {
    world.Wait();
    Scenes()[1].build(world);
    world.Press("Menu", "BatchColor");
    world.RightClick();
    world.RightClick();
}

void NewUser(World& world) {
    world.Setting("RmbDisable", "0");
}

FrameStories Start() {
    return {"Start",
            {{"the start for a new user",
              NewUser,
              [](World& w) { w.StartAsNewUser(); },
              GoOn,
              {"ProUIDialogActivate", "RegSetValueExW", "WinExec", "ProCmdDesignate", "SetTimer",
               "ProNotificationSet"}},
             {"the start for a known user",
              NewUser,
              [](World& w) { w.Start(); },
              GoOn,
              {"RegQueryValueExW", "ProMenubarMenuAdd"}}},
            {}};
}

FrameStories Timer() {
    const auto prepare = [](World& world) {
        world.Setting("SetLastDir", "1");
        world.WriteLastDir("C:\\Work");
        world.Start();
    };
    return {
        "Timer",
        {{"the timer",
          prepare,
          [](World& w) { w.Wait(); },
          {},
          {"KillTimer", "ReadFile", "CloseHandle", "MultiByteToWideChar", "ProDirectoryChange"}}},
        {}};
}

FrameStories End() {
    return {"End",
            {{"the end",
              [](World& w) { w.Start(); },
              [](World& w) { w.Stop(); },
              {},
              {"ProDirectoryCurrentGet", "CreateFileW", "WriteFile", "CloseHandle", "KillTimer"}}},
            {{"KillTimer", "a timer is still set whose procedure lies in vorlatix5.1.dll",
              "a timer that cannot be killed is all that Windows leaves the plug-in"}}};
}

void OpenPopup(World& world) {
    world.RightClick();
}

FrameStories Popups() {
    const auto nothingSelected = [](World& world) {
        StartBehindFirstPopup(world);
        world.host().session.selections.ClearBuffer();
    };
    const auto twoSelected = [](World& world) {
        StartBehindFirstPopup(world);
        auto& selections = world.host().session.selections;
        selections.AddToBuffer(selections.buffer().front());
    };
    return {"Popups",
            {{"the first popup",
              StartWithPopups,
              OpenPopup,
              {},
              {"ProCmdActionAdd", "ProMenubarmenuPushbuttonAdd", "ProNotificationSet"}},
             {"a later popup",
              StartBehindFirstPopup,
              OpenPopup,
              {},
              {"ProPopupmenuIdGet", "ProPopupmenuButtonAdd", "ProMessageToBuffer",
               "ProSelbufferSelectionsGet", "ProArraySizeGet", "ProSelectionModelitemGet"}},
             {"a later popup without a selection",
              nothingSelected,
              OpenPopup,
              {},
              {"ProSelbufferSelectionsGet"}},
             {"a later popup with two selections", twoSelected, OpenPopup}},
            {{"ProPopupmenuIdGet", "ProPopupmenuButtonAdd: no popup of the id 0",
              "popup buttons are added with the id as it came"}}};
}

}  // namespace

void StartWithPopups(World& world) {
    world.Setting("RmbDisable", "0");
    world.Start();
}

void StartBehindFirstPopup(World& world) {
    StartWithPopups(world);
    BuildSelection(world);
    world.RightClick();
}

const std::vector<FrameStories>& AllFrameStories() {
    static const std::vector<FrameStories> all = {Start(), Timer(), End(), Popups()};
    return all;
}

}  // namespace sweep
