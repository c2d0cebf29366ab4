// The start of the plug-in as the host sees it: what it is called for, in which order and with
// which arguments, and what becomes of the start when the host refuses a call.
#include <algorithm>

#include "simhost/host.h"
#include "simhost/system/windows.h"
#include "tests/frame/expected_rows.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;
using Lines = std::vector<std::string>;

class StartUp : public Workbench {
protected:
    // Starts with the journal on and the notice behind the user.
    void StartJournalled(const std::string& rmbDisable = "0") {
        TextFolderSetting("RmbDisable", rmbDisable);
        host().journal.Start();
        Start();
        host().journal.Stop();
    }

    // How often an operation has been called during the start.
    std::ptrdiff_t Count(const std::string& operation) {
        const Lines names = host().journal.Names();
        return std::count(names.begin(), names.end(), operation);
    }

    // How many calls were made with the id of a command that could not be registered.
    std::ptrdiff_t RefusedWithoutId() {
        const Lines& lines = host().journal.lines();
        return std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
            return line.find("command=null") != std::string::npos &&
                   line.find(") = -2") != std::string::npos;
        });
    }

    // Whether the start came to its end: all rows, the timer, the hook.
    void ExpectTheWholeStart() {
        EXPECT_EQ(startStatus_, 0);
        EXPECT_EQ(Count("ProMenubarMenuAdd"), 1);
        EXPECT_EQ(Count("ProCmdActionAdd"), 56);
        EXPECT_EQ(Count("ProMenubarmenuPushbuttonAdd"), 56);
        EXPECT_EQ(Count("ProCmdIconSet"), 56);
        EXPECT_EQ(Count("ProCmdDesignate"), 52);
        EXPECT_EQ(Count("SetTimer"), 1);
        EXPECT_EQ(Count("ProNotificationSet"), 1);
        EXPECT_EQ(Boxes(), Lines{});
    }
};

void AddRow(const expected::Row& row, Lines* lines) {
    const std::string& name = row.name;
    const std::string command = "command=command " + name;
    lines->push_back("ProCmdActionAdd(name=\"" + name +
                     "\", action=function, priority=2, access=function, inNonActiveWindow=0, "
                     "inAccessoryWindow=0, " +
                     command + ") = 0");
    lines->push_back("ProMenubarmenuPushbuttonAdd(menu=\"Menu\", button=\"" + name +
                     "\", labelKey=\"" + name + "\", helpKey=\"" + row.helpKey +
                     "\", neighbour=null, afterNeighbour=1, " + command +
                     ", messageFile=\"vxMenu.txt\") = 0");
    lines->push_back("ProCmdIconSet(" + command + ", pictureFile=\"" + row.icon + "\") = 0");
    if (!row.onRibbon) return;
    lines->push_back("ProCmdDesignate(" + command + ", labelKey=\"" + name + "\", helpKey=\"" +
                     row.helpKey + "\", descriptionKey=\"" + name +
                     "\", messageFile=\"vxMenu.txt\") = 0");
}

TEST_F(StartUp, MakesItsCallsInTheirOrderWithTheirArguments) {
    StartJournalled();
    // 0x20019 to read a key is 131097; "5130" with its terminator takes 10 bytes.
    ASSERT_EQ(TheWindows().timers().size(), 1u);
    const std::string timer = std::to_string(TheWindows().timers().front().id);
    Lines wanted = {
        R"(RegOpenKeyExW(path="Software\PTC\Creo_Parametric", options=0, access=131097) = 0)",
        R"(RegQueryValueExW(name="VxReg", type=1, size=10) = 0)",
        "RegCloseKey() = 0",
        R"(ProMenubarMenuAdd(menu="Menu", titleKey="Menu", neighbour="Help", afterNeighbour=1, )"
        R"(messageFile="vxMenu.txt") = 0)",
    };
    for (const expected::Row& row : expected::Rows()) AddRow(row, &wanted);
    wanted.insert(wanted.end(),
                  {
                      "SetTimer(id=1, milliseconds=2000, procedure=function) = " + timer,
                      R"(ProToolkitApplTextPathGet(directory="C:\App Text") = 0)",
                      R"(GetPrivateProfileStringW(section="RmbDisable", key="value", fallback="", )"
                      R"(value="0", size=255, path="C:\App Text\VXconfig\VxConfig.ini") = 1)",
                      "ProNotificationSet(type=72) = 0",
                  });
    EXPECT_EQ(Calls(), wanted);
    EXPECT_EQ(startStatus_, 0);
}

TEST_F(StartUp, KeepsTheVersionTextBeforeAllElse) {
    StartJournalled();
    ASSERT_FALSE(host().journal.lines().empty());
    EXPECT_EQ(host().journal.lines().front(),
              R"(ProStringToWstring(narrow="Creo Parametric 7.0") = "Creo Parametric 7.0")");
}

TEST_F(StartUp, ShowsNothingWhenTheNoticeIsBehindTheUser) {
    StartJournalled();
    EXPECT_TRUE(host().shown.empty());
    EXPECT_EQ(Complaints(), Lines{});
}

TEST_F(StartUp, WithoutPopupsEndsWithTheReadingOfTheSetting) {
    StartJournalled("1");
    ASSERT_FALSE(Calls().empty());
    EXPECT_EQ(Calls().back().substr(0, 24), "GetPrivateProfileStringW");
    EXPECT_EQ(startStatus_, 0);
}

