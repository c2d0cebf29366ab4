// Picks that the host asks for: what filters and limits take, boxes on the screen, and how long the
// handles of selections live.
#include "hostapi/host.h"
#include "simhost/model/picking.h"
#include "simhost/trail/robot.h"
#include "tests/simhost/trail_ground.h"

using namespace simhost;
using namespace trails;

namespace {

std::string filterAsked;
int mostAsked = -1;
ProSelectionEnv environment = nullptr;
ProError status = PRO_TK_NO_ERROR;
int picked = -7;
ProSelection* selections = nullptr;

ProError AskForPick() {
    picked = -7;
    selections = nullptr;
    status = ProSelect(filterAsked.data(), mostAsked, nullptr, nullptr, environment, nullptr,
                       &selections, &picked);
    return status;
}

int Picks(uiCmdCmdId, uiCmdValue*, void*) {
    return AskForPick();
}

ProSelectionEnv Environment(int box) {
    ProSelectionEnvOption options[] = {{PRO_SELECT_DONE_REQUIRED, 0},
                                       {PRO_SELECT_BY_MENU_ALLOWED, 1},
                                       {PRO_SELECT_BY_BOX_ALLOWED, box}};
    ProSelectionEnv made = nullptr;
    EXPECT_EQ(ProSelectionEnvAlloc(options, 3, &made), PRO_TK_NO_ERROR);
    return made;
}

// TOP holds the unit 箱体, which holds SHAFT twice, and SHAFT again.
class PicksOfTheHost : public ModelScripts {
protected:
    void SetUp() override {
        ModelScripts::SetUp();
        uiCmdCmdId id = nullptr;
        ProCmdActionAdd(const_cast<char*>("Picks"), Picks, 5, nullptr, PRO_B_FALSE, PRO_B_FALSE,
                        &id);
        environment = nullptr;
    }
    // Presses the command and plays the answers.
    Failures PickBy(const std::string& filter, const std::string& answers, int most = -1) {
        filterAsked = filter;
        mostAsked = most;
        return Run("~ Command `Picks`\n" + answers);
    }
    // "shaft.prt 2 at 1 2": owner, type and way of the i-th picked item.
    std::string Item(int i) {
        ProModelitem item{};
        ProAsmcomppath path{};
        EXPECT_EQ(ProSelectionModelitemGet(selections[i], &item), PRO_TK_NO_ERROR);
        EXPECT_EQ(ProSelectionAsmcomppathGet(selections[i], &path), PRO_TK_NO_ERROR);
        EXPECT_EQ(path.owner, static_cast<ProSolid>(top_->handle));
        std::string text =
            host().session.Find(item.owner)->FileName() + " " + std::to_string(item.type) + " at";
        for (int k = 0; k < path.table_num; ++k) text += " " + std::to_string(path.comp_id_tab[k]);
        return text;
    }
    int unitId_ = 1, shaftId_ = 2;  // in TOP; in 箱体 the two are 1 and 2
};

TEST_F(PicksOfTheHost, ComponentsArePickedByTheirPathsInTheGivenOrder) {
    EXPECT_EQ(PickBy("prt_or_asm", "@ pick 箱体/shaft:2, 箱体, shaft"), Failures{});
    EXPECT_EQ(status, PRO_TK_NO_ERROR);
    ASSERT_EQ(picked, 3);
    EXPECT_EQ(Item(0), "shaft.prt 2 at 1 2");
    EXPECT_EQ(Item(1), "箱体.asm 1 at 1");
    EXPECT_EQ(Item(2), "shaft.prt 2 at 2");
    int size = 0;
    EXPECT_EQ(ProArraySizeGet(selections, &size), PRO_TK_NO_ERROR);
    EXPECT_EQ(size, 3);
    EXPECT_TRUE(Told("pick: prt_or_asm, any number\n"));
    EXPECT_TRUE(host().session.selections.buffer().empty());
}

TEST_F(PicksOfTheHost, APickCanBeOfNothingOrLeft) {
    EXPECT_EQ(PickBy("part", "@ pick nothing"), Failures{});
    EXPECT_EQ(status, PRO_TK_NO_ERROR);
    EXPECT_EQ(picked, 0);
    EXPECT_EQ(PickBy("part", "@ quit"), Failures{});
    EXPECT_EQ(status, PRO_TK_USER_ABORT);
    EXPECT_EQ(picked, -7);
}

TEST_F(PicksOfTheHost, WhatTheFilterOrTheCountDoesNotAllowIsToldAndAskedAgain) {
    EXPECT_EQ(PickBy("part", "@ pick 箱体\n@ pick shaft"),
              Failures{"line 2: 箱体.asm cannot be picked now, only part"});
    EXPECT_EQ(picked, 1);
    EXPECT_EQ(PickBy("surface", "@ pick shaft\n@ pick shaft#12"),
              Failures{"line 2: shaft.prt cannot be picked now, only surface"});
    EXPECT_EQ(Item(0), "shaft.prt 5 at 2");
    EXPECT_EQ(PickBy("part", "@ pick shaft, 箱体/shaft\n@ pick shaft", 1),
              Failures{"line 2: 2 are too many: at most 1 can be picked"});
    EXPECT_EQ(picked, 1);
    EXPECT_EQ(PickBy("surface,sldface,qltface", "@ pick shaft#12, shaft#13"), Failures{});
    EXPECT_EQ(picked, 2);
    EXPECT_EQ(PickBy("qltface", "@ pick shaft#12\n@ quit").size(), 1u);
    EXPECT_EQ(PickBy("part", "@ pick shaf\n@ quit"),
              Failures{"line 2: top.asm holds no component shaf; did you mean shaft.prt?"});
}

TEST_F(PicksOfTheHost, APickThatNoLineAnswersFailsAndIsLeft) {
    EXPECT_EQ(
        PickBy("part", ""),
        Failures{"line 1: the host waits for a pick (part, any number) and the script is at its "
                 "end"});
    EXPECT_EQ(status, PRO_TK_USER_ABORT);
    EXPECT_EQ(PickBy("part", "~ Command `Runs`").size(), 1u);
    EXPECT_EQ(status, PRO_TK_USER_ABORT);
    EXPECT_EQ(Failure("@ pick shaft"),
              "line 1: no command waits for a pick; select selects before one");
    EXPECT_EQ(AskForPick(), PRO_TK_USER_ABORT);
    EXPECT_EQ(Complaints(), std::vector<std::string>{"nobody answers the pick: part, any number"});
}

TEST_F(PicksOfTheHost, AFilterThatNoHostKnowsIsAComplaint) {
    filterAsked = "part,prat";
    EXPECT_EQ(AskForPick(), PRO_TK_BAD_INPUTS);
    filterAsked = "";
    EXPECT_EQ(AskForPick(), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), (std::vector<std::string>{
                                "ProSelect: the filter has a word that is none: prat",
                                "ProSelect: the filter has a word that is none: an empty word"}));
}

