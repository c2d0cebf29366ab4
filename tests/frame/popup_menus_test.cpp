// The plug-in's buttons on the host's popup menus: when they come, what they are called, and for
// which selections they are shown.
#include <algorithm>

#include "simhost/host.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;
using Lines = std::vector<std::string>;

constexpr const char* kPopup = "Sel Obj Menu";

// The popup commands: the command, its button in ActionMenu in bytes of the system code page, its
// label in the popup.
struct PopupCommand {
    std::string name;
    std::string actionMenuBytes;
    std::string label;
    bool onlyAssemblies;  // as a command of ActionMenu; otherwise parts and assemblies
};
const PopupCommand kCommands[] = {
    {"VxIsolate", "\xB6\xC0\xC1\xA2\xCF\xD4\xCA\xBE", "独立显示(vx)", true},
    {"VxHideReverse", "\xB7\xB4\xCF\xF2\xD2\xFE\xB2\xD8", "反转显示(vx)", true},
    {"VxShowAllComp", "\xC8\xAB\xB2\xBF\xCF\xD4\xCA\xBE", "全部显示(vx)", true},
    {"VxMdlNameCopy", "\xB8\xB4\xD6\xC6\xC4\xA3\xD0\xCD\xC3\xFB\xB3\xC6(vx)", "复制模型名称(vx)",
     false},
    {"VxMdlRename", "\xBF\xEC\xCB\xD9\xD6\xD8\xC3\xFC\xC3\xFB(vx)", "快速重命名(vx)", false},
};

class PopupMenus : public Workbench {
protected:
    // Starts with the popups switched on, in an assembly with one component.
    void StartWithPopups() {
        TextFolderSetting("RmbDisable", "0");
        Start();
        unit_ = &Assembly("UNIT");
        plate_ = &Part("PLATE");
        Use(*unit_, *plate_);
        Open(*unit_);
    }
    // The same, and the first popup, which only wakes the plug-in up, is over.
    void StartAfterTheFirstPopup() {
        StartWithPopups();
        OpenPopup();
        host().commands.ClosePopup();
    }

    // Selects items of these types, in this order; models stand for themselves.
    void Select(const std::vector<int>& types) {
        host().session.selections.ClearBuffer();
        for (const int type : types) {
            const bool model = type == PRO_ASSEMBLY || type == PRO_PART;
            const ProModelitem item = {ProType(type), model ? -1 : 7,
                                       (type == PRO_ASSEMBLY ? unit_ : plate_)->handle};
            host().session.selections.AddToBuffer({item, unit_, {}});
        }
    }

    const std::vector<PopupEntry>& OpenPopup(const std::string& name = kPopup) {
        static const std::vector<PopupEntry> none;
        const Popup* popup = host().commands.OpenPopup(name);
        EXPECT_TRUE(popup) << name;
        return popup ? popup->entries : none;
    }
    // The names of the plug-in's entries that a user sees.
    Lines OwnEntries(const std::string& name = kPopup) {
        Lines names;
        for (const PopupEntry& entry : OpenPopup(name)) {
            if (entry.command) names.push_back(entry.name);
        }
        return names;
    }
    Lines CallsOfPopup(const std::string& name = kPopup) {
        host().journal.Clear();
        host().journal.Start();
        OpenPopup(name);
        host().journal.Stop();
        return Calls();
    }

    Model* unit_ = nullptr;
    Model* plate_ = nullptr;
};

const Lines kAllSix = {"VxIsolate",     "VxHideReverse", "VxShowAllComp",
                       "VxMdlNameCopy", "VxMdlRename",   "VxOpenDrw"};
const Lines kComponentThree = {"VxIsolate", "VxHideReverse", "VxShowAllComp"};
const Lines kSingleThree = {"VxMdlNameCopy", "VxMdlRename", "VxOpenDrw"};

// --- First and later popups ---

TEST_F(PopupMenus, TheFirstPopupOfARunHasNoButtonOfThePlugIn) {
    StartWithPopups();
    Select({PRO_PART});
    EXPECT_EQ(OwnEntries(), Lines{});
}

