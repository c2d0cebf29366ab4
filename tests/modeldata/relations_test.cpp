// VxRelations, pressed as a designer presses it: which models get which lines.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::Workbench;
using Lines = std::vector<WideText>;

class BatchRelations : public Workbench {
protected:
    // An assembly TOP with the part A (three times), the sheet metal S, and SUB with the part B.
    void SetUp() override {
        Start();
        top_ = &Assembly("top");
        a_ = &Part("a");
        b_ = &Part("b");
        sub_ = &Assembly("sub");
        sheet_ = &SheetMetal("s");
        for (int i = 0; i < 3; ++i) Use(*top_, *a_);
        Use(*top_, *sub_);
        Use(*sub_, *b_);
        Use(*top_, *sheet_);
        Open(*top_);
    }

    // Opens the dialog, does `steps` there, presses a button that ends with `box`, and closes.
    void Run(const std::string& steps, const std::string& button, const std::string& box) {
        Play("~ Command `VxRelations`\n" + steps + "\n~ Activate `Relations` `" + button + "`\n" +
             "@ expect box \"" + box + "\"\n@ ok\n~ Activate `Relations` `Close`");
    }
    static std::string Type(const std::string& lines) {
        return "~ Input `Relations` `RelTxtarea` `" + lines + "`";
    }
    static std::string Scope(const std::string& name) {
        return "\n~ Select `Relations` `TypeRadio` 1 `" + name + "`";
    }
    static std::string Keywords(const std::string& text) {
        return "\n~ Input `Relations` `InputKeyWords` `" + text + "`";
    }
    static constexpr const char* kAfter = "\n~ Select `Relations` `OptionRadio` 1 `after`";

    Lines Initial(const Model& model) { return model.relations.initial.value_or(Lines{}); }

    const std::string added_ = "\\t批量关系创建操作已完成|岚枢QQ②群:100200301，①群:10020030\\t";
    const std::string addedNew_ = "\\t批量关系追加操作已完成|岚枢QQ②群:100200301，①群:10020030\\t";
    const std::string covered_ = "\\t批量关系覆盖操作已完成|岚枢QQ②群:100200301，①群:10020030\\t";
    const std::string none_ = "当前模型中没有合适的子零件/组件";
    Model *top_, *a_, *b_, *sub_, *sheet_;
};

TEST_F(BatchRelations, EveryModelAndTheTopGetTheLinesOnceWithTheScopeOfBoth) {
    Run(Type("x=1\\n\\n\\n\\ny=2"), "AddRels", added_);
    for (Model* model : {top_, a_, b_, sub_, sheet_}) {
        EXPECT_EQ(Initial(*model), (Lines{WIDE("x=1"), WIDE("y=2")})) << model->FileName();
        EXPECT_TRUE(model->modified);
    }
    EXPECT_EQ(AllBoxes().back().flags, 0x40000u);
    EXPECT_EQ(AllBoxes().back().caption, WIDE("岚枢工具By墨川听雨,QQ:100200300"));
    EXPECT_EQ(top_->treeRefreshes, 1);
}

TEST_F(BatchRelations, TheScopeOfPartsLeavesAssembliesOut) {
    Run(Type("x=1") + Scope("Part"), "AddRels", added_);
    EXPECT_EQ(Initial(*a_), Lines{WIDE("x=1")});
    EXPECT_EQ(Initial(*sheet_), Lines{WIDE("x=1")});
    EXPECT_FALSE(top_->relations.initial);
    EXPECT_FALSE(sub_->relations.initial);
}

TEST_F(BatchRelations, TheScopeOfAssembliesTakesTheTop) {
    Run(Type("x=1") + Scope("Asm"), "AddRels", added_);
    EXPECT_EQ(Initial(*top_), Lines{WIDE("x=1")});
    EXPECT_EQ(Initial(*sub_), Lines{WIDE("x=1")});
    EXPECT_FALSE(a_->relations.initial);
}

TEST_F(BatchRelations, TheScopeOfSheetMetalTakesNothingElse) {
    Run(Type("x=1") + Scope("Smt"), "AddRels", added_);
    EXPECT_EQ(Initial(*sheet_), Lines{WIDE("x=1")});
    EXPECT_FALSE(a_->relations.initial);
    EXPECT_FALSE(top_->relations.initial);
}