TEST_F(PicksOfTheHost, AManufacturingModelIsPickedFromItsAssembly) {
    Open(Manufacturing("MILL", *top_));
    EXPECT_EQ(PickBy("part", "@ pick shaft"), Failures{});
    EXPECT_EQ(Item(0), "shaft.prt 2 at 2");
}

TEST_F(PicksOfTheHost, InAPartItsOwnSurfacesArePickedByAPathWithoutComponents) {
    Open(*shaft_);
    EXPECT_EQ(PickBy("surface", "@ pick #12"), Failures{});
    ProAsmcomppath path{};
    ASSERT_EQ(ProSelectionAsmcomppathGet(selections[0], &path), PRO_TK_NO_ERROR);
    EXPECT_EQ(path.table_num, 0);
    EXPECT_EQ(path.owner, static_cast<ProSolid>(shaft_->handle));
}

// --- Boxes

// The screen is 1000 x 800 and shows everything, so that a box around it takes all.
TEST_F(PicksOfTheHost, ABoxTakesTheShownPartsThatLieWhollyInItInTreeOrder) {
    top_->FindFeature(shaftId_)->placement.origin = {1000, 0, 0};
    environment = Environment(1);
    EXPECT_EQ(PickBy("part", "@ pick box 0 0 1000 800"), Failures{});
    ASSERT_EQ(picked, 3);
    EXPECT_EQ(Item(0), "shaft.prt 2 at 1 1");
    EXPECT_EQ(Item(1), "shaft.prt 2 at 1 2");
    EXPECT_EQ(Item(2), "shaft.prt 2 at 2");
    EXPECT_TRUE(Told("pick: part, any number, or a box"));
    // The one that was moved to x = 1000 stands at the lower right; from right to left is alike.
    EXPECT_EQ(PickBy("part", "@ pick box 1000 0 500 800"), Failures{});
    ASSERT_EQ(picked, 1);
    EXPECT_EQ(Item(0), "shaft.prt 2 at 2");
    unit_->FindFeature(1)->hidden = true;
    unit_->FindFeature(2)->visible = false;
    EXPECT_EQ(PickBy("part", "@ pick box 1000 800 0 0"), Failures{});
    EXPECT_EQ(picked, 1);
    EXPECT_EQ(PickBy("prt_or_asm", "@ pick box 0 0 1000 800"), Failures{});
    EXPECT_EQ(picked, 1);  // no assembly, though all of one is inside
}