TEST_F(PopupMenus, EveryLaterPopupHasSix) {
    StartAfterTheFirstPopup();
    Select({PRO_PART});
    for (int i = 0; i < 3; ++i) EXPECT_EQ(OwnEntries(), kAllSix);
}

TEST_F(PopupMenus, AnyPopupCountsAsTheFirst) {
    StartWithPopups();
    Select({PRO_PART});
    EXPECT_EQ(OwnEntries("Graphic Area Menu"), Lines{});
    EXPECT_EQ(OwnEntries(), kAllSix);
}

TEST_F(PopupMenus, OtherPopupsStayAsTheyWere) {
    StartWithPopups();
    Select({PRO_PART});
    for (const char* name : {"Graphic Area Menu", "Model Tree Menu"}) {
        OpenPopup();
        EXPECT_EQ(OwnEntries(name), Lines{}) << name;
        const Lines only = {std::string("ProPopupmenuIdGet(popup=\"") + name + "\", id="};
        const Lines calls = CallsOfPopup(name);
        ASSERT_EQ(calls.size(), 1u);
        EXPECT_EQ(calls[0].substr(0, only[0].size()), only[0]);
    }
    EXPECT_EQ(OwnEntries(), kAllSix);
}

TEST_F(PopupMenus, TheNameOfThePopupIsComparedByteForByte) {
    StartAfterTheFirstPopup();
    using Handler = ProError (*)(char*);
    // Through a type of its own: each event has a parameter list behind the one type of the door.
    const auto given = host().commands.Notification(PRO_POPUPMENU_CREATE_POST);
    const auto handler = reinterpret_cast<Handler>(reinterpret_cast<void (*)()>(given));
    ASSERT_TRUE(handler);
    for (std::string name : {"sel obj menu", "Sel Obj Menu ", " Sel Obj Menu", "Sel Obj Men",
                             "Sel Obj Menu2", "Sel  Obj Menu", "S", ""}) {
        host().journal.Clear();
        host().journal.Start();
        EXPECT_EQ(handler(name.data()), PRO_TK_NO_ERROR);
        host().journal.Stop();
        EXPECT_EQ(Calls(), Lines{"ProPopupmenuIdGet(popup=\"" + name + "\") = -4"});
    }
}

TEST_F(PopupMenus, TheButtonsStandBehindTheHostsOwn) {
    StartWithPopups();
    Select({PRO_PART});
    const std::size_t own = OpenPopup().size();
    const auto& entries = OpenPopup();
    ASSERT_EQ(entries.size(), own + 6);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i].command != nullptr, i >= own) << i;
    }
}

// --- What the first popup registers ---

TEST_F(PopupMenus, TheFirstPopupRegistersFiveCommandsAndHandsOver) {
    StartWithPopups();
    Lines wanted;
    for (const PopupCommand& each : kCommands) {
        const std::string button = Utf8(FromSystemCodePage(each.actionMenuBytes));
        wanted.push_back("ProCmdActionAdd(name=\"" + each.name +
                         "\", action=function, priority=5, access=function, inNonActiveWindow=0, "
                         "inAccessoryWindow=0, command=command " +
                         each.name + ") = 0");
        wanted.push_back("ProMenubarmenuPushbuttonAdd(menu=\"ActionMenu\", button=\"" + button +
                         "\", labelKey=\"" + each.name + "\", helpKey=\"" + each.name +
                         "_Help\", neighbour=null, afterNeighbour=1, command=command " + each.name +
                         ", messageFile=\"vxMenu.txt\") = 0");
    }
    wanted.push_back("ProNotificationSet(type=72) = 0");
    EXPECT_EQ(CallsOfPopup(), wanted);
}

TEST_F(PopupMenus, ActionMenuNamesItsButtonsInTheSystemCodePage) {
    StartAfterTheFirstPopup();
    const Menu* menu = host().commands.FindMenu("ActionMenu");
    ASSERT_TRUE(menu);
    ASSERT_EQ(menu->buttons.size(), 5u);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(ToSystemCodePage(Wide(menu->buttons[i].name)), kCommands[i].actionMenuBytes);
        EXPECT_EQ(menu->buttons[i].command->name, kCommands[i].name);
        EXPECT_EQ(menu->buttons[i].label,
                  host().messages.Find(WIDE("vxMenu.txt"), Wide(kCommands[i].name)));
    }
}

