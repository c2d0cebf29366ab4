// VxOutline and VxSheetSize, pressed in the dialog VxParams.
#include <gtest/gtest.h>

#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;

class OutlineAndSheets : public Workbench {
protected:
    // TOP with the part A (a box of 10 × 20 × 30) at the origin.
    void SetUp() override {
        Start();
        top_ = &Assembly("top");
        a_ = &Part("a");
        Put(*top_, *a_, {0, 0, 0}, {0, 0, 0});
        Open(*top_);
    }

    void Put(Model& assembly, Model& model, Vec3 at, Vec3 turn) {
        Use(assembly, model).placement = PlacementFrom(at, turn);
    }
    void Run(const std::string& steps) {
        Play(
            "~ Command `VxParams`\n~ Input `VxParams` `outlinePname` `SIZE`\n"
            "~ Input `VxParams` `shSizePname` `SHEET`\n" +
            steps + "\n~ Activate `VxParams` `Close`");
    }
    std::string ValueOn(const Model& model, const char* name = "SIZE") {
        const Parameter* found = model.parameters.Find(Wide(name));
        return found ? ValueText(*found) : "none";
    }
    static std::string Scope(const std::string& name) {
        return "~ Select `VxParams` `TypeRadio2` 1 `" + name + "`\n";
    }
    Model& DrawingOf(const std::string& name, const std::vector<WideText>& sizes) {
        Model& drawing = host().session.Create(Wide(name), PRO_MDL_DRAWING);
        drawing.drawingData.sheets.assign(sizes.begin(), sizes.end());
        return drawing;
    }

    const std::string outline_ =
        "~ Activate `VxParams` `VxOutline`\n@ expect box "
        "\"\\t外形尺寸参数批量创建/更新完成|岚枢QQ①群:10020030/②群:100200301\\t\"\n@ ok\n";
    const std::string sheetSize_ =
        "~ Activate `VxParams` `VxSheetSize`\n@ expect box "
        "\"\\t图幅大小参数批量创建/更新完成|岚枢QQ②群:100200301，①群:10020030\\t\"\n@ ok\n";
    const std::string none_ = "@ expect box \"当前模型中没有合适的子零件/组件\"\n@ ok\n";
    static constexpr const char* kInOrder = "~ Activate `VxParams` `VxOutlineOrder` 0\n";
    Model *top_, *a_;
};

TEST_F(OutlineAndSheets, APartGetsItsSizeLargestFirstOrAlongItsAxes) {
    Run(outline_);
    EXPECT_EQ(ValueOn(*a_), "30×20×10");
    Run(kInOrder + outline_);
    EXPECT_EQ(ValueOn(*a_), "10×20×30");
    EXPECT_EQ(a_->parameters.Find(WIDE("SIZE"))->type, PRO_PARAM_STRING);
}

TEST_F(OutlineAndSheets, TheBoxComesBeforeTheTreeIsShownAfresh) {
    host().journal.Start();
    Run(outline_);
    const auto names = host().journal.Names();
    const auto box = std::find(names.begin(), names.end(), "MessageBoxW");
    const auto refresh = std::find(names.begin(), names.end(), "ProTreetoolRefresh");
    ASSERT_NE(box, names.end());
    EXPECT_LT(box - names.begin(), refresh - names.begin());
    EXPECT_EQ(top_->treeRefreshes, 1);
}

TEST_F(OutlineAndSheets, AnAssemblyIsMeasuredWithItsComponentsWhereTheyStand) {
    // SUB has A at y = 50 and is at x = 100: its A reaches from (100, 50, 0) to (110, 70, 30).
    Model& sub = Assembly("sub");
    Put(sub, *a_, {0, 50, 0}, {0, 0, 0});
    Put(*top_, sub, {100, 0, 0}, {0, 0, 0});
    Run(kInOrder + outline_);
    EXPECT_EQ(ValueOn(*top_), "110×70×30");
    EXPECT_EQ(ValueOn(sub), "10×20×30");
}

