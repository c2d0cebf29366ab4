// Commands and the menu bar of the simulated host, through the door and from the user's side.
#include <string>

#include "hostapi/host.h"
#include "tests/support/workbench.h"

using namespace simhost;

namespace {

int firstRuns = 0;
int secondRuns = 0;
uiCmdAccessState answer = ACCESS_AVAILABLE;
uiCmdAccessMode askedMode = -1;

int First(uiCmdCmdId, uiCmdValue*, void*) {
    return ++firstRuns;
}
int Second(uiCmdCmdId, uiCmdValue*, void*) {
    return ++secondRuns;
}
uiCmdAccessState Answer(uiCmdAccessMode mode) {
    askedMode = mode;
    return answer;
}
uiCmdAccessState Never(uiCmdAccessMode) {
    return ACCESS_INVISIBLE;
}

char* Narrow(const char* text) {
    return const_cast<char*>(text);
}
WideChar* File() {
    return const_cast<WideChar*>(WIDE("menu.txt"));
}

class CommandsOfTheHost : public workbench::Workbench {
protected:
    void SetUp() override {
        firstRuns = secondRuns = 0;
        answer = ACCESS_AVAILABLE;
        Write(workbench::kTextFolder + WIDE("\\text\\menu.txt"),
              "\xef\xbb\xbf"
              "Menu\nTools of mine\n我的工具\n#\nGo\nGo there\n去\n#\nGo_Help\nGoes\n\n#\n");
    }