TEST_F(PopupMenus, ReverseVisibilityHasTwoNames) {
    StartAfterTheFirstPopup();
    EXPECT_TRUE(host().commands.FindButton("ActionMenu", "反向隐藏"));
    Select({PRO_PART});
    EXPECT_EQ(Utf8(OpenPopup().at(4).label), "反转显示(vx)");
}

TEST_F(PopupMenus, TheSecondRegistrationHasItsOwnPriorityAndRule) {
    StartAfterTheFirstPopup();
    for (const PopupCommand& each : kCommands) {
        SCOPED_TRACE(each.name);
        const MenuButton* action = host().commands.FindButton(
            "ActionMenu", Utf8(FromSystemCodePage(each.actionMenuBytes)));
        const MenuButton* main = host().commands.FindButton("Menu", each.name);
        ASSERT_TRUE(action && main);
        EXPECT_EQ(action->command->priority, 5);
        EXPECT_EQ(main->command->priority, 2);
        EXPECT_NE(action->command->id, main->command->id);
        // Assemblies answer both; a part tells the two rules apart.
        Open(*unit_);
        EXPECT_EQ(action->command->access(0), ACCESS_AVAILABLE);
        EXPECT_EQ(main->command->access(0), ACCESS_AVAILABLE);
        Open(*plate_);
        EXPECT_EQ(action->command->access(0),
                  each.onlyAssemblies ? ACCESS_INVISIBLE : ACCESS_AVAILABLE);
        EXPECT_EQ(main->command->access(0), ACCESS_INVISIBLE);
    }
}

TEST_F(PopupMenus, ManufacturingSeparatesTheRulesTheOtherWayRound) {
    StartAfterTheFirstPopup();
    Open(Manufacturing("MILL", *unit_));
    for (const PopupCommand& each : kCommands) {
        const MenuButton* action = host().commands.FindButton(
            "ActionMenu", Utf8(FromSystemCodePage(each.actionMenuBytes)));
        ASSERT_TRUE(action);
        EXPECT_EQ(action->command->access(0),
                  each.onlyAssemblies ? ACCESS_AVAILABLE : ACCESS_INVISIBLE)
            << each.name;
    }
}

// --- What a later popup does ---

TEST_F(PopupMenus, ALaterPopupMakesItsCallsInTheirOrder) {
    StartAfterTheFirstPopup();
    const Lines calls = CallsOfPopup();
    // The second popup of the host's run has the number 2.
    Lines wanted = {R"(ProPopupmenuIdGet(popup="Sel Obj Menu", id=2) = 0)"};
    for (const PopupCommand& each : kCommands) {
        const std::string command = "command=command " + each.name;
        wanted.push_back("ProCmdCmdIdFind(name=\"" + each.name + "\", " + command + ") = 0");
        wanted.push_back("ProPopupmenuButtonAdd(popup=2, position=-1, button=\"" + each.name +
                         "\", label=\"" + each.label + "\", help=\"" + each.name + "_Help\", " +
                         command + ", access=function, data=null) = 0");
    }
    wanted.insert(
        wanted.end(),
        {
            "ProCmdActionAdd(name=\"VxOpenDrw\", action=function, priority=2, access=function, "
            "inNonActiveWindow=0, inAccessoryWindow=0, command=command VxOpenDrw) = 0",
            "ProMessageToBuffer(buffer=\"打开工程图(vx)\", messageFile=\"vxMenu.txt\", "
            "key=\"VxOpenDrw\") = 0",
            "ProMessageToBuffer(buffer=\"打开与所选模型同名的工程图。\", "
            "messageFile=\"vxMenu.txt\", "
            "key=\"VxOpenDrw_Help\") = 0",
            "ProPopupmenuButtonAdd(popup=2, position=-1, button=\"VxOpenDrw\", "
            "label=\"打开工程图(vx)\", help=\"打开与所选模型同名的工程图。\", "
            "command=command VxOpenDrw, access=function, data=null) = 0",
            "ProMenubarmenuPushbuttonAdd(menu=\"ActionMenu\", button=\"VxOpenDrw\", "
            "labelKey=\"VxOpenDrw\", helpKey=\"VxOpenDrw_Help\", neighbour=null, afterNeighbour=1, "
            "command=command VxOpenDrw, messageFile=\"vxMenu.txt\") = 0",
        });
    // Nothing is selected, so each rule asks once and learns that.
    wanted.insert(wanted.end(), 6, "ProSelbufferSelectionsGet() = -4");
    EXPECT_EQ(calls, wanted);
}

