// VxSimRep: the name, what becomes a member, and what the screen shows then.
#include "simhost/model/shown.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::ModelNamed;
using workbench::Names;
using workbench::ObservedBench;

class SimRep : public ObservedBench {
protected:
    // TOP holds BOLT (1, 2), SUB (3) with PLATE (1) and BOLT (2), and a second SUB (4).
    void SetUp() override {
        top_ = &MakeModels("top: bolt x2, sub(plate, bolt), sub");
        Open(*top_);
        Start();
    }
    // The parts on the screen by their ways, as "1 / 3 2".
    std::string OnScreen() {
        std::string all;
        VisitShown(*top_, Sight::Screen, [&](const ShownPart& shown) {
            all += all.empty() ? "" : " /";
            for (const int id : *shown.path) {
                all += (all.empty() ? "" : " ") + std::to_string(id);
            }
        });
        return all;
    }
    std::string Active() {
        const Simprep* active = top_->ActiveSimprep();
        return active ? Utf8(active->name) : "";
    }
    Model* top_ = nullptr;
};

TEST_F(SimRep, WhatWasSelectedIsAllThatIsThere) {
    Play("@ select bolt:2, sub:2\n~ Command `VxSimRep`\n@ answer light");
    EXPECT_EQ(Active(), "LIGHT");
    EXPECT_EQ(OnScreen(), "2 / 4 1 / 4 2");
    EXPECT_TRUE(top_->modified);
    EXPECT_EQ(host().session.current->repaints, 1);
}

TEST_F(SimRep, APartDeepDownBringsItsAssemblyWithoutTheOthersInIt) {
    Play("@ select sub/plate\n~ Command `VxSimRep`\n@ answer deep");
    EXPECT_EQ(OnScreen(), "3 1");
}

TEST_F(SimRep, WithoutASelectionTheUserIsAskedToPick) {
    Play("~ Command `VxSimRep`\n@ expect message 请\n@ answer picked\n@ pick bolt, sub/bolt");
    EXPECT_EQ(OnScreen(), "1 / 3 2");
    EXPECT_EQ(host().session.current->repaints, 2);  // shown again after a second, empty round
}

TEST_F(SimRep, TheMessageLineAsksForThePickAndOneItemIsEnough) {
    Play(
        "~ Command `VxSimRep`\n@ answer one\n"
        "@ expect message \"请选择要包含在简化表示中的零件或组件：\"\n@ pick bolt:2");
    EXPECT_EQ(OnScreen(), "2");
}

// What such a pick has brought is not looked at.
TEST_F(SimRep, AFailedPickLeavesTheRepresentationInactive) {
    Operation::Fail({.operation = "ProSelect", .n = 1, .afterWork = true});
    Play("~ Command `VxSimRep`\n@ answer failed\n@ pick bolt, bolt:2");
    EXPECT_EQ(top_->assemblyData.simpreps.size(), 1u);
    EXPECT_EQ(Active(), "");
}

TEST_F(SimRep, WithoutAPickTheRepresentationIsThereAndNotActive) {
    Play("~ Command `VxSimRep`\n@ answer none\n@ pick nothing");
    Play("~ Command `VxSimRep`\n@ answer left\n@ quit");
    ASSERT_EQ(top_->assemblyData.simpreps.size(), 2u);
    EXPECT_EQ(Active(), "");
    EXPECT_EQ(OnScreen(), "1 / 2 / 3 1 / 3 2 / 4 1 / 4 2");
    EXPECT_EQ(top_->assemblyData.simpreps[0].defaultAction, 3);
    EXPECT_TRUE(top_->assemblyData.simpreps[0].items.empty());
}

TEST_F(SimRep, ANameThatCannotBeReadAfterATakenOneIsEmptyAndNotTheTakenOne) {
    Play("@ select bolt\n~ Command `VxSimRep`\n@ answer light");
    Fail("ProMessageStringRead", {.n = 2});
    Play("~ Command `VxSimRep`\n@ answer light\n@ ok");
    // The empty name counts as free, and the host makes nothing of it.
    EXPECT_EQ(AllBoxes().size(), 1u);
    EXPECT_EQ(top_->assemblyData.simpreps.size(), 1u);
}

TEST_F(SimRep, ATakenNameIsRefusedAsOftenAsItIsTyped) {
    Play("@ select bolt\n~ Command `VxSimRep`\n@ answer light");
    const std::string refused =
        "@ answer LIGHT\n@ expect box \"\\t该简化表示名称已存在或非法，请重新输入\\t\"\n@ ok\n";
    Play("~ Command `VxSimRep`\n" + refused + refused + "@ answer other");
    ASSERT_EQ(top_->assemblyData.simpreps.size(), 2u);
    EXPECT_EQ(Active(), "OTHER");
    for (const Box& box : AllBoxes()) {
        EXPECT_EQ(box.flags, 0u);
        EXPECT_TRUE(box.hasCaption);
    }
}

TEST_F(SimRep, QuittingThePromptMakesNothing) {
    Record();
    Play("@ select bolt\n~ Command `VxSimRep`\n@ quit");
    EXPECT_EQ(Lines("ProSimprepdataAlloc"), Names{});
    EXPECT_TRUE(top_->assemblyData.simpreps.empty());
    EXPECT_FALSE(top_->modified);
}

