// The fault sweep: whatever of the host or of Windows fails, once or for good, the plug-in does not
// crash, hang, leak or hand nonsense to the host, it can be unloaded, and the session goes on.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "simhost/core/text.h"
#include "simhost/trail/interpreter.h"
#include "tests/sweep/sweep.h"

namespace {

using sweep::Scenes;
using sweep::Sweep;
using sweep::World;

class FaultSweep : public ::testing::Test {
protected:
    static void TearDownTestSuite() {
        std::printf("fault sweep: %d runs of %d stories\n", Sweep::runs, Sweep::stories);
    }
};

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

TEST_F(FaultSweep, Start) {
    Sweep faults;
    faults.Run({"the start for a new user",
                NewUser,
                [](World& w) { w.StartAsNewUser(); },
                GoOn,
                {"ProUIDialogActivate", "RegSetValueExW", "WinExec", "ProCmdDesignate", "SetTimer",
                 "ProNotificationSet"}});
    faults.Run({"the start for a known user",
                NewUser,
                [](World& w) { w.Start(); },
                GoOn,
                {"RegQueryValueExW", "ProMenubarMenuAdd"}});
}

TEST_F(FaultSweep, Timer) {
    Sweep faults;
    const auto prepare = [](World& world) {
        world.Setting("SetLastDir", "1");
        world.WriteLastDir("C:\\Work");
        world.Start();
    };
    faults.Run(
        {"the timer",
         prepare,
         [](World& w) { w.Wait(); },
         {},
         {"KillTimer", "ReadFile", "CloseHandle", "MultiByteToWideChar", "ProDirectoryChange"}});
}

TEST_F(FaultSweep, End) {
    Sweep faults;
    faults.Run({"the end",
                [](World& w) { w.Start(); },
                [](World& w) { w.Stop(); },
                {},
                {"ProDirectoryCurrentGet", "CreateFileW", "WriteFile", "CloseHandle"}});
}

// --- Popups ------------------------------------------------------------------------------------

void StartWithPopups(World& world) {
    world.Setting("RmbDisable", "0");
    world.Start();
}

void StartBehindFirstPopup(World& world) {
    StartWithPopups(world);
    sweep::BuildSelection(world);
    world.RightClick();
}

void OpenPopup(World& world) {
    world.RightClick();
}

TEST_F(FaultSweep, Popups) {
    Sweep faults({
        {"ProPopupmenuIdGet", "ProPopupmenuButtonAdd: no popup of the id 0",
         "popup buttons are added with the id as it came"},
    });
    faults.Run({"the first popup",
                StartWithPopups,
                OpenPopup,
                {},
                {"ProCmdActionAdd", "ProMenubarmenuPushbuttonAdd", "ProNotificationSet"}});
    faults.Run({"a later popup",
                StartBehindFirstPopup,
                OpenPopup,
                {},
                {"ProPopupmenuIdGet", "ProPopupmenuButtonAdd", "ProMessageToBuffer",
                 "ProSelbufferSelectionsGet", "ProArraySizeGet", "ProSelectionModelitemGet"}});
    const auto nothingSelected = [](World& world) {
        StartBehindFirstPopup(world);
        world.host().session.buffer.clear();
    };
    faults.Run({"a later popup without a selection",
                nothingSelected,
                OpenPopup,
                {},
                {"ProSelbufferSelectionsGet"}});
    const auto twoSelected = [](World& world) {
        StartBehindFirstPopup(world);
        auto& buffer = world.host().session.buffer;
        buffer.push_back(buffer.front());
    };
    faults.Run({"a later popup with two selections", twoSelected, OpenPopup});
}

TEST_F(FaultSweep, PopupButtons) {
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

// --- Commands ----------------------------------------------------------------------------------

struct Button {
    std::string menu, name, command;
};

// Every button of both menus, so that commands that are built later join by themselves.
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

TEST_F(FaultSweep, Commands) {
    const std::vector<Button> buttons = AllButtons();
    ASSERT_EQ(buttons.size(), 56u + 6u);
    // Commands that are not built yet do the same but for their names, and a command does the same
    // in a scene that makes no difference to it: one run stands for all these.
    Sweep faults;
    for (const Button& button : buttons) {
        for (const sweep::Scene& scene : Scenes()) {
            const auto prepare = [&scene](World& world) {
                StartWithPopups(world);
                world.RightClick();
                world.RightClick();
                world.host().commands.ClosePopup();
                scene.build(world);
            };
            const auto act = [&button](World& world) { world.Press(button.menu, button.name); };
            faults.Run({button.menu + "/" + button.name + " with " + scene.name,
                        prepare,
                        act,
                        {},
                        {},
                        button.command});
        }
    }
}

// --- The bill of materials ----------------------------------------------------------------------

void OpenAssemblyForBom(World& world) {
    world.WriteBomSettings("模型名称,材料", "层级1,层级2,模型名称");
    world.Start();
    Scenes()[3].build(world);
}

// Steps that do not fit any more after a failure are left out by the script.
void PlayBom(const char* steps) {
    simhost::RunScript("~ Command `VxBom`\n" + std::string(steps) + "~ Activate `VxBom` `Close`\n");
}

TEST_F(FaultSweep, BillOfMaterials) {
    Sweep faults;
    faults.Run({"the levelled list and a double click",
                OpenAssemblyForBom,
                [](World&) {
                    PlayBom(
                        "~ Select `VxBom` `BomRadio` 1 `LevelBom`\n"
                        "~ Activate `VxBom` `VxLoadBom`\n"
                        "~ Activate `VxBom` `bom_list` 2 `2` `num`\n"
                        "~ Activate `VxBom` `VxUpdateBomIni`\n"
                        "~ Activate `VxBom` `VxOpenBomIni`\n");
                },
                {},
                {"ProUITableRowsDelete", "ProUITableColumnsDelete", "ProUIOptionmenuEnable",
                 "ProUIOptionmenuValueGet", "ProUITableSelectednamesGet",
                 "ProUIDialogAboveactivewindowSet", "ProMdlDisplay", "ProMdlIsSkeleton",
                 "ProParameterInit", "ProUIDrawingareaImagesDraw", "ProStringarrayFree"}});
}

TEST_F(FaultSweep, BillOfMaterialsAsASpreadsheet) {
    Sweep faults;
    faults.Run(
        {"the export",
         OpenAssemblyForBom,
         [](World& world) {
             std::filesystem::remove(world.host().disk.Real(WIDE("C:\\Work\\sweep.xlsx")));
             PlayBom(
                 "~ Activate `VxBom` `VxExportBom`\n"
                 "@ answer C:\\Work\\sweep.xlsx\n");
         },
         {},
         {"GetSaveFileNameW", "SHGetSpecialFolderPathW", "CreateFileW", "GetLastError",
          "ProUITableRowlabelsGet", "ProUITableCellLabelGet", "ProUITableCellBackgroundColorGet",
          "ExcelCreate", "ExcelGet", "ExcelPut", "ExcelCall", "ExcelRelease", "ShellExecuteW"}});
}

}  // namespace