TEST_F(PopupMenus, TheHelpOfTheFirstFiveIsTheKeyItselfAndThatOfTheSixthItsText) {
    StartAfterTheFirstPopup();
    Select({PRO_PART});
    const auto& entries = OpenPopup();
    ASSERT_EQ(entries.size(), 9u);  // three of the host's own
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(Utf8(entries[3 + i].label), kCommands[i].label);
        EXPECT_EQ(Utf8(entries[3 + i].help), kCommands[i].name + "_Help");
        EXPECT_EQ(entries[3 + i].command->priority, 5);  // the newest of that name
    }
    EXPECT_EQ(Utf8(entries[8].label), "打开工程图(vx)");
    EXPECT_EQ(Utf8(entries[8].help), "打开与所选模型同名的工程图。");
    EXPECT_EQ(entries[8].command->priority, 2);
}

TEST_F(PopupMenus, OpeningADrawingIsRegisteredOnPopupsOnlyWithoutIconAndRibbon) {
    StartAfterTheFirstPopup();
    EXPECT_FALSE(host().commands.Newest("VxOpenDrw"));
    OpenPopup();
    EXPECT_FALSE(host().commands.FindButton("Menu", "VxOpenDrw"));
    const MenuButton* button = host().commands.FindButton("ActionMenu", "VxOpenDrw");
    ASSERT_TRUE(button);
    EXPECT_EQ(button->command->icon, "");
    EXPECT_FALSE(button->command->designated);
    EXPECT_EQ(button->command->priority, 2);
    EXPECT_EQ(button->command->access(0), ACCESS_AVAILABLE);  // an assembly
    Open(*plate_);
    EXPECT_EQ(button->command->access(0), ACCESS_AVAILABLE);
    Open(Manufacturing("MILL", *unit_));
    EXPECT_EQ(button->command->access(0), ACCESS_INVISIBLE);
}

TEST_F(PopupMenus, OpeningADrawingIsRegisteredAgainForEachPopup) {
    StartAfterTheFirstPopup();
    Select({PRO_PART});
    const auto count = [this] {
        const auto& all = host().commands.registrations();
        return std::count_if(all.begin(), all.end(),
                             [](const Command& each) { return each.name == "VxOpenDrw"; });
    };
    for (int times = 1; times <= 3; ++times) {
        EXPECT_EQ(OwnEntries(), kAllSix);
        EXPECT_EQ(count(), times);
    }
    // ActionMenu has the button already and refuses it; nobody hears of that.
    const Menu* menu = host().commands.FindMenu("ActionMenu");
    EXPECT_EQ(menu->buttons.size(), 6u);
    EXPECT_EQ(Boxes(), Lines{});
    const Lines calls = CallsOfPopup();
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const std::string& line) {
                                return line.substr(0, 27) == "ProMenubarmenuPushbuttonAdd" &&
                                       line.substr(line.size() - 4) == "= -5";
                            }),
              1);
}

TEST_F(PopupMenus, OnlyOpeningADrawingIsRegisteredByALaterPopup) {
    StartAfterTheFirstPopup();
    const std::size_t before = host().commands.registrations().size();
    EXPECT_EQ(before, 56u + 5u);
    OpenPopup();
    OpenPopup();
    EXPECT_EQ(host().commands.registrations().size(), before + 2);
}

// --- The setting ---