TEST_F(OutlineAndSheets, AfterASubAssemblyTheNextComponentIsFoundAtItsOwnLevel) {
    // B follows SUB in the tree, so its path is shorter than that of the line before it.
    Model& sub = Assembly("sub");
    Model& b = Part("b");
    Put(sub, *a_, {0, 0, 0}, {0, 0, 0});
    Put(*top_, sub, {0, 0, 0}, {0, 0, 0});
    Put(*top_, b, {0, 200, 0}, {0, 0, 0});
    Run(kInOrder + outline_);
    EXPECT_EQ(ValueOn(*top_), "10×220×30");
}

TEST_F(OutlineAndSheets, OnlyTheTwoOuterCornersOfASurfacesBoxAreTurned) {
    // A cylinder of diameter 20 and length 30 about z. The corners of its surfaces' boxes are
    // (-10, -10) and (10, 10) in x and y; turned by 45 degrees about z both have x = 0, and
    // y = ±14.142. All four corners would give 28.3 on both axes.
    Model& round = host().session.Create(WIDE("round"), PRO_MDL_PART);
    Solid cylinder;
    cylinder.id = 10;
    cylinder.shape = Shape::Cylinder;
    cylinder.diameter = 20;
    cylinder.length = 30;
    round.partData.solids.push_back(cylinder);
    Model& holder = Assembly("holder");
    Put(holder, round, {0, 0, 0}, {0, 0, 45});
    Put(*top_, holder, {0, 0, 0}, {0, 0, 0});
    Run("~ Select `VxParams` `VxOutlineNum` 1 `1`\n" + (kInOrder + outline_));
    EXPECT_EQ(ValueOn(round), "20×20×30");
    EXPECT_EQ(ValueOn(holder), "0×28.3×30");
}

TEST_F(OutlineAndSheets, DecimalPlacesComeFromTheMenu) {
    a_->partData.solids[0].size = {12.6, 20.04, 30.125};
    Run("~ Select `VxParams` `VxOutlineNum` 1 `0`\n" + outline_);
    EXPECT_EQ(ValueOn(*a_), "30×20×13");
    Run("~ Select `VxParams` `VxOutlineNum` 1 `2`\n" + outline_);
    EXPECT_EQ(ValueOn(*a_), "30.12×20.04×12.6");  // a tie goes to the even digit
}

TEST_F(OutlineAndSheets, ATextThatIsThereIsReplacedAndAnotherTypeStays) {
    a_->parameters.Set(TextParameter(WIDE("size"), WIDE("old")));
    top_->parameters.Set(RealParameter(WIDE("SIZE"), 1));
    Run(outline_);
    EXPECT_EQ(ValueOn(*a_), "30×20×10");
    EXPECT_EQ(ValueOn(*top_), "1");
}

TEST_F(OutlineAndSheets, APartWhoseSurfacesCannotBeVisitedKeepsItsParameter) {
    Model& skeleton = Part("skel", 0);
    skeleton.parameters.Set(TextParameter(WIDE("SIZE"), WIDE("old")));
    Put(*top_, skeleton, {0, 0, 0}, {0, 0, 0});
    Run(outline_);
    EXPECT_EQ(ValueOn(skeleton), "old");
    EXPECT_EQ(ValueOn(*top_), "30×20×10");  // it only adds nothing to the assembly
}

TEST_F(OutlineAndSheets, AModelWithoutSurfacesLosesTheParameter) {
    Model& empty = Assembly("empty");
    empty.parameters.Set(TextParameter(WIDE("SIZE"), WIDE("old")));
    Put(*top_, empty, {0, 0, 0}, {0, 0, 0});
    Run(outline_);
    EXPECT_EQ(ValueOn(empty), "none");
    // Surfaces that tell nothing about themselves are as good as none.
    Fail("ProSurfaceDataGet", {.forGood = true});
    Run(outline_);
    EXPECT_EQ(ValueOn(*a_), "none");
    EXPECT_EQ(ValueOn(*top_), "none");
}

TEST_F(OutlineAndSheets, ComponentsBelowTheHostsTwentyFiveLevelsAreLeftOut) {
    // A chain of assemblies; the part P is 24 levels down (the last that has a path) at
    // x = 500, and one level deeper at x = 2000.
    Model& p = Part("p");
    Model* above = top_;
    for (int depth = 0; depth < 25; ++depth) {
        Model& next = Assembly("level" + std::to_string(depth));
        if (depth == 24) Put(*above, p, {500, 0, 0}, {0, 0, 0});
        Put(*above, next, {0, 0, 0}, {0, 0, 0});
        above = &next;
    }
    Put(*above, p, {2000, 0, 0}, {0, 0, 0});
    Run(kInOrder + outline_);
    EXPECT_EQ(ValueOn(*top_), "510×20×30");
    EXPECT_EQ(ValueOn(*host().session.FindByName(WIDE("level0"), PRO_MDL_ASSEMBLY)), "1510×20×30");
}