TEST_F(BatchRelations, AManufacturingModelWorksOnItsAssemblyButAssembliesAloneLeaveItOut) {
    Open(Manufacturing("mill", *top_));
    Run(Type("x=1") + Scope("Asm"), "AddRels", added_);
    EXPECT_FALSE(top_->relations.initial);
    EXPECT_EQ(Initial(*sub_), Lines{WIDE("x=1")});
    Run(Type("y=1"), "AddRels", added_);
    EXPECT_EQ(Initial(*top_), Lines{WIDE("y=1")});
}

TEST_F(BatchRelations, AKeywordAtTheBeginningOfTheNameLeavesTheModelAlone) {
    Model& bolt = Part("bolt_1");
    Model& nut = Part("x_bolt");
    Use(*top_, bolt);
    Use(*top_, nut);
    Run(Type("x=1") + Keywords("Bolt，SUB"), "AddRels", added_);
    EXPECT_FALSE(bolt.relations.initial);
    EXPECT_FALSE(sub_->relations.initial);
    EXPECT_EQ(Initial(nut), Lines{WIDE("x=1")});
    EXPECT_EQ(Initial(*b_), Lines{WIDE("x=1")});
}

TEST_F(BatchRelations, AppendingKeepsWhatIsThere) {
    a_->relations.initial = {WIDE("old=1"), WIDE("x=1")};
    Run(Type("x=1\\nz=3"), "AddRels", added_);
    EXPECT_EQ(Initial(*a_), (Lines{WIDE("old=1"), WIDE("x=1"), WIDE("x=1"), WIDE("z=3")}));
    EXPECT_EQ(Initial(*b_), (Lines{WIDE("x=1"), WIDE("z=3")}));
}

TEST_F(BatchRelations, AppendingNewLinesComparesWithThePresentOnesOnly) {
    a_->relations.initial = {WIDE("old=1"), WIDE("x=1")};
    Run(Type("x=1\\nX=1\\nz=3\\nz=3"), "AddRelsAndNoRepeat", addedNew_);
    // x=1 is there already; X=1 differs by its case; z=3 was typed twice and comes twice.
    EXPECT_EQ(Initial(*a_),
              (Lines{WIDE("old=1"), WIDE("x=1"), WIDE("X=1"), WIDE("z=3"), WIDE("z=3")}));
    EXPECT_EQ(Initial(*b_), (Lines{WIDE("x=1"), WIDE("X=1"), WIDE("z=3"), WIDE("z=3")}));
}

TEST_F(BatchRelations, ACarriageReturnStaysInTheLineAndMakesItAnotherOne) {
    a_->relations.initial = {WIDE("x=1")};
    Run(Type("x=1\\r\\ny=2"), "AddRelsAndNoRepeat", addedNew_);
    EXPECT_EQ(Initial(*a_), (Lines{WIDE("x=1"), WIDE("x=1\r"), WIDE("y=2")}));
}

TEST_F(BatchRelations, CoveringReplacesAndMakesNoSet) {
    a_->relations.initial = {WIDE("old=1")};
    Run(Type("x=1"), "CoverRels", covered_);
    EXPECT_EQ(Initial(*a_), Lines{WIDE("x=1")});
    EXPECT_FALSE(b_->relations.initial);
}

TEST_F(BatchRelations, CoveringWithNothingClears) {
    a_->relations.initial = {WIDE("old=1")};
    Run("", "CoverRels", covered_);
    ASSERT_TRUE(a_->relations.initial);
    EXPECT_EQ(Initial(*a_), Lines{});
}

TEST_F(BatchRelations, AppendingNothingWritesThePresentLinesAgain) {
    a_->relations.initial = {WIDE("old=1")};
    Run("", "AddRels", added_);
    EXPECT_EQ(Initial(*a_), Lines{WIDE("old=1")});
}

TEST_F(BatchRelations, TheSetAfterRegenerationIsASetOfItsOwn) {
    a_->relations.initial = {WIDE("old=1")};
    a_->relations.afterRegeneration = {WIDE("late=1")};
    Run(Type("x=1") + kAfter, "AddRels", added_);
    EXPECT_EQ(a_->relations.afterRegeneration, (Lines{WIDE("late=1"), WIDE("x=1")}));
    EXPECT_EQ(Initial(*a_), Lines{WIDE("old=1")});
    EXPECT_FALSE(b_->relations.initial);
    Run(Type("y=1") + kAfter, "CoverRels", covered_);
    EXPECT_EQ(b_->relations.afterRegeneration, Lines{WIDE("y=1")});
}