TEST_F(PopupMenus, NeedAnExplicitNought) {
    for (const char* value : {"0", " 0 ", "\" 0 \"", "\"0 \""}) {
        TextFolderSetting("RmbDisable", value);
        host().journal.Clear();
        host().journal.Start();
        Start();
        EXPECT_EQ(host().journal.Names().back(), "ProNotificationSet") << value;
        workplace_->StopPlugin();
    }
}

TEST_F(PopupMenus, StayAsTheyAreForAnyOtherValue) {
    for (const char* value : {"1", "", "00", "0x", "0.0", "no", "０", "-0", "true"}) {
        TextFolderSetting("RmbDisable", value);
        host().journal.Clear();
        host().journal.Start();
        Start();
        const Lines names = host().journal.Names();
        EXPECT_EQ(std::count(names.begin(), names.end(), "ProNotificationSet"), 0) << value;
        workplace_->StopPlugin();
    }
}

TEST_F(PopupMenus, StayAsTheyAreWithoutTheSettingsFile) {
    std::filesystem::remove(
        host().disk.Real(workbench::kTextFolder + WIDE("\\VXconfig\\VxConfig.ini")));
    Setting("RmbDisable", "0");
    Start();
    Model& unit = Assembly("UNIT");
    Open(unit);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(OwnEntries(), Lines{});
    EXPECT_EQ(host().commands.registrations().size(), 56u);
}

TEST_F(PopupMenus, StayAsTheyAreWithoutTheSectionOrTheKey) {
    for (const char* bytes : {"[SetLastDir]\r\nvalue=0\r\n", "[RmbDisable]\r\npath=0\r\n", ""}) {
        Write(workbench::kTextFolder + WIDE("\\VXconfig\\VxConfig.ini"), bytes);
        Start();
        OpenPopup();
        EXPECT_EQ(host().commands.registrations().size(), 56u) << bytes;
        workplace_->StopPlugin();
    }
}

TEST_F(PopupMenus, FollowTheTextFolderAndNotTheFolderOfTheModule) {
    Setting("RmbDisable", "1");
    StartAfterTheFirstPopup();
    Select({PRO_PART});
    EXPECT_EQ(OwnEntries(), kAllSix);
}

TEST_F(PopupMenus, AreLeftAloneByAFolderOfTheModuleThatWouldAllowThem) {
    Setting("RmbDisable", "0");
    TextFolderSetting("RmbDisable", "1");
    Start();
    OpenPopup();
    EXPECT_EQ(host().commands.registrations().size(), 56u);
}

// --- For which selections the buttons are shown ---

TEST_F(PopupMenus, ShowNoButtonWithoutASelection) {
    StartAfterTheFirstPopup();
    EXPECT_EQ(OwnEntries(), Lines{});
}

TEST_F(PopupMenus, ShowAllSixForOneAssemblyOrPart) {
    StartAfterTheFirstPopup();
    for (const int type : {1, 2}) {
        Select({type});
        EXPECT_EQ(OwnEntries(), kAllSix) << type;
    }
}

TEST_F(PopupMenus, ShowTheSingleItemButtonsForOneItemOfGeometry) {
    StartAfterTheFirstPopup();
    for (const int type : {5, 6, 25, 66, 71, 72, 176}) {
        Select({type});
        EXPECT_EQ(OwnEntries(), kSingleThree) << type;
    }
}

TEST_F(PopupMenus, ShowNoButtonForOneItemOfAnotherKind) {
    StartAfterTheFirstPopup();
    for (const int type : {-1, 0, 3, 4, 7, 24, 26, 33, 37, 65, 67, 70, 73, 175, 177}) {
        Select({type});
        EXPECT_EQ(OwnEntries(), Lines{}) << type;
    }
}

TEST_F(PopupMenus, OfTwoSelectionsLookAtTheFirstAndWithholdTheSingleItemButtons) {
    StartAfterTheFirstPopup();
    Select({PRO_PART, PRO_SURFACE});
    EXPECT_EQ(OwnEntries(), kComponentThree);
    Select({PRO_ASSEMBLY, PRO_PART});
    EXPECT_EQ(OwnEntries(), kComponentThree);
    Select({PRO_SURFACE, PRO_PART});
    EXPECT_EQ(OwnEntries(), Lines{});
    Select({PRO_EDGE, PRO_EDGE});
    EXPECT_EQ(OwnEntries(), Lines{});
}