TEST_F(PicksOfTheHost, ABoxAcrossAPartTakesThoseOfItsSurfacesThatAreInsideAlone) {
    Open(*shaft_);
    environment = Environment(1);
    EXPECT_EQ(PickBy("surface", "@ pick box 0 0 1000 800"), Failures{});
    EXPECT_EQ(picked, 6);
    // A box of 10 x 20 x 30: its upper side, surface 16, is the only one that does not come down
    // below the middle of the screen.
    EXPECT_EQ(PickBy("surface", "@ pick box 0 400 1000 800"), Failures{});
    ASSERT_EQ(picked, 1);
    ProModelitem item{};
    ProSelectionModelitemGet(selections[0], &item);
    EXPECT_EQ(item.id, 16);
}

TEST_F(PicksOfTheHost, ABoxNeedsItsOptionTwoCornersAndSomethingInside) {
    EXPECT_EQ(PickBy("part", "@ pick box 0 0 1000 800\n@ quit"),
              Failures{"line 2: no box can be drawn now: items are picked one by one"});
    environment = Environment(0);
    EXPECT_EQ(PickBy("part", "@ pick box 0 0 1000 800\n@ quit").size(), 1u);
    environment = Environment(1);
    EXPECT_EQ(PickBy("part", "@ pick box 3 3 3 3\n@ pick nothing"),
              Failures{"line 2: nothing that can be picked lies wholly in this box"});
    for (const char* wrong : {"", "0 0 1000", "0 0 1000 x", "0 0 1000 800 1", "0 0 1000 inf"}) {
        EXPECT_EQ(PickBy("part", std::string("@ pick box ") + wrong + "\n@ quit").size(), 1u)
            << wrong;
    }
    EXPECT_EQ(PickBy("part", "@ pick box 0 0 1000 800\n@ quit", 2),
              Failures{"line 2: 3 are too many: at most 2 can be picked"});
}

TEST_F(PicksOfTheHost, AnEnvironmentOfAnUnknownOptionIsRefused) {
    ProSelectionEnvOption option = {ProSelectionEnvAttr(99), 1};
    ProSelectionEnv made = nullptr;
    EXPECT_EQ(ProSelectionEnvAlloc(&option, 1, &made), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(), std::vector<std::string>{});
}

// --- A user without a mind

TEST_F(PicksOfTheHost, TheRobotPicksTheFirstItemOnTheScreenThatTheFilterTakes) {
    RobotUser robot;
    User* before = host().user;
    host().user = &robot;
    unit_->FindFeature(1)->hidden = true;
    filterAsked = "prt_or_asm";
    EXPECT_EQ(AskForPick(), PRO_TK_NO_ERROR);
    ASSERT_EQ(picked, 1);
    EXPECT_EQ(Item(0), "shaft.prt 2 at 1 2");
    filterAsked = "qltface";
    EXPECT_EQ(AskForPick(), PRO_TK_USER_ABORT);
    host().user = before;
}

// --- How long handles live

TEST_F(PicksOfTheHost, HandlesOfAPickEndWithTheNextOne) {
    EXPECT_EQ(PickBy("part", "@ pick shaft"), Failures{});
    const ProSelection old = selections[0];
    ProSelection* array = selections;
    EXPECT_EQ(PickBy("part", "@ quit"), Failures{});
    ProModelitem item{};
    EXPECT_EQ(ProSelectionModelitemGet(old, &item), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProSelbufferSelectionAdd(old), PRO_TK_BAD_INPUTS);
    int size = 0;
    ProArraySizeGet(array, &size);
    EXPECT_EQ(Complaints(),
              (std::vector<std::string>{"ProSelectionModelitemGet: a selection that has ended",
                                        "ProSelbufferSelectionAdd: a selection that has ended",
                                        "ProArraySizeGet: not a live array"}));
}