TEST_F(OutlineAndSheets, AFailedArrayLeavesAModelAsItWas) {
    Model& sub = Assembly("sub");
    Put(sub, *a_, {0, 0, 0}, {0, 0, 0});
    Put(*top_, sub, {0, 0, 0}, {0, 0, 0});
    for (unsigned n = 2; n < 14; ++n) {
        Operation::ForgetFaults();
        Fail("ProArrayAlloc", {.n = n, .forGood = true, .status = PRO_TK_OUT_OF_MEMORY});
        for (Model* model : {top_, a_, &sub}) {
            model->parameters.Set(TextParameter(WIDE("SIZE"), WIDE("old")));
        }
        Run(outline_);
        for (Model* model : {top_, a_, &sub}) {
            const std::string value = ValueOn(*model);
            EXPECT_TRUE(value == "old" || value == "30×20×10") << n << ' ' << value;
            if (n == 2) {
                EXPECT_EQ(value, "old");
            }
        }
    }
}

TEST_F(OutlineAndSheets, AnUnknownStateOfTheOrderGivesTheEmptyText) {
    Fail("ProUICheckbuttonGetState", {.n = 2, .forGood = true});
    Run(outline_);
    EXPECT_EQ(ValueOn(*a_), "");
}

TEST_F(OutlineAndSheets, AnEmptyNameIsTheHostsAffair) {
    Play("~ Command `VxParams`\n~ Input `VxParams` `outlinePname` ``\n" + outline_ +
         "~ Activate `VxParams` `Close`");
    EXPECT_TRUE(a_->parameters.empty());
}

TEST_F(OutlineAndSheets, OtherEnvironmentsAreRefusedWithANotice) {
    Fail("ProMdlTypeGet");
    Run("~ Activate `VxParams` `VxOutline`\n"
        "@ expect box \"当前环境不是组件/制造，无法执行此操作\"\n"
        "@ expect caption 岚枢工具\n@ ok\n");
}

TEST_F(OutlineAndSheets, KeywordsAndScopeOfTheSecondGroupCount) {
    Model& bolt = Part("bolt");
    Put(*top_, bolt, {0, 0, 0}, {0, 0, 0});
    Run(Scope("Part") + "~ Input `VxParams` `InputKeyWords2` `BO`\n" + outline_);
    EXPECT_EQ(ValueOn(bolt), "none");
    EXPECT_EQ(ValueOn(*top_), "none");
    EXPECT_EQ(ValueOn(*a_), "30×20×10");
    Run(Scope("Smt") + "~ Activate `VxParams` `VxOutline`\n" + none_);
}

TEST_F(OutlineAndSheets, AManufacturingModelIsMeasuredThroughItsAssembly) {
    Open(Manufacturing("mill", *top_));
    Run(outline_);
    EXPECT_EQ(ValueOn(*top_), "30×20×10");
    EXPECT_EQ(top_->treeRefreshes, 1);
}

TEST_F(OutlineAndSheets, EverySurfaceOfABoxIsAsked) {
    host().journal.Start();
    Run(Scope("Part") + outline_);
    const auto names = host().journal.Names();
    EXPECT_EQ(std::count(names.begin(), names.end(), "ProSurfaceDataGet"), 6);
}

// Of these calls, those that deal with the data of surfaces, in their order.
std::vector<std::string> CallsOfSurfaceData(const std::vector<std::string>& names) {
    std::vector<std::string> calls;
    std::copy_if(names.begin(), names.end(), std::back_inserter(calls), [](const auto& name) {
        return name == "ProSurfaceDataGet" || name == "ProPntTrfEval" ||
               name == "ProGeomitemdataFree";
    });
    return calls;
}