TEST_F(PopupMenus, OfManySelectionsLookAtTheFirst) {
    StartAfterTheFirstPopup();
    Select(std::vector<int>(50, PRO_PART));
    EXPECT_EQ(OwnEntries(), kComponentThree);
}

TEST_F(PopupMenus, DoNotAskForTheMode) {
    StartAfterTheFirstPopup();
    Select({PRO_PART});
    Fail("ProModeCurrentGet", {.forGood = true});
    EXPECT_EQ(OwnEntries(), kAllSix);
}

TEST_F(PopupMenus, LookAtNoItemOfAnArrayWhoseSizeCannotBeRead) {
    StartAfterTheFirstPopup();
    Select({PRO_PART});
    Fail("ProArraySizeGet", {.forGood = true});
    const Lines calls = CallsOfPopup();
    EXPECT_EQ(std::count_if(calls.begin(), calls.end(),
                            [](const std::string& line) {
                                return line.substr(0, 24) == "ProSelectionModelitemGet";
                            }),
              0);
    EXPECT_EQ(OwnEntries(), Lines{});
}

TEST_F(PopupMenus, ShowNoButtonForAnItemThatCannotBeRead) {
    StartAfterTheFirstPopup();
    Select({PRO_PART});
    Fail("ProSelectionModelitemGet", {.forGood = true});
    EXPECT_EQ(OwnEntries(), Lines{});
}

TEST_F(PopupMenus, ForgetTheItemOfTheRuleBefore) {
    // Only the first rule can read its item; the later ones must not live on what it has read.
    StartAfterTheFirstPopup();
    Select({PRO_PART});
    Fail("ProSelectionModelitemGet", {.n = 2, .forGood = true});
    EXPECT_EQ(OwnEntries(), Lines{"VxIsolate"});
}

TEST_F(PopupMenus, LeaveTheArraysOfSelectionsToTheHost) {
    StartAfterTheFirstPopup();
    Select({PRO_PART, PRO_PART});
    OpenPopup();
    // One array for each rule.
    const Lines held = host().arrays.Held();
    EXPECT_EQ(held.size(), 6u);
    for (const std::string& line : held) {
        EXPECT_EQ(line.find("popup access, ProSelbufferSelectionsGet: 2 objects"), 0u) << line;
    }
    EXPECT_EQ(host().arrays.HeldByMistake(), Lines{});
}

// --- Failures ---

TEST_F(PopupMenus, AreHookedOverAlsoWhenNoCommandCanBeRegistered) {
    StartWithPopups();
    Fail("ProMenubarmenuPushbuttonAdd", {.forGood = true});
    OpenPopup();
    Operation::ForgetFaults();
    Select({PRO_PART});
    EXPECT_EQ(OwnEntries(), kAllSix);
}

TEST_F(PopupMenus, KeepTheOtherButtonsWhenOneCannotBeAdded) {
    StartAfterTheFirstPopup();
    Select({PRO_PART});
    Fail("ProPopupmenuButtonAdd", {.n = 2});
    const Lines five = {"VxIsolate", "VxShowAllComp", "VxMdlNameCopy", "VxMdlRename", "VxOpenDrw"};
    EXPECT_EQ(OwnEntries(), five);
}

TEST_F(PopupMenus, ShowAnEmptyLabelWhenTheTextOfOpeningADrawingIsMissing) {
    StartAfterTheFirstPopup();
    Select({PRO_PART});
    Fail("ProMessageToBuffer", {.forGood = true, .status = PRO_TK_MSG_NOT_FOUND});
    const auto& entries = OpenPopup();
    ASSERT_EQ(entries.size(), 9u);
    EXPECT_EQ(entries[8].label, WIDE(""));
    EXPECT_EQ(entries[8].help, WIDE(""));
}

}  // namespace