TEST_F(SimRep, ANameThatCannotBeGivenEndsTheCommandInSilence) {
    for (const std::string name : {"\"\"", "\"a b\"", "\"a/b\""}) {
        Play("@ select bolt\n~ Command `VxSimRep`\n@ answer " + name);
    }
    EXPECT_TRUE(top_->assemblyData.simpreps.empty());
}

TEST_F(SimRep, AnyFailureOfThePromptButLeavingItCountsAsAnAnswer) {
    Fail("ProMessageStringRead", {.status = PRO_TK_GENERAL_ERROR});
    Record();
    Play("@ select bolt\n~ Command `VxSimRep`");
    // The empty name is free, and refused when it is to be made.
    EXPECT_EQ(Lines("ProAssemblySimprepRetrieve").size(), 1u);
    EXPECT_EQ(Lines("ProSimprepCreate").size(), 1u);
    EXPECT_TRUE(top_->assemblyData.simpreps.empty());
}

TEST_F(SimRep, InAManufacturingModelItsAssemblyGetsItAndEveryNameCountsAsFree) {
    Open(Manufacturing("mill", *top_));
    Record();
    Play("@ select bolt\n~ Command `VxSimRep`\n@ answer light");
    EXPECT_EQ(Active(), "LIGHT");
    ASSERT_EQ(Lines("ProAssemblySimprepRetrieve").size(), 1u);
    EXPECT_NE(Lines("ProAssemblySimprepRetrieve")[0].find("assembly=\"MILL\""), std::string::npos);
    Play("@ select sub\n~ Command `VxSimRep`\n@ answer light");  // refused without a word
    EXPECT_EQ(top_->assemblyData.simpreps.size(), 1u);
}

TEST_F(SimRep, TheTopAsPickedAndAWayThatCannotBeHadArePassedOver) {
    Fail("ProSelectionAsmcomppathGet", {.n = 2});
    Play("@ select ., bolt, bolt:2\n~ Command `VxSimRep`\n@ answer light");
    EXPECT_EQ(OnScreen(), "2");
}

TEST_F(SimRep, ItsCallsComeInTheirOrder) {
    Play("@ select sub/plate");
    Record();
    Play("~ Command `VxSimRep`\n@ answer light");
    EXPECT_EQ(Recorded(), (Names{"ProModeCurrentGet",
                                 "ProMdlCurrentGet",
                                 "ProMdlNameGet",
                                 "ProMdlTypeGet",
                                 "ProMessageDisplay",
                                 "ProMessageStringRead",
                                 "ProAssemblySimprepRetrieve",
                                 "ProSimprepdataAlloc",
                                 "ProSimprepInit",
                                 "ProSimprepCreate",
                                 "ProSelbufferSelectionsGet",
                                 "ProArraySizeGet",
                                 "ProSimprepActionInit",
                                 "ProSelectionAsmcomppathGet",
                                 "ProSimprepitemInit",
                                 "ProSimprepdataitemAdd",
                                 "ProSimprepdataSet",
                                 "ProSimprepActivate",
                                 "ProSolidDisplay",
                                 "ProArrayFree",
                                 "ProSimprepdataFree"}));
    EXPECT_NE(Lines("ProMessageStringRead").at(0).find("(size=32"), std::string::npos);
    EXPECT_NE(Lines("ProSimprepdataAlloc").at(0).find("name=\"light\", temporary=0, action=3"),
              std::string::npos);
    EXPECT_NE(Lines("ProSimprepInit").at(0).find("id=-1"), std::string::npos);
    EXPECT_NE(Lines("ProSimprepActionInit").at(0).find("type=2"), std::string::npos);
    EXPECT_NE(Lines("ProSimprepitemInit").at(0).find("path=[3, 1], feature=-1"), std::string::npos);
}

// --- Who is asked about a component alone is told if no use of it is there

TEST_F(SimRep, AComponentIsOutForTheOtherCommandsOnlyIfAllItsUsesAre) {
    Play("@ select sub/plate\n~ Command `VxSimRep`\n@ answer deep");
    const auto statusOf = [](Model& owner, int id) {
        ProFeature feature = {PRO_FEATURE, id, owner.handle};
        ProFeatStatus status = PRO_FEAT_STAT_INVALID;
        EXPECT_EQ(ProFeatureStatusGet(&feature, &status), PRO_TK_NO_ERROR);
        return status;
    };
    Model& sub = ModelNamed("sub.asm");
    EXPECT_EQ(statusOf(*top_, 1), PRO_FEAT_SIMPREP_SUPPRESSED);
    EXPECT_EQ(statusOf(*top_, 3), PRO_FEAT_ACTIVE);
    EXPECT_EQ(statusOf(*top_, 4), PRO_FEAT_SIMPREP_SUPPRESSED);
    EXPECT_EQ(statusOf(sub, 1), PRO_FEAT_ACTIVE);  // there in the first use of SUB
    EXPECT_EQ(statusOf(sub, 2), PRO_FEAT_SIMPREP_SUPPRESSED);
    Open(sub);
    EXPECT_EQ(statusOf(sub, 2), PRO_FEAT_ACTIVE);  // the representation is the other assembly's
}

}  // namespace