TEST_F(PicksOfTheHost, TheArrayOfAPickIsTheHostsOwn) {
    EXPECT_EQ(PickBy("part", "@ pick shaft"), Failures{});
    auto array = static_cast<ProArray>(selections);
    ProArrayFree(&array);
    EXPECT_EQ(Complaints(),
              std::vector<std::string>{"ProArrayFree: the array is the host's own: ProSelect"});
    EXPECT_EQ(host().arrays.Held(), std::vector<std::string>{});
}

TEST_F(PicksOfTheHost, WhatIsAddedToTheBufferIsACopyThatNoLaterPickEnds) {
    EXPECT_EQ(PickBy("part", "@ pick shaft, 箱体/shaft"), Failures{});
    EXPECT_EQ(ProSelbufferClear(), PRO_TK_NO_ERROR);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(ProSelbufferSelectionAdd(selections[i]), PRO_TK_NO_ERROR);
    }
    EXPECT_EQ(ProSelbufferSelectionAdd(nullptr), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(PickBy("part", "@ quit"), Failures{});
    ASSERT_EQ(ProSelbufferSelectionsGet(&selections), PRO_TK_NO_ERROR);
    EXPECT_EQ(Item(0), "shaft.prt 2 at 2");
    EXPECT_EQ(Item(1), "shaft.prt 2 at 1 1");
    auto array = static_cast<ProArray>(selections);
    EXPECT_EQ(ProArrayFree(&array), PRO_TK_NO_ERROR);
}

TEST_F(PicksOfTheHost, HandlesOfTheBufferEndWithTheirArrayOrWithTheBuffer) {
    EXPECT_EQ(Run("@ select shaft"), Failures{});
    ProSelection* first = nullptr;
    ProSelection* second = nullptr;
    ASSERT_EQ(ProSelbufferSelectionsGet(&first), PRO_TK_NO_ERROR);
    ASSERT_EQ(ProSelbufferSelectionsGet(&second), PRO_TK_NO_ERROR);
    const ProSelection one = first[0], other = second[0];
    auto array = static_cast<ProArray>(first);
    ProArrayFree(&array);
    ProModelitem item{};
    EXPECT_EQ(ProSelectionModelitemGet(one, &item), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProSelectionModelitemGet(other, &item), PRO_TK_NO_ERROR);
    ProSelbufferClear();
    EXPECT_EQ(ProSelectionModelitemGet(other, &item), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 2u);
    array = static_cast<ProArray>(second);
    ProArrayFree(&array);
}

TEST_F(PicksOfTheHost, AnErasedModelTakesItsSelectionsWithIt) {
    EXPECT_EQ(PickBy("part", "@ pick shaft"), Failures{});
    const ProSelection old = selections[0];
    EXPECT_EQ(Run("@ select shaft, 箱体\n@ erase top.asm"), Failures{});
    EXPECT_TRUE(host().session.selections.buffer().empty());
    ProModelitem item{};
    EXPECT_EQ(ProSelectionModelitemGet(old, &item), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
}

TEST_F(PicksOfTheHost, AnEmptyBufferIsNotFoundUnlessATestMakesItReadable) {
    ProSelection* array = nullptr;
    EXPECT_EQ(ProSelbufferSelectionsGet(&array), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(Run("@ selection empty"), Failures{});
    ASSERT_EQ(ProSelbufferSelectionsGet(&array), PRO_TK_NO_ERROR);
    int size = -1;
    ProArraySizeGet(array, &size);
    EXPECT_EQ(size, 0);
    auto freed = static_cast<ProArray>(array);
    ProArrayFree(&freed);
    EXPECT_EQ(Run("@ clear selection"), Failures{});
    EXPECT_EQ(ProSelbufferSelectionsGet(&array), PRO_TK_E_NOT_FOUND);
}

TEST_F(PicksOfTheHost, TheJournalShowsWhatWasAskedAndTheWayToWhatWasPicked) {
    environment = Environment(1);
    host().journal.Start();
    EXPECT_EQ(PickBy("part", "@ pick 箱体/shaft:2", 4), Failures{});
    Item(0);
    host().journal.Stop();
    const std::string text = host().journal.Text();
    const std::string selection = "selection of shaft.prt item -1 of type 2 at top.asm [1, 2]";
    EXPECT_NE(text.find("filter=\"part\", most=4, initial=null, functions=null, "
                        "environment=environment with a box, reference=null, selections=[" +
                        selection + "], count=1) = 0"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("ProSelectionAsmcomppathGet(selection=" + selection +
                        ", path=top.asm [1, 2]) = 0"),
              std::string::npos)
        << text;
}

}  // namespace