TEST_F(OutlineAndSheets, EachSurfacesDataIsFreedWhenItsTwoCornersWereRead) {
    // Components come before the model that holds them: the part A is measured by plain corners,
    // then the assembly by turned ones.
    host().journal.Start();
    Run(outline_);
    std::vector<std::string> expected;
    for (int surface = 0; surface < 6; ++surface) {
        expected.insert(expected.end(), {"ProSurfaceDataGet", "ProGeomitemdataFree"});
    }
    for (int surface = 0; surface < 6; ++surface) {
        expected.insert(expected.end(), {"ProSurfaceDataGet", "ProPntTrfEval", "ProPntTrfEval",
                                         "ProGeomitemdataFree"});
    }
    EXPECT_EQ(CallsOfSurfaceData(host().journal.Names()), expected);
    EXPECT_EQ(host().arrays.HeldByMistake(), std::vector<std::string>{});
}

TEST_F(OutlineAndSheets, DataThatWasNotHandedOutIsNotFreed) {
    Fail("ProSurfaceDataGet", {.forGood = true});
    host().journal.Start();
    Run(Scope("Part") + outline_);
    EXPECT_EQ(CallsOfSurfaceData(host().journal.Names()),
              std::vector<std::string>(6, "ProSurfaceDataGet"));
}

TEST_F(OutlineAndSheets, DataThatARefusedCallHandedOutAllTheSameIsFreedUnread) {
    Operation::Fail({.operation = "ProSurfaceDataGet", .forGood = true, .afterWork = true});
    host().journal.Start();
    Run(Scope("Part") + outline_);
    const auto calls = CallsOfSurfaceData(host().journal.Names());
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProGeomitemdataFree"), 6);
    EXPECT_EQ(ValueOn(*a_), "none");
    EXPECT_EQ(host().arrays.HeldByMistake(), std::vector<std::string>{});
}

TEST_F(OutlineAndSheets, AComponentThatCannotBeReachedIsLeftOutAndTheOthersCount) {
    // A reaches from 0 to 10 in x, B from 90 to 100.
    Put(*top_, Part("b"), {90, 0, 0}, {0, 0, 0});
    for (const char* operation :
         {"ProAsmcomppathInit", "ProAsmcomppathMdlGet", "ProAsmcomppathTrfGet"}) {
        Run(kInOrder + outline_);
        EXPECT_EQ(ValueOn(*top_), "100×20×30");
        Fail(operation);
        Run(kInOrder + outline_);
        EXPECT_EQ(ValueOn(*top_), "10×20×30") << operation;
    }
}

TEST_F(OutlineAndSheets, AnAssemblyOfWhichNoCornerCanBeTurnedLosesTheParameter) {
    Fail("ProPntTrfEval", {.forGood = true});
    top_->parameters.Set(TextParameter(WIDE("SIZE"), WIDE("old")));
    Run(outline_);
    EXPECT_EQ(ValueOn(*top_), "none");
    EXPECT_EQ(ValueOn(*a_), "30×20×10");
}

TEST_F(OutlineAndSheets, AModelWhoseTypeCannotBeReadKeepsItsParameter) {
    a_->parameters.Set(TextParameter(WIDE("SIZE"), WIDE("old")));
    host().journal.Start();
    Run(Scope("Part") + outline_);
    EXPECT_EQ(ValueOn(*a_), "30×20×10");
    a_->parameters.Set(TextParameter(WIDE("SIZE"), WIDE("old")));
    // The last of its questions is the one for the measure.
    const auto names = host().journal.Names();
    const auto asked = std::count(names.begin(), names.end(), "ProMdlTypeGet");
    Fail("ProMdlTypeGet", {.n = unsigned(asked)});
    Run(Scope("Part") + outline_);
    EXPECT_EQ(ValueOn(*a_), "old");
}

TEST_F(OutlineAndSheets, OnlyAParameterThatIsThereAlreadyIsSetAfterItsCreationWasRefused) {
    a_->parameters.Set(TextParameter(WIDE("SIZE"), WIDE("old")));
    Fail("ProParameterCreate", {.forGood = true});
    Run(Scope("Part") + outline_);
    EXPECT_EQ(ValueOn(*a_), "old");
}