TEST_F(BatchRelations, WhereTheSetAfterRegenerationCannotBeHadTheInitialOneIsMade) {
    Fail("ProRelsetPostregenerationInit", {.forGood = true});
    a_->relations.initial = {WIDE("old=1")};
    Run(Type("x=1") + kAfter, "AddRels", added_);
    EXPECT_EQ(Initial(*b_), Lines{WIDE("x=1")});
    // A has an initial set already, so none can be made and it is left alone.
    EXPECT_EQ(Initial(*a_), Lines{WIDE("old=1")});
    Run(Type("y=1") + kAfter, "CoverRels", covered_);
    EXPECT_EQ(Initial(*b_), Lines{WIDE("x=1")});
}

TEST_F(BatchRelations, OneFailedModelDoesNotStopTheOthers) {
    Fail("ProMdlToModelitem");
    Run(Type("x=1"), "AddRels", added_);
    int written = 0;
    for (Model* model : {top_, a_, b_, sub_, sheet_}) written += model->relations.initial ? 1 : 0;
    EXPECT_EQ(written, 4);
}

TEST_F(BatchRelations, TheSetAfterRegenerationNeedsNoItemOfTheModel) {
    Fail("ProMdlToModelitem", {.forGood = true});
    a_->relations.afterRegeneration = {WIDE("late=1")};
    Run(Type("x=1") + kAfter, "AddRels", added_);
    EXPECT_EQ(a_->relations.afterRegeneration, (Lines{WIDE("late=1"), WIDE("x=1")}));
    EXPECT_EQ(b_->relations.afterRegeneration, Lines{WIDE("x=1")});
    Run(Type("y=1") + kAfter, "CoverRels", covered_);
    EXPECT_EQ(a_->relations.afterRegeneration, Lines{WIDE("y=1")});
}

TEST_F(BatchRelations, WithoutAnItemOfTheModelNoSetIsAskedForItsLinesOrMade) {
    Fail("ProMdlToModelitem", {.forGood = true});
    Fail("ProRelsetPostregenerationInit", {.forGood = true});
    for (const std::string& option : {std::string(), std::string(kAfter)}) {
        host().journal.Start();
        Run(Type("x=1") + option, "AddRels", added_);
        const auto calls = host().journal.Names();
        for (const char* unmade : {"ProModelitemToRelset", "ProRelsetRelationsGet",
                                   "ProRelsetCreate", "ProRelsetRelationsSet"}) {
            EXPECT_EQ(std::count(calls.begin(), calls.end(), unmade), 0) << unmade << option;
        }
    }
}

TEST_F(BatchRelations, WithoutAnArrayTheSetIsStillTakenOrMade) {
    // The walk has its array; those of the lines cannot be had.
    Fail("ProArrayAlloc", {.n = 2, .forGood = true, .status = PRO_TK_OUT_OF_MEMORY});
    a_->relations.initial = {WIDE("old=1")};
    Run(Type("x=1") + Scope("Part"), "AddRelsAndNoRepeat", addedNew_);
    EXPECT_EQ(Initial(*a_), Lines{WIDE("old=1")});
    ASSERT_TRUE(b_->relations.initial);
    EXPECT_EQ(Initial(*b_), Lines{});
    // With the other set: it cannot be taken, and the initial one is made.
    sheet_->relations.initial.reset();
    Operation::ForgetFaults();
    Fail("ProArrayAlloc", {.n = 2, .forGood = true, .status = PRO_TK_OUT_OF_MEMORY});
    Fail("ProRelsetPostregenerationInit", {.forGood = true});
    Run(Type("x=1") + Scope("Part") + kAfter, "AddRels", added_);
    ASSERT_TRUE(sheet_->relations.initial);
    EXPECT_EQ(Initial(*sheet_), Lines{});
}

TEST_F(BatchRelations, WithoutAnArrayTheLinesToBeCoveredStay) {
    Fail("ProArrayAlloc", {.n = 2, .forGood = true, .status = PRO_TK_OUT_OF_MEMORY});
    a_->relations.initial = {WIDE("old=1")};
    Run(Type("x=1"), "CoverRels", covered_);
    EXPECT_EQ(Initial(*a_), Lines{WIDE("old=1")});
}

