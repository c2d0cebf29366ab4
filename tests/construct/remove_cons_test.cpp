// VxRemoveCons: what becomes of the constraints of each component, and in which order.
#include <algorithm>

#include "simhost/model/constraints.h"
#include "simhost/system/windows.h"
#include "tests/support/observed.h"

namespace {

using namespace simhost;
using workbench::Joined;
using workbench::MakeModels;
using workbench::ModelNamed;
using workbench::Names;
using workbench::ObservedBench;

const std::string kPressOk = "~ Activate `VxRemoveCons` `OK`\n";
const std::string kDone =
    "@ expect box \"\\t\\t所有带约束元件均已更改为固定约束！\\t\\t\"\n"
    "@ expect caption 岚枢工具By墨川听雨,QQ:100200300\n@ ok\n";
const std::string kCancel = "~ Activate `VxRemoveCons` `Cancel`\n";

class RemoveCons : public ObservedBench {
protected:
    // TOP holds A (1, 2), SUB (3) with B (1), and a second SUB (4).
    void SetUp() override {
        top_ = &MakeModels("top: a x2, sub(b), sub");
        sub_ = &ModelNamed("sub.asm");
        Open(*top_);
        Start();
    }
    void Constrain(Model& assembly, int id, const std::vector<ProAsmcompConstrType>& types) {
        auto& constraints = FeatureOf(assembly, id).constraints.emplace();
        for (const ProAsmcompConstrType type : types) constraints.push_back({type, {}, {}});
    }
    void ConstrainAll() {
        for (const int id : {1, 2, 3, 4}) Constrain(*top_, id, {PRO_ASM_ALIGN});
        Constrain(*sub_, 1, {PRO_ASM_ALIGN});
    }
    // "fix", "align, mate", "none left", "none ever".
    std::string ConstraintsOf(Model& assembly, int id) {
        const auto& constraints = FeatureOf(assembly, id).constraints;
        if (!constraints) return "none ever";
        std::string text;
        for (const Constraint& each : *constraints) {
            text += (text.empty() ? "" : ", ") + std::string(ConstraintTypeName(each.type));
        }
        return text.empty() ? "none left" : text;
    }
    std::string AllConstraints() {
        std::string all;
        for (const int id : {1, 2, 3, 4}) all += ConstraintsOf(*top_, id) + " / ";
        return all + ConstraintsOf(*sub_, 1);
    }
    // Presses the button once; `between` answers what comes before the closing box.
    void Run(const std::string& between = {}) {
        Play("~ Command `VxRemoveCons`\n" + kPressOk + between + kDone + kCancel);
    }
    // The calls of the one button, without those of the dialog around it.
    Names Work() {
        Names calls = Recorded();
        const auto first = std::find(calls.begin(), calls.end(), "ProUIDialogActivate");
        const auto last = std::find(calls.begin(), calls.end(), "ProUIDialogExit");
        return first < last ? Names(first + 1, last) : Names{};
    }
    const std::string kAllFixed = "fix / fix / fix / fix / fix";
    Model *top_ = nullptr, *sub_ = nullptr;
};

const Names kWalkOfOne = {"ProMdlCurrentGet",
                          "ProMdlTypeGet",
                          "ProArrayAlloc",
                          "ProSolidFeatVisit",
                          "ProFeatureStatusflagsGet",
                          "ProFeatureTypeGet",
                          "ProFeatureStatusGet",
                          "ProFeatureVisibilityGet",
                          "ProArrayObjectAdd",
                          "ProAsmcompMdlGet",
                          "ProMdlTypeGet",
                          "ProArraySizeGet"};
const Names kFix = {"ProAsmcompRegenerate",
                    "ProArrayAlloc",
                    "ProAsmcompconstraintAlloc",
                    "ProAsmcompconstraintTypeSet",
                    "ProArrayObjectAdd",
                    "ProAsmcompConstraintsSet",
                    "ProArrayFree",
                    "ProAsmcompconstraintFree"};
const Names kEndOfCommand = {"ProArrayFree", "ProSolidRegenerate", "MessageBoxW"};

TEST_F(RemoveCons, EveryComponentAtEveryDepthEndsWithOneFixedConstraint) {
    ConstrainAll();
    Run();
    EXPECT_EQ(AllConstraints(), kAllFixed);
    EXPECT_TRUE(top_->modified);
    EXPECT_TRUE(sub_->modified);
}

TEST_F(RemoveCons, NothingChangesUntilItIsConfirmed) {
    ConstrainAll();
    const std::string before = AllConstraints();
    Play("~ Command `VxRemoveCons`\n" + kCancel +
         "~ Command `VxRemoveCons`\n~ Close `VxRemoveCons`");
    EXPECT_EQ(AllConstraints(), before);
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(RemoveCons, TheDialogStaysOpenAfterwards) {
    ConstrainAll();
    Play("~ Command `VxRemoveCons`\n" + kPressOk + kDone + kPressOk + kDone + kCancel);
    EXPECT_EQ(AllConstraints(), kAllFixed);
}

// --- One component -----------------------------------------------------------------------------

TEST_F(RemoveCons, ConstraintsAreRemovedAtRisingIndicesAndThenReplaced) {
    Model& one = MakeModels("one: a");
    Open(one);
    Constrain(one, 1, {PRO_ASM_MATE, PRO_ASM_ALIGN, PRO_ASM_INSERT});
    Record();
    Run();
    EXPECT_EQ(Work(),
              Joined({kWalkOfOne,
                      {"ProAsmcompConstraintsGet", "ProArraySizeGet", "ProAsmcompConstrRemove",
                       "ProAsmcompConstrRemove", "ProAsmcompConstrRemove", "ProArrayFree"},
                      kFix,
                      kEndOfCommand}));
    const Names removals = Lines("ProAsmcompConstrRemove");
    ASSERT_EQ(removals.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NE(removals[i].find("index=" + std::to_string(i) + ")"), std::string::npos)
            << removals[i];
    }
    // By then the third has moved up, so that its old place is beyond the end.
    EXPECT_NE(removals[1].find(" = 0"), std::string::npos) << removals[1];
    EXPECT_NE(removals[2].find(" = -2"), std::string::npos) << removals[2];
    EXPECT_EQ(ConstraintsOf(one, 1), "fix");
}

TEST_F(RemoveCons, WhatTheIndicesHavePassedOverStaysWhereTheHostRefusesTheNewOne) {
    Model& one = MakeModels("one: a");
    Open(one);
    Constrain(one, 1, {PRO_ASM_MATE, PRO_ASM_ALIGN, PRO_ASM_INSERT});
    Fail("ProAsmcompConstraintsSet");
    Run();
    EXPECT_EQ(ConstraintsOf(one, 1), "align");
}

TEST_F(RemoveCons, AComponentThatNeverHadAConstraintIsConfirmedByAClickSentBeforeItsDialog) {
    Model& one = MakeModels("one: a");
    Open(one);
    Record();
    Run();
    EXPECT_EQ(Work(), Joined({kWalkOfOne,
                              {"ProAsmcompConstraintsGet", "CreateThread", "mouse_event",
                               "WaitForSingleObject", "CloseHandle", "ProAsmcompConstrRedefUI"},
                              kFix,
                              kEndOfCommand}));
    EXPECT_EQ(Lines("mouse_event")[0].find("mouse_event(flags=96)"), 0u);
    EXPECT_NE(Lines("WaitForSingleObject")[0].find("milliseconds=4294967295"), std::string::npos);
    EXPECT_EQ(ConstraintsOf(one, 1), "fix");
}

TEST_F(RemoveCons, AComponentWhoseConstraintsWereAllRemovedIsFixedWithoutAClick) {
    Model& one = MakeModels("one: a");
    Open(one);
    Constrain(one, 1, {});
    Record();
    Run();
    EXPECT_EQ(Lines("CreateThread"), Names{});
    EXPECT_EQ(Lines("ProAsmcompConstrRemove"), Names{});
    EXPECT_EQ(ConstraintsOf(one, 1), "fix");
}

TEST_F(RemoveCons, TheNewConstraintIsOfTypeFixAndGoesWithoutAPath) {
    Model& one = MakeModels("one: a");
    Open(one);
    Constrain(one, 1, {PRO_ASM_MATE});
    Record();
    Run();
    EXPECT_NE(Lines("ProAsmcompconstraintTypeSet")[0].find("type=13"), std::string::npos);
    EXPECT_NE(Lines("ProAsmcompConstraintsSet")[0].find("path=null"), std::string::npos);
    EXPECT_NE(Lines("ProAsmcompRegenerate")[0].find("=1)"), std::string::npos)
        << Lines("ProAsmcompRegenerate")[0];
    EXPECT_NE(Lines("ProSolidRegenerate")[0].find("flags=0)"), std::string::npos);
}

TEST_F(RemoveCons, AComponentStaysWhereItIs) {
    ConstrainAll();
    Feature& a = FeatureOf(*top_, 2);
    a.placement = PlacementFrom({10, 20, 30}, {0, 0, 90});
    const Placement before = a.placement;
    Run();
    const Placement& after = FeatureOf(*top_, 2).placement;
    EXPECT_EQ(after.origin, before.origin);
    EXPECT_EQ(after.axes, before.axes);
}

// --- Which components --------------------------------------------------------------------------

TEST_F(RemoveCons, AComponentOfASubAssemblyThatIsUsedTwiceIsTreatedForEachUse) {
    ConstrainAll();
    Record();
    Run();
    EXPECT_EQ(Lines("ProAsmcompConstraintsSet").size(), 6u);  // 4 of TOP, twice the one of SUB
}

TEST_F(RemoveCons, WhatIsSuppressedOrInvisibleIsLeftAloneAndWhatTheUserHidIsNot) {
    Model& mixed = MakeModels("mixed: a!suppressed, a!invisible, a!hidden");
    Open(mixed);
    for (const int id : {1, 2, 3}) Constrain(mixed, id, {PRO_ASM_ALIGN});
    Run();
    EXPECT_EQ(ConstraintsOf(mixed, 1), "align");
    EXPECT_EQ(ConstraintsOf(mixed, 2), "align");
    EXPECT_EQ(ConstraintsOf(mixed, 3), "fix");
}

TEST_F(RemoveCons, AnAssemblyWithoutComponentsIsRegeneratedAndTheEndIsTold) {
    Open(MakeModels("empty:"));
    Record();
    Run();
    EXPECT_EQ(Lines("ProSolidRegenerate").size(), 1u);
    EXPECT_EQ(Lines("ProAsmcompConstraintsGet"), Names{});
}

TEST_F(RemoveCons, OfAManufacturingModelTheAssemblyIsWalkedAndItselfIsRegenerated) {
    ConstrainAll();
    Open(Manufacturing("mill", *top_));
    Record();
    Run();
    EXPECT_EQ(AllConstraints(), kAllFixed);
    const Names regenerated = Lines("ProSolidRegenerate");
    ASSERT_EQ(regenerated.size(), 1u);
    EXPECT_NE(regenerated[0].find("mill.mfg"), std::string::npos) << regenerated[0];
}

TEST_F(RemoveCons, AManufacturingModelWithoutItsAssemblyIsRegeneratedAndTheEndIsTold) {
    ConstrainAll();
    const std::string before = AllConstraints();
    Open(Manufacturing("mill", *top_));
    Fail("ProMfgAssemGet");
    Record();
    Run();
    EXPECT_EQ(AllConstraints(), before);
    EXPECT_EQ(Lines("ProSolidRegenerate").size(), 1u);
}

TEST_F(RemoveCons, OtherModelsAreRefusedInAPlainBox) {
    for (const ProMdlType type : {PRO_MDL_PART, PRO_MDL_DRAWING}) {
        SCOPED_TRACE(type);
        Open(host().session.Create(WIDE("other"), type));
        const Command* command = host().commands.Newest("VxRemoveCons");
        ASSERT_NE(command, nullptr);
        Record();
        PlayDuring([&] { command->action(command->id, nullptr, nullptr); },
                   kPressOk +
                       "@ expect box 此功能仅组件/制造环境可用！\n@ expect caption none\n@ ok\n" +
                       kCancel);
        Recorded();
        EXPECT_EQ(Utf8(AllBoxes().back().text), "此功能仅组件/制造环境可用！");
        EXPECT_EQ(Lines("ProSolidFeatVisit"), Names{});
        EXPECT_EQ(Lines("ProSolidRegenerate"), Names{});
    }
}

// --- What fails --------------------------------------------------------------------------------

TEST_F(RemoveCons, WithoutAThreadTheUserConfirmsTheDialog) {
    Model& one = MakeModels("one: a");
    Open(one);
    Fail("CreateThread");
    Run("~ Activate `comp_placement` `OK`\n");
    EXPECT_EQ(ConstraintsOf(one, 1), "fix");
    EXPECT_EQ(TheWindows().OpenHandles(), Names{});
}

TEST_F(RemoveCons, AComponentThatTheUserDeletesInTheDialogIsGoneAndTheOthersGoOn) {
    Model& two = MakeModels("two: a, b");
    Open(two);
    Fail("CreateThread");
    Run("~ Activate `comp_placement` `RemoveComponent` 1\n~ Activate `comp_placement` `OK`\n");
    EXPECT_EQ(two.FindFeature(1), nullptr);
    EXPECT_EQ(ConstraintsOf(two, 2), "fix");
}

TEST_F(RemoveCons, AReleasedAssemblyKeepsItsConstraintsAndTheEndIsToldAllTheSame) {
    ConstrainAll();
    sub_->readOnly = true;
    Run();
    EXPECT_EQ(AllConstraints(), "fix / fix / fix / fix / align");
}

TEST_F(RemoveCons, WithoutAConstraintOrItsArrayNothingIsSetAndNothingIsLeftBehind) {
    ConstrainAll();
    Fail("ProAsmcompconstraintAlloc", {.forGood = true});
    Record();
    Run();
    EXPECT_EQ(Lines("ProAsmcompConstraintsSet"), Names{});
    EXPECT_EQ(AllConstraints(), "none left / none left / none left / none left / none left");
    Operation::ForgetFaults();
    Fail("ProArrayAlloc", {.n = 2, .forGood = true});  // the walk has its own
    Record();
    Run();
    EXPECT_EQ(Lines("ProAsmcompConstraintsSet"), Names{});
    EXPECT_EQ(Lines("ProAsmcompconstraintFree").size(), Lines("ProAsmcompconstraintAlloc").size());
}

TEST_F(RemoveCons, AnArrayForTheWalkThatCannotBeHadLeavesAllAsItWas) {
    ConstrainAll();
    const std::string before = AllConstraints();
    Fail("ProArrayAlloc");
    Run();
    EXPECT_EQ(AllConstraints(), before);
}

TEST_F(RemoveCons, ADialogThatCannotBeMadeOrShownIsTold) {
    ConstrainAll();
    const std::string before = AllConstraints();
    Fail("ProUIDialogCreate");
    Play("~ Command `VxRemoveCons`\n@ expect box \"UIDialog Create error!\"\n@ ok");
    Fail("ProUIDialogActivate");
    Play("~ Command `VxRemoveCons`\n@ expect box \"UIDialog Activate error!\"\n@ ok");
    EXPECT_EQ(AllConstraints(), before);
}

}  // namespace