TEST_F(OutlineAndSheets, WhatIsSuppressedOrInvisibleHasNoSize) {
    Feature& suppressed = Use(*top_, Part("b"));
    suppressed.placement = PlacementFrom({90, 0, 0}, {0, 0, 0});
    suppressed.status = PRO_FEAT_SUPPRESSED;
    Feature& invisible = Use(*top_, Part("c"));
    invisible.placement = PlacementFrom({190, 0, 0}, {0, 0, 0});
    invisible.visible = false;
    Run(kInOrder + outline_);
    EXPECT_EQ(ValueOn(*top_), "10×20×30");
}

// --- Sheet sizes ---

TEST_F(OutlineAndSheets, KeywordsAndScopeOfTheSecondGroupCountForSheetSizesToo) {
    DrawingOf("a", {WIDE("A3")});
    DrawingOf("bolt", {WIDE("A4")});
    DrawingOf("top", {WIDE("A1")});
    Model& bolt = Part("bolt");
    Put(*top_, bolt, {0, 0, 0}, {0, 0, 0});
    Run(Scope("Part") + "~ Input `VxParams` `InputKeyWords` `A`\n" +
        "~ Input `VxParams` `InputKeyWords2` `BO`\n" + sheetSize_);
    EXPECT_EQ(ValueOn(*a_, "SHEET"), "A3");
    EXPECT_EQ(ValueOn(bolt, "SHEET"), "none");
    EXPECT_EQ(ValueOn(*top_, "SHEET"), "none");
}

TEST_F(OutlineAndSheets, AModelGetsTheSheetSizesOfTheDrawingOfItsName) {
    DrawingOf("a", {WIDE("A3"), WIDE("A4")});
    DrawingOf("top", {WIDE("A1")});
    Run(sheetSize_);
    EXPECT_EQ(ValueOn(*a_, "SHEET"), "A3,A4");
    EXPECT_EQ(ValueOn(*top_, "SHEET"), "A1");
    Run(sheetSize_);
    EXPECT_EQ(ValueOn(*a_, "SHEET"), "A3,A4");
}

TEST_F(OutlineAndSheets, TheDrawingIsFetchedFromTheFolderAndStaysInMemory) {
    Model& drawing = DrawingOf("a", {WIDE("A2")});
    host().session.Save(drawing);
    host().session.Erase(drawing);
    Run(sheetSize_);
    EXPECT_EQ(ValueOn(*a_, "SHEET"), "A2");
    EXPECT_NE(host().session.FindByName(WIDE("a"), PRO_MDL_DRAWING), nullptr);
}

TEST_F(OutlineAndSheets, AModelWithoutADrawingIsPassedOver) {
    top_->parameters.Set(TextParameter(WIDE("SHEET"), WIDE("old")));
    Run(sheetSize_);
    EXPECT_EQ(ValueOn(*top_, "SHEET"), "old");
    EXPECT_EQ(ValueOn(*a_, "SHEET"), "none");
}

TEST_F(OutlineAndSheets, NoSheetsGiveTheEmptyTextAndManyAreCut) {
    DrawingOf("a", {});
    DrawingOf("top", std::vector<WideText>(40, WIDE("A3")));
    Run(sheetSize_);
    EXPECT_EQ(ValueOn(*a_, "SHEET"), "");
    std::string many;
    for (int i = 0; i < 40; ++i) many += "A3,";
    EXPECT_EQ(ValueOn(*top_, "SHEET"), many.substr(0, 80));
}

TEST_F(OutlineAndSheets, SheetsThatCannotBeCountedAreNone) {
    DrawingOf("a", {WIDE("A3")});
    Fail("ProDrawingSheetsCount");
    Run(sheetSize_);
    EXPECT_EQ(ValueOn(*a_, "SHEET"), "");
}

TEST_F(OutlineAndSheets, SheetSizesOfAManufacturingModelAreNotTouchedAndNothingIsSaid) {
    DrawingOf("a", {WIDE("A3")});
    Open(Manufacturing("mill", *top_));
    Run("~ Activate `VxParams` `VxSheetSize`\n");
    EXPECT_EQ(ValueOn(*a_, "SHEET"), "none");
}

TEST_F(OutlineAndSheets, SheetSizesOfAnEmptyAssemblyGiveTheMessage) {
    Open(Assembly("empty"));
    Run("~ Activate `VxParams` `VxSheetSize`\n" + none_);
}

}  // namespace