TEST_F(StartUp, GoesOnWhenTheMenuCannotBeMade) {
    Fail("ProMenubarMenuAdd");
    StartJournalled();
    ExpectTheWholeStart();
}

TEST_F(StartUp, GoesOnWhenNoCommandCanBeRegistered) {
    Fail("ProCmdActionAdd", {.forGood = true});
    StartJournalled();
    ExpectTheWholeStart();
    // The ids are used as they come, and the host refuses them. 56 buttons, 56 icons, 52
    // designations.
    EXPECT_EQ(RefusedWithoutId(), 56 + 56 + 52);
}

TEST_F(StartUp, UsesNoStaleIdWhenOneCommandCannotBeRegistered) {
    Fail("ProCmdActionAdd");
    StartJournalled();
    ExpectTheWholeStart();
    EXPECT_EQ(RefusedWithoutId(), 3);  // button, icon and designation of the first row
    EXPECT_FALSE(host().commands.FindButton("Menu", "VxOpenDir"));
    EXPECT_TRUE(host().commands.FindButton("Menu", "VxBackup"));
}

TEST_F(StartUp, GoesOnWhenNoButtonCanBeAdded) {
    Fail("ProMenubarmenuPushbuttonAdd", {.forGood = true});
    StartJournalled();
    ExpectTheWholeStart();
}

TEST_F(StartUp, GoesOnWhenNoIconCanBeSet) {
    Fail("ProCmdIconSet", {.forGood = true});
    StartJournalled();
    ExpectTheWholeStart();
}

TEST_F(StartUp, GoesOnWhenNothingCanBeDesignated) {
    Fail("ProCmdDesignate", {.forGood = true});
    StartJournalled();
    ExpectTheWholeStart();
}

TEST_F(StartUp, GoesOnWithoutATimer) {
    Fail("SetTimer");
    StartJournalled();
    ExpectTheWholeStart();
    EXPECT_TRUE(TheWindows().timers().empty());
}

TEST_F(StartUp, GoesOnWhenThePopupsCannotBeHooked) {
    Fail("ProNotificationSet");
    StartJournalled();
    ExpectTheWholeStart();
    host().journal.Start();
    host().commands.OpenPopup("Sel Obj Menu");
    EXPECT_EQ(host().commands.registrations().size(), 56u);
}

TEST_F(StartUp, LeavesThePopupsAloneWhenTheTextFolderIsNotKnown) {
    Fail("ProToolkitApplTextPathGet");
    StartJournalled();
    EXPECT_EQ(startStatus_, 0);
    EXPECT_EQ(Count("ProNotificationSet"), 0);
    EXPECT_TRUE(host().commands.FindMenu("Menu"));
}

// --- Loading again ---

TEST_F(StartUp, AFreshLoadRegistersEverythingAfresh) {
    StartJournalled();
    workplace_->StopPlugin();
    EXPECT_FALSE(host().commands.FindMenu("Menu"));
    host().journal.Clear();
    StartJournalled();
    ExpectTheWholeStart();
    EXPECT_EQ(host().commands.registrations().size(), 56u);
}

TEST_F(StartUp, AFreshLoadWaitsForItsOwnFirstPopup) {
    StartJournalled();
    Model& unit = Assembly("UNIT");
    Open(unit);
    host().session.selections.SetBuffer({{{PRO_ASSEMBLY, -1, unit.handle}, &unit, {}}});
    host().commands.OpenPopup("Sel Obj Menu");
    const std::size_t before = host().commands.OpenPopup("Sel Obj Menu")->entries.size();
    workplace_->StopPlugin();
    StartJournalled();
    const std::size_t first = host().commands.OpenPopup("Sel Obj Menu")->entries.size();
    const std::size_t second = host().commands.OpenPopup("Sel Obj Menu")->entries.size();
    EXPECT_EQ(first + 6, before);
    EXPECT_EQ(second, before);
}

TEST_F(StartUp, AFreshLoadRemembersNothingOfTheOneBefore) {
    // With a mode that is none of the three BatchColor uses its last colour again: black at first.
    Start();
    Model& plate = Part("PLATE");
    Open(plate);
    Write(workbench::kTextFolder + WIDE("\\VXconfig\\VxUGColor.ini"), [] {
        std::string palette;  // red, whatever is drawn
        for (int i = 0; i < 217; ++i) palette += "[" + std::to_string(i) + "]\r\nvalue=255.0.0\r\n";
        return palette;
    }());
    Setting("VxRandomColorOpt", "asUG");
    Press("BatchColor");
    ASSERT_TRUE(plate.appearance);
    EXPECT_EQ(plate.appearance->colour[0], 1.0);
    Setting("VxRandomColorOpt", "none of them");
    Press("BatchColor");
    EXPECT_EQ(plate.appearance->colour[0], 1.0);
    workplace_->StopPlugin();
    Start();
    Press("BatchColor");
    EXPECT_EQ(plate.appearance->colour[0], 0.0);
    EXPECT_EQ(plate.appearance->colour[1], 0.0);
    EXPECT_EQ(plate.appearance->colour[2], 0.0);
}

}  // namespace