    uiCmdCmdId Add(const char* name, uiCmdCmdActFn action, uiCmdAccessFn access) {
        uiCmdCmdId id = nullptr;
        EXPECT_EQ(ProCmdActionAdd(Narrow(name), action, 2, access, PRO_B_FALSE, PRO_B_FALSE, &id),
                  PRO_TK_NO_ERROR);
        return id;
    }
    ProError AddMenu(const char* name, const char* neighbour, ProBoolean after) {
        return ProMenubarMenuAdd(Narrow(name), Narrow("Menu"), Narrow(neighbour), after, File());
    }
    ProError AddButton(const char* menu, const char* button, uiCmdCmdId id,
                       const char* neighbour = nullptr, ProBoolean after = PRO_B_TRUE) {
        return ProMenubarmenuPushbuttonAdd(Narrow(menu), Narrow(button), Narrow(button),
                                           Narrow("Go_Help"), Narrow(neighbour), after, id, File());
    }
    std::string Order(const char* menu) {
        std::string order;
        for (const MenuButton& button : host().commands.FindMenu(menu)->buttons) {
            order += button.name + " ";
        }
        return order;
    }
    std::string Bar() {
        std::string order;
        for (const Menu& menu : host().commands.menus()) {
            if (menu.onBar) order += menu.name + " ";
        }
        return order;
    }
};

TEST_F(CommandsOfTheHost, ANameRegisteredTwiceHasTwoIdsAndTheNewestIsFound) {
    const uiCmdCmdId first = Add("Go", First, Answer);
    const uiCmdCmdId second = Add("Go", Second, Answer);
    EXPECT_NE(first, second);
    uiCmdCmdId found = nullptr;
    EXPECT_EQ(ProCmdCmdIdFind(Narrow("Go"), &found), PRO_TK_NO_ERROR);
    EXPECT_EQ(found, second);
}

TEST_F(CommandsOfTheHost, AnUnknownNameIsNotFoundAndTheOutputStays) {
    auto* const before = reinterpret_cast<uiCmdCmdId>(&firstRuns);
    uiCmdCmdId found = before;
    EXPECT_EQ(ProCmdCmdIdFind(Narrow("Nowhere"), &found), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(found, before);
}

TEST_F(CommandsOfTheHost, AnIdThatWasNeverGivenIsComplainedAbout) {
    auto* const invented = reinterpret_cast<uiCmdCmdId>(&firstRuns);
    EXPECT_EQ(ProCmdIconSet(invented, Narrow("go.png")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
}

TEST_F(CommandsOfTheHost, ACommandWithoutANameOrAPlaceForItsIdIsRefused) {
    uiCmdCmdId id = nullptr;
    EXPECT_EQ(ProCmdActionAdd(Narrow(""), First, 2, Answer, PRO_B_FALSE, PRO_B_FALSE, &id),
              PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProCmdActionAdd(Narrow("Go"), First, 2, Answer, PRO_B_FALSE, PRO_B_FALSE, nullptr),
              PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
    EXPECT_TRUE(host().commands.Names().empty());
}

TEST_F(CommandsOfTheHost, IconAndDesignationBelongToOneRegistration) {
    const uiCmdCmdId first = Add("Go", First, Answer);
    Add("Go", Second, Answer);
    EXPECT_EQ(ProCmdIconSet(first, Narrow("go.png")), PRO_TK_NO_ERROR);
    EXPECT_EQ(ProCmdDesignate(first, Narrow("Go"), Narrow("Go_Help"), Narrow("Unknown"), File()),
              PRO_TK_NO_ERROR);
    const Command& old = host().commands.registrations()[0];
    EXPECT_EQ(old.icon, "go.png");
    EXPECT_TRUE(old.designated);
    EXPECT_EQ(old.label, WIDE("去"));
    EXPECT_EQ(old.help, WIDE("Goes"));            // no translation: the original
    EXPECT_EQ(old.description, WIDE("Unknown"));  // no such key: the key
    EXPECT_EQ(old.priority, 2);
    EXPECT_TRUE(host().commands.registrations()[1].icon.empty());
    EXPECT_FALSE(host().commands.registrations()[1].designated);
}

TEST_F(CommandsOfTheHost, ANewMenuStandsBehindOrBeforeItsNeighbour) {
    EXPECT_EQ(AddMenu("Last", "Help", PRO_B_TRUE), PRO_TK_NO_ERROR);
    EXPECT_EQ(AddMenu("First", "File", PRO_B_FALSE), PRO_TK_NO_ERROR);
    EXPECT_EQ(Bar(),
              "First File Edit View Insert Analysis Info Applications Tools Window Help Last ");
    EXPECT_EQ(host().commands.FindMenu("Last")->title, WIDE("我的工具"));
}

TEST_F(CommandsOfTheHost, AMenuThatIsThereOrANeighbourThatIsNotIsRefused) {
    EXPECT_EQ(AddMenu("Mine", "Help", PRO_B_TRUE), PRO_TK_NO_ERROR);
    EXPECT_EQ(AddMenu("Mine", "Help", PRO_B_TRUE), PRO_TK_E_FOUND);
    EXPECT_EQ(AddMenu("Other", "Nowhere", PRO_B_TRUE), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(host().commands.FindMenu("Other"), nullptr);
}

TEST_F(CommandsOfTheHost, ButtonsGoToTheEndOrBesideTheirNeighbour) {
    const uiCmdCmdId id = Add("Go", First, Answer);
    EXPECT_EQ(AddButton("Tools", "A", id), PRO_TK_NO_ERROR);
    EXPECT_EQ(AddButton("Tools", "B", id), PRO_TK_NO_ERROR);
    EXPECT_EQ(AddButton("Tools", "C", id, "A", PRO_B_TRUE), PRO_TK_NO_ERROR);
    EXPECT_EQ(AddButton("Tools", "D", id, "A", PRO_B_FALSE), PRO_TK_NO_ERROR);
    EXPECT_EQ(Order("Tools"), "D A C B ");
}

TEST_F(CommandsOfTheHost, ARepeatedButtonAnUnknownMenuAndAnUnknownNeighbourAreRefused) {
    const uiCmdCmdId id = Add("Go", First, Answer);
    EXPECT_EQ(AddButton("Tools", "Go", id), PRO_TK_NO_ERROR);
    EXPECT_EQ(AddButton("Tools", "Go", id), PRO_TK_E_FOUND);
    EXPECT_EQ(AddButton("Nowhere", "Go", id), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(AddButton("Tools", "Other", id, "Nowhere"), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Order("Tools"), "Go ");
}

TEST_F(CommandsOfTheHost, AButtonShowsTheTextOfItsKeyOrTheKeyItself) {
    const uiCmdCmdId id = Add("Go", First, Answer);
    AddButton("Tools", "Go", id);
    AddButton("Tools", "Unknown", id);
    EXPECT_EQ(host().commands.FindButton("Tools", "Go")->label, WIDE("去"));
    EXPECT_EQ(host().commands.FindButton("Tools", "Go")->help, WIDE("Goes"));
    EXPECT_EQ(host().commands.FindButton("Tools", "Unknown")->label, WIDE("Unknown"));
}

TEST_F(CommandsOfTheHost, ButtonNamesOfTheActionMenuAreInTheSystemCodePage) {
    const uiCmdCmdId id = Add("Go", First, Answer);
    // "显示" in code page 936.
    EXPECT_EQ(AddButton("ActionMenu", "\xcf\xd4\xca\xbe", id), PRO_TK_NO_ERROR);
    ASSERT_NE(host().commands.FindButton("ActionMenu", "显示"), nullptr);
    EXPECT_TRUE(host().commands.PressButton("ActionMenu", "显示"));
    EXPECT_EQ(firstRuns, 1);
}

TEST_F(CommandsOfTheHost, APressAsksTheAccessFunctionForTheMenuBarAndRunsTheAction) {
    AddButton("Tools", "Go", Add("Go", First, Answer));
    const Pressed pressed = host().commands.Press("Go");
    EXPECT_TRUE(pressed);
    EXPECT_EQ(pressed.result, 1);
    EXPECT_EQ(askedMode, 0);
    EXPECT_EQ(firstRuns, 1);
}

TEST_F(CommandsOfTheHost, APressIsRefusedWithAReasonUnlessTheAnswerIsAvailable) {
    AddButton("Tools", "Go", Add("Go", First, Answer));
    for (const auto state : {ACCESS_REMOVE, ACCESS_INVISIBLE, ACCESS_UNAVAILABLE}) {
        answer = state;
        const Pressed pressed = host().commands.Press("Go");
        EXPECT_FALSE(pressed);
        EXPECT_NE(pressed.reason.find("while no model is open"), std::string::npos);
        EXPECT_EQ(host().commands.Access("Go"), state);
    }
    EXPECT_EQ(firstRuns, 0);
}

TEST_F(CommandsOfTheHost, AMisspeltCommandGetsTheNearNameAndNoAccess) {
    Add("VxIsolate", First, Answer);
    const Pressed pressed = host().commands.Press("VxIsolat");
    EXPECT_FALSE(pressed);
    EXPECT_NE(pressed.reason.find("did you mean VxIsolate?"), std::string::npos);
    EXPECT_EQ(host().commands.Access("VxIsolat"), std::nullopt);
}

TEST_F(CommandsOfTheHost, AButtonKeepsTheRegistrationThatItWasAddedWith) {
    AddButton("Tools", "Go", Add("Go", First, Answer));
    AddButton("ActionMenu", "Elsewhere", Add("Go", Second, Never));
    EXPECT_TRUE(host().commands.Press("Go"));
    EXPECT_EQ(firstRuns, 1);
    EXPECT_FALSE(host().commands.PressButton("ActionMenu", "Elsewhere"));
    EXPECT_EQ(secondRuns, 0);
}

TEST_F(CommandsOfTheHost, ACommandWithoutAButtonOnTheBarIsPressedByItsNewestRegistration) {
    Add("Go", First, Answer);
    AddButton("ActionMenu", "Go", Add("Go", Second, Answer));
    EXPECT_TRUE(host().commands.Press("Go"));
    EXPECT_EQ(firstRuns, 0);
    EXPECT_EQ(secondRuns, 1);
}

TEST_F(CommandsOfTheHost, AMenuAndAButtonThatDoNotExistAreNamedInTheReason) {
    AddButton("Tools", "Go", Add("Go", First, Answer));
    EXPECT_NE(host().commands.PressButton("Tolls", "Go").reason.find("did you mean Tools?"),
              std::string::npos);
    EXPECT_NE(host().commands.PressButton("Tools", "Gi").reason.find("did you mean Go?"),
              std::string::npos);
}

TEST_F(CommandsOfTheHost, AfterAnUnloadNothingOfThePlugInIsLeft) {
    AddMenu("Mine", "Help", PRO_B_TRUE);
    const uiCmdCmdId id = Add("Go", First, Answer);
    AddButton("Mine", "Go", id);
    host().commands.Clear();
    EXPECT_EQ(host().commands.FindMenu("Mine"), nullptr);
    EXPECT_FALSE(host().commands.Press("Go"));
    EXPECT_EQ(ProCmdIconSet(id, Narrow("go.png")), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
}

// --- Macros ------------------------------------------------------------------------------------

std::string order;

int QueuesAMacro(uiCmdCmdId, uiCmdValue*, void*) {
    ProMacroLoad(const_cast<WideChar*>(WIDE("~ Command `Inner`;")));
    order += "outer ";
    return 0;
}
int Inner(uiCmdCmdId, uiCmdValue*, void*) {
    order += "inner ";
    return 0;
}
int PressesAnother(uiCmdCmdId, uiCmdValue*, void*) {
    TheHost().commands.Press("Queues");
    order += "end ";
    return 0;
}
int QueuesItself(uiCmdCmdId, uiCmdValue*, void*) {
    ProMacroLoad(const_cast<WideChar*>(WIDE("~ Command `Endless`")));
    return 0;
}

TEST_F(CommandsOfTheHost, AMacroRunsWhenTheOutermostCommandHasReturned) {
    order.clear();
    Add("Queues", QueuesAMacro, Answer);
    Add("Inner", Inner, Answer);
    Add("Outermost", PressesAnother, Answer);
    EXPECT_TRUE(host().commands.Press("Outermost"));
    EXPECT_EQ(order, "outer end inner ");
    EXPECT_TRUE(host().macros.empty());
}

TEST_F(CommandsOfTheHost, AMacroStepThatCannotBeDoneIsComplainedAboutAndNothingAfterItIsDone) {
    order.clear();
    Add("Inner", Inner, Answer);
    host().macros = {WIDE("~ Command `Inner`;~ Activate `Nowhere` `OK`;~ Command `Inner`"),
                     WIDE("nonsense"), WIDE("~ Command `Inner`")};
    host().commands.RunMacros();
    EXPECT_EQ(order, "inner inner ");
    const auto complaints = Complaints();
    ASSERT_EQ(complaints.size(), 2u);
    EXPECT_NE(complaints[0].find("no dialog Nowhere is open"), std::string::npos);
    EXPECT_NE(complaints[1].find("its steps begin with ~"), std::string::npos);
}

TEST_F(CommandsOfTheHost, AMacrosCommandThatNobodyHasRegisteredIsToldAndPassedOver) {
    order.clear();
    Add("Inner", Inner, Answer);
    host().macros = {WIDE("~ Command `Nowhere` `diameter`;~ Command `Inner`")};
    host().commands.RunMacros();
    EXPECT_EQ(order, "inner ");
    ASSERT_FALSE(host().shown.empty());
    EXPECT_NE(Utf8(host().shown.back().text).find("there is no such command"), std::string::npos);
}

TEST_F(CommandsOfTheHost, MacrosWithoutEndAreStopped) {
    Add("Endless", QueuesItself, Answer);
    EXPECT_TRUE(host().commands.Press("Endless"));
    const auto complaints = Complaints();
    ASSERT_EQ(complaints.size(), 1u);
    EXPECT_NE(complaints[0].find("without end"), std::string::npos);
}

}  // namespace
