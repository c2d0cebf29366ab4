// SetBendTable: one bend table for a sheet metal part, for what is picked, or for all sheet metal
// of an assembly.
#include <gtest/gtest.h>

#include "tests/modeldata/file_bench.h"

namespace {

using namespace simhost;
using namespace workbench;

// 20 + 30 and, for the bend, pi/2 x 2 + 0.5 x 3; with the table 7.
constexpr double kWithoutTable = 54.641592653589793;
constexpr double kWithTable = 57;

class SetBendTableCommand : public FileBench {
protected:
    // TOP holds S twice, the plain part P, and SUB with S and T; S and T are sheet metal.
    void SetUp() override {
        FileBench::SetUp();
        s_ = &Sheet("s");
        t_ = &Sheet("t");
        top_ = &MakeModels("top: s x2, p, sub(s, t)");
        Play("@ option pro_sheet_met_dir C:\\Work");
    }
    // Those of S and T.
    Names Tables() { return {TableIn(*s_), TableIn(*t_)}; }
    // The parts that a table was applied to, as often as that was done.
    static Names AppliedTo() { return PartsIn("ProSmtPartBendtableApply"); }
    static Names Regenerated() { return PartsIn("ProSolidRegenerate"); }

    Model *top_ = nullptr, *s_ = nullptr, *t_ = nullptr;

private:
    static Names PartsIn(const std::string& operation) {
        Names parts;
        for (const std::string& line : Lines(operation)) {
            const std::size_t begin = line.find('=') + 1;
            parts.push_back(line.substr(begin, line.find(',') - begin));
        }
        return parts;
    }
};

// --- The dialog --------------------------------------------------------------------------------

TEST_F(SetBendTableCommand, LeavingTheDialogChangesNothing) {
    Open(*top_);
    Record();
    Play("~ Command `SetBendTable`\n@ quit\n@ expect no box");
    Recorded();
    EXPECT_EQ(Lines("ProConfigoptSet"), Names{});
    EXPECT_EQ(Lines("ProFilenameParse"), Names{});
    EXPECT_EQ(Option("pro_sheet_met_dir"), "C:\\Work");
    EXPECT_EQ(WorkingFolder(), "C:\\Work");
    EXPECT_EQ(Tables(), (Names{"none", "none"}));
}

TEST_F(SetBendTableCommand, TheDialogListsBendTablesAndOpensInTheOptionsFolder) {
    Play("@ option pro_sheet_met_dir C:\\Tables");
    Open(*s_);
    Record();
    Play(std::string("~ Command `SetBendTable`\n@ answer soft.bnd\n") + kBendTableDone);
    Recorded();
    EXPECT_EQ(Lines("ProFileOpen"), Names{"ProFileOpen(title=\"请选择折弯表\", filter=\"*.bnd\", "
                                          "folder=\"C:\\Tables\", proposed=null, "
                                          "path=\"C:\\Tables\\soft.bnd\") = 0"});
    EXPECT_EQ(TableIn(*s_), "soft");
}

TEST_F(SetBendTableCommand, TheMessageLineSaysTheSameAsForMaterials) {
    Open(*top_);
    Play(
        "~ Command `SetBendTable`\n"
        "@ expect message 为钣金件指定材料时是否更改折弯表\n@ quit");
}

// --- The option --------------------------------------------------------------------------------

TEST_F(SetBendTableCommand, TheOptionIsTheFilesFolderMeanwhileAndThenWhatItWas) {
    Open(*s_);
    Record();
    SetTable(kBendTableDone);
    Recorded();
    EXPECT_EQ(
        Lines("ProConfigoptSet"),
        (Names{"ProConfigoptSet(option=\"pro_sheet_met_dir\", value=\"C:\\Tables\\\") = 0",
               "ProConfigoptSet(option=\"pro_sheet_met_dir\", value=\"C:\\Work\") = 0"}));
    EXPECT_EQ(WorkingFolder(), "C:\\Work");
    EXPECT_EQ(Lines("ProDirectoryChange"), Names{});
}

TEST_F(SetBendTableCommand, OfSeveralValuesTheFirstIsGivenBack) {
    Play("@ option pro_sheet_met_dir C:\\Work | C:\\Tables");
    Open(*s_);
    SetTable(kBendTableDone);
    Play("@ expect option pro_sheet_met_dir C:\\Work");
}

TEST_F(SetBendTableCommand, AnOptionThatWasNotSetIsGivenBackAsTheEmptyText) {
    Play("@ option pro_sheet_met_dir none");
    Open(*s_);
    SetTable(kBendTableDone);
    Play("@ expect option pro_sheet_met_dir \"\"");
    EXPECT_EQ(TableIn(*s_), "soft");
}

TEST_F(SetBendTableCommand, AnOptionWithoutAnyValueIsLikeNone) {
    host().configOptions[WIDE("pro_sheet_met_dir")] = {};  // no host is known to do that
    Open(*s_);
    SetTable(kBendTableDone);
    EXPECT_EQ(Option("pro_sheet_met_dir"), "");
}

// --- Which parts -------------------------------------------------------------------------------

TEST_F(SetBendTableCommand, TheSheetMetalPartThatIsOpenGetsItAndIsBroughtUpToDate) {
    Open(*s_);
    SetTable(kBendTableDone);
    EXPECT_EQ(TableIn(*s_), "soft");
    EXPECT_DOUBLE_EQ(s_->partData.sheetMetal.developed, kWithTable);
    EXPECT_EQ(s_->regenerations, 1);
    EXPECT_EQ(s_->treeRefreshes, 1);
    EXPECT_EQ(host().session.current->repaints, 1);
}

TEST_F(SetBendTableCommand, APlainPartIsLeftAsItIsAndTheBoxComesAllTheSame) {
    Model& plain = ModelNamed("p");
    Open(plain);
    Record();
    SetTable(kBendTableDone);
    Recorded();
    EXPECT_EQ(AppliedTo(), Names{});
    EXPECT_EQ(TableIn(plain), "none");
    EXPECT_FALSE(plain.modified);
    EXPECT_EQ(plain.regenerations, 1);
}

TEST_F(SetBendTableCommand, WithNothingPickedEachPartBelowGetsItOnce) {
    Open(*top_);
    Record();
    SetTable(kBendTableDone);
    Recorded();
    const Names parts = ByHandle({s_, t_});
    EXPECT_EQ(AppliedTo(), parts);
    EXPECT_EQ(Regenerated(), (Names{parts[0], parts[1], "top.asm"}));
    EXPECT_EQ(Lines("ProSmtPartBendtableApply").at(0),
              "ProSmtPartBendtableApply(part=" + parts[0] + ", name=\"soft\", fromFile=1) = 0");
    EXPECT_EQ(Lines("ProSolidRegenerate").at(2), "ProSolidRegenerate(solid=top.asm, flags=0) = 0");
    EXPECT_DOUBLE_EQ(t_->partData.sheetMetal.developed, kWithTable);
}

TEST_F(SetBendTableCommand, ABufferThatCannotBeReadIsLikeOneWithNothingPicked) {
    Open(*top_);
    Fail("ProSelbufferSelectionsGet", {.status = PRO_TK_GENERAL_ERROR});
    SetTable(kBendTableDone);
    EXPECT_EQ(Tables(), (Names{"soft", "soft"}));
}

TEST_F(SetBendTableCommand, ABufferThatIsReadAsEmptyMeansNoPart) {
    Open(*top_);
    Play("@ selection empty");
    SetTable(kBendTableDone);
    EXPECT_EQ(Tables(), (Names{"none", "none"}));
}

TEST_F(SetBendTableCommand, APickedPartIsBroughtUpToDateOnlyWithTheAssembly) {
    Open(*top_);
    Play("@ select sub/t, p");
    Record();
    SetTable(kBendTableDone);
    Recorded();
    EXPECT_EQ(AppliedTo(), Names{"t.prt"});
    EXPECT_EQ(Regenerated(), Names{"top.asm"});
    EXPECT_EQ(Tables(), (Names{"none", "soft"}));
}

TEST_F(SetBendTableCommand, OfAPickedAssemblyEachUseIsDoneAnew) {
    Open(*top_);
    Play("@ select .");
    Record();
    SetTable(kBendTableDone);
    Recorded();
    EXPECT_EQ(AppliedTo(), (Names{"s.prt", "s.prt", "s.prt", "t.prt"}));
    EXPECT_EQ(Regenerated(), (Names{"s.prt", "s.prt", "s.prt", "t.prt", "top.asm"}));
}

TEST_F(SetBendTableCommand, OtherItemsThatArePickedArePassedOver) {
    Open(*top_);
    Play("@ select s/feature#1, p#11");
    Record();
    SetTable(kBendTableDone);
    Recorded();
    EXPECT_EQ(AppliedTo(), Names{});
}

TEST_F(SetBendTableCommand, AManufacturingModelGetsNothingButTheBox) {
    Open(Manufacturing("mill", *top_));
    RunAction("SetBendTable", "@ answer C:\\Tables\\soft.bnd\n" + std::string(kBendTableDone));
    EXPECT_EQ(Tables(), (Names{"none", "none"}));
    EXPECT_EQ(Option("pro_sheet_met_dir"), "C:\\Work");
}

TEST_F(SetBendTableCommand, AnAssemblyThatCountsAsSheetMetalIsWalkedThroughOnItsOwn) {
    Model& shell = MakeModels("shell: t");
    shell.subtype = PROMDLSTYPE_PART_SHEETMETAL;
    Open(MakeModels("hull: shell, s"));
    Record();
    SetTable(kBendTableDone);
    Recorded();
    // T once in the walk through HULL, once in that through SHELL; the order is that of handles.
    Names applied;
    std::vector<Model*> models{s_, t_, &shell};
    SortByHandle(&models);
    for (const Model* model : models)
        applied.push_back(model == &shell ? "t.prt" : model->FileName());
    EXPECT_EQ(AppliedTo(), applied);
}

TEST_F(SetBendTableCommand, OfAPickedAssemblyOneThatCountsAsSheetMetalIsHandedToTheHostAsItIs) {
    Model& shell = MakeModels("shell: t");
    shell.subtype = PROMDLSTYPE_PART_SHEETMETAL;
    Open(MakeModels("hull: shell"));
    Play("@ select .");
    Record();
    SetTable(kBendTableDone);
    Recorded();
    EXPECT_EQ(AppliedTo(), (Names{"shell.asm", "t.prt"}));
    EXPECT_EQ(Regenerated(), (Names{"shell.asm", "t.prt", "hull.asm"}));
}

TEST_F(SetBendTableCommand, AModelThatIsNeitherPartNorAssemblyIsPassedOverInAWalk) {
    Open(*top_);
    // The walk asks for the types of S, S, P, SUB, S and T; then come those of S and T.
    Fail("ProMdlTypeGet", {.n = 8});
    SetTable(kBendTableDone);
    EXPECT_EQ(TableIn(ByHandle({s_, t_})[0] == "s.prt" ? *s_ : *t_), "none");
    EXPECT_EQ(TableIn(ByHandle({s_, t_})[0] == "s.prt" ? *t_ : *s_), "soft");
}

TEST_F(SetBendTableCommand, APickOrComponentWhoseModelCannotBeHadIsPassedOver) {
    Open(*top_);
    Play("@ select sub/s, sub/t");
    for (const char* call : {"ProSelectionModelitemGet", "ProModelitemMdlGet"}) {
        s_->partData.sheetMetal.table = t_->partData.sheetMetal.table = {};
        Fail(call);
        SetTable(kBendTableDone);
        EXPECT_EQ(Tables(), (Names{"none", "soft"})) << call;
    }
    Play("@ select sub");
    t_->partData.sheetMetal.table = {};
    Fail("ProAsmcompMdlGet", {.n = 3});  // two in the walk
    SetTable(kBendTableDone);
    EXPECT_EQ(Tables(), (Names{"none", "soft"}));
}

// --- The ends ----------------------------------------------------------------------------------

TEST_F(SetBendTableCommand, WithoutMemoryForAPickedAssemblyItEndsWithTheOptionAtTheTables) {
    Open(*top_);
    Play("@ select sub");
    Fail("ProArrayAlloc");
    SetTable(PlainError("ProArray Alloc error") + "@ expect no box");
    EXPECT_EQ(Option("pro_sheet_met_dir"), "C:\\Tables\\");
    EXPECT_EQ(top_->regenerations, 0);
    EXPECT_EQ(host().session.current->repaints, 0);
}

TEST_F(SetBendTableCommand, AWalkBelowAPickedAssemblyThatFailsEndsItThere) {
    Open(*top_);
    Play("@ select sub/t, sub");
    Fail("ProSolidFeatVisit");
    SetTable(PlainError("未找到钣金件") + "@ expect no box");
    EXPECT_EQ(Option("pro_sheet_met_dir"), "C:\\Tables\\");
    EXPECT_EQ(Tables(), (Names{"none", "soft"}));
    EXPECT_EQ(top_->regenerations, 0);
}

TEST_F(SetBendTableCommand, APickedAssemblyWithoutSheetMetalEndsItThere) {
    Open(MakeModels("hull: frame(p), s"));
    Play("@ select frame, s");
    SetTable(PlainError("当前模型中没有钣金件") + "@ expect no box");
    EXPECT_EQ(Option("pro_sheet_met_dir"), "C:\\Tables\\");
    EXPECT_EQ(TableIn(*s_), "none");
}

TEST_F(SetBendTableCommand, WithNothingPickedItGoesOnAfterEachOfTheThreeMessages) {
    Open(*top_);
    Fail("ProArrayAlloc");
    SetTable(PlainError("ProArray Alloc error") + kBendTableDone);
    EXPECT_EQ(Option("pro_sheet_met_dir"), "C:\\Work");
    Fail("ProSolidFeatVisit");
    SetTable(PlainError("未找到子钣金件") + kBendTableDone);
    EXPECT_EQ(Option("pro_sheet_met_dir"), "C:\\Work");
    EXPECT_EQ(top_->regenerations, 2);
    EXPECT_EQ(Tables(), (Names{"none", "none"}));
    Model& hull = MakeModels("hull: p, s!suppressed, t!invisible, lost!missing");
    Open(hull);
    SetTable(PlainError("当前模型中没有子钣金件") + kBendTableDone);
    EXPECT_EQ(Option("pro_sheet_met_dir"), "C:\\Work");
    EXPECT_EQ(hull.regenerations, 1);
    EXPECT_EQ(hull.treeRefreshes, 1);
    EXPECT_EQ(host().session.current->repaints, 1);
}

TEST_F(SetBendTableCommand, AHostThatRefusesATableIsNotLookedAt) {
    s_->readOnly = true;
    Open(*top_);
    SetTable(kBendTableDone);
    EXPECT_EQ(Tables(), (Names{"none", "soft"}));
    EXPECT_DOUBLE_EQ(s_->partData.sheetMetal.developed, kWithoutTable);
}

TEST_F(SetBendTableCommand, APathThatCannotBeSplitChangesNoPartAndEndsAsUsual) {
    Open(*s_);
    Fail("ProFilenameParse");
    SetTable(kBendTableDone);
    EXPECT_EQ(TableIn(*s_), "none");
    EXPECT_EQ(Option("pro_sheet_met_dir"), "C:\\Work");
}

TEST_F(SetBendTableCommand, ANameOf32CharactersIsReadNoFurther) {
    const std::string name(32, 'b');
    WriteIn("C:\\Tables", name + ".bnd", TableText(6));
    Open(*s_);
    SetTable(kBendTableDone, "C:\\Tables\\" + name + ".bnd");
    EXPECT_EQ(TableIn(*s_), name);
}

TEST_F(SetBendTableCommand, WithoutAModelAtTheEndOnlyTheWindowIsRepainted) {
    Open(*s_);
    Fail("ProMdlCurrentGet", {.n = 2});
    SetTable(kBendTableDone);
    EXPECT_EQ(s_->regenerations, 0);
    EXPECT_EQ(s_->treeRefreshes, 0);
    EXPECT_EQ(host().session.current->repaints, 1);
}

TEST_F(SetBendTableCommand, WithoutACurrentModelNothingIsAskedOfIt) {
    Open(*s_);
    Fail("ProMdlCurrentGet");
    Record();
    SetTable(kBendTableDone);
    Recorded();
    EXPECT_EQ(Lines("ProMdlSubtypeGet"), Names{});
    EXPECT_EQ(TableIn(*s_), "none");
    EXPECT_EQ(s_->regenerations, 1);
}

TEST_F(SetBendTableCommand, ItsCallsComeInTheirOrderForAPart) {
    Open(*s_);
    Record();
    SetTable(kBendTableDone);
    EXPECT_EQ(Recorded(),
              (Names{"ProModeCurrentGet", "ProMessageDisplay", "ProConfigoptArrayGet",
                     "ProArraySizeGet", "ProArrayFree", "ProFileOpen", "ProFilenameParse",
                     "ProConfigoptSet", "ProMdlCurrentGet", "ProMdlTypeGet", "ProMdlSubtypeGet",
                     "ProSmtPartBendtableApply", "ProMdlCurrentGet", "ProSolidRegenerate",
                     "ProTreetoolRefresh", "ProWindowRepaint", "ProConfigoptSet", "MessageBoxW"}));
    EXPECT_EQ(Lines("ProWindowRepaint"), Names{"ProWindowRepaint(window=-1) = 0"});
    EXPECT_EQ(AllBoxes().at(0).flags, 0x40000u);
}

TEST_F(SetBendTableCommand, ItsCallsComeInTheirOrderForAnAssembly) {
    Open(MakeModels("pair: s"));
    Record();
    SetTable(kBendTableDone);
    EXPECT_EQ(Recorded(),
              (Names{"ProModeCurrentGet",  "ProMessageDisplay",   "ProConfigoptArrayGet",
                     "ProArraySizeGet",    "ProArrayFree",        "ProFileOpen",
                     "ProFilenameParse",   "ProConfigoptSet",     "ProMdlCurrentGet",
                     "ProMdlTypeGet",      "ProMdlSubtypeGet",    "ProSelbufferSelectionsGet",
                     "ProArrayAlloc",      "ProSolidFeatVisit",   "ProFeatureStatusflagsGet",
                     "ProFeatureTypeGet",  "ProFeatureStatusGet", "ProFeatureVisibilityGet",
                     "ProAsmcompMdlGet",   "ProMdlSubtypeGet",    "ProArrayObjectAdd",
                     "ProMdlTypeGet",      "ProArraySizeGet",     "ProAsmcompMdlGet",
                     "ProMdlTypeGet",      "ProMdlSubtypeGet",    "ProSmtPartBendtableApply",
                     "ProSolidRegenerate", "ProArrayFree",        "ProMdlCurrentGet",
                     "ProSolidRegenerate", "ProTreetoolRefresh",  "ProWindowRepaint",
                     "ProConfigoptSet",    "MessageBoxW"}));
}

TEST_F(SetBendTableCommand, WhatWasAppliedIsKeptInThePartsFile) {
    Open(*s_);
    SetTable(kBendTableDone);
    Play(
        "@ save s.prt\n@ erase s.prt\n@ open s.prt\n@ expect bend table s.prt soft\n"
        "@ expect developed length s.prt 57");
}

}  // namespace