TEST_F(BatchRelations, AnEmptyAssemblyGivesOnlyTheMessage) {
    Model& empty = Assembly("empty");
    Open(empty);
    Run(Type("x=1"), "AddRels", none_);
    EXPECT_FALSE(empty.relations.initial);
    EXPECT_EQ(AllBoxes().back().flags, 0u);
    EXPECT_FALSE(AllBoxes().back().hasCaption);
    EXPECT_EQ(empty.treeRefreshes, 0);
}

TEST_F(BatchRelations, AModelIsWrittenOnceHoweverOftenItIsUsed) {
    host().journal.Start();
    Run(Type("x=1") + Scope("Part"), "AddRelsAndNoRepeat", addedNew_);
    int writes = 0, frees = 0, nullFrees = 0;
    for (const std::string& line : host().journal.lines()) {
        if (line.find("ProRelsetRelationsSet(") != std::string::npos) ++writes;
        if (line.find("ProArrayFree(") == std::string::npos) continue;
        ++frees;
        if (line.find("= -2") != std::string::npos) ++nullFrees;
    }
    EXPECT_EQ(writes, 3);     // A, B and S
    EXPECT_EQ(nullFrees, 3);  // the second free for each, refused by the host
    EXPECT_EQ(frees, 7);      // and the walk's array
}

TEST_F(BatchRelations, TheDialogComesWithAChoiceInEachGroupAndEndsByItsWindowToo) {
    Play("~ Command `VxRelations`\n@ expect dialog Relations\n~ Close `Relations`");
    EXPECT_EQ(Boxes(), std::vector<std::string>{});
}

TEST_F(BatchRelations, AMissingResourceIsTold) {
    Fail("ProUIDialogCreate", {.status = PRO_TK_E_NOT_FOUND});
    Play("~ Command `VxRelations`\n@ expect box \"UIDialog Create error!\"\n@ ok");
}

TEST_F(BatchRelations, TheFirstPresentLineCountsForNewLinesOnly) {
    a_->relations.initial = {WIDE("x=1"), WIDE("old=1")};
    Run(Type("x=1"), "AddRels", added_);
    EXPECT_EQ(Initial(*a_), (Lines{WIDE("x=1"), WIDE("old=1"), WIDE("x=1")}));
    a_->relations.initial = {WIDE("x=1"), WIDE("old=1")};
    Run(Type("x=1"), "AddRelsAndNoRepeat", addedNew_);
    EXPECT_EQ(Initial(*a_), (Lines{WIDE("x=1"), WIDE("old=1")}));
}

TEST_F(BatchRelations, TheArrayIsFreedBeforeTheFreeThatTheHostRefuses) {
    host().journal.Start();
    Run(Type("x=1") + Scope("Smt"), "AddRelsAndNoRepeat", addedNew_);
    std::string frees;  // of the walk's array, the lines, and no array
    for (const std::string& line : host().journal.lines()) {
        if (line.find("ProArrayFree(") != std::string::npos) {
            frees += line.substr(line.rfind(" = "));
        }
    }
    EXPECT_EQ(frees, " = 0 = 0 = -2");
}

TEST_F(BatchRelations, WhereEveryModelIsLeftOutTheEndIsToldAllTheSame) {
    Run(Type("x=1") + Keywords("TOP,A,B,SUB,S"), "AddRels", added_);
    for (Model* model : {top_, a_, b_, sub_, sheet_}) EXPECT_FALSE(model->relations.initial);
    EXPECT_EQ(top_->treeRefreshes, 1);
}

TEST_F(BatchRelations, WithoutAScopeThereAreNoComponents) {
    Fail("ProUIRadiogroupSelectednamesGet");
    Run(Type("x=1"), "AddRels", none_);
    EXPECT_FALSE(a_->relations.initial);
}

TEST_F(BatchRelations, WithoutAChosenSetNothingIsWrittenAndTheEndIsTold) {
    Fail("ProUIRadiogroupSelectednamesGet", {.n = 2});
    Run(Type("x=1"), "AddRels", added_);
    for (Model* model : {top_, a_, b_, sub_, sheet_}) EXPECT_FALSE(model->relations.initial);
}

TEST_F(BatchRelations, ATextThatCannotBeReadCountsAsEmpty) {
    a_->relations.initial = {WIDE("old=1")};
    Fail("ProUITextareaValueGet");
    Run(Type("x=1"), "CoverRels", covered_);
    EXPECT_EQ(a_->relations.initial, Lines{});
}

}  // namespace
