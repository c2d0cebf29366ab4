// SetMat: one material file for a part, for what is picked, or for all parts of an assembly.
#include <gtest/gtest.h>

#include "tests/modeldata/file_bench.h"
#include "tests/support/call_order.h"

namespace {

using namespace simhost;
using namespace workbench;

class SetMaterialCommand : public FileBench {
protected:
    // TOP holds A (1), A again (2), B (3), SUB (4) with A and C.
    void SetUp() override {
        FileBench::SetUp();
        top_ = &MakeModels("top: a x2, b, sub(a, c)");
    }
    std::string MaterialOfPart(const std::string& name) { return MaterialIn(ModelNamed(name)); }
    // Those of A, B and C.
    Names Materials() { return {MaterialOfPart("a"), MaterialOfPart("b"), MaterialOfPart("c")}; }

    Model* top_ = nullptr;
};

// --- The dialog --------------------------------------------------------------------------------

TEST_F(SetMaterialCommand, LeavingTheDialogChangesNothing) {
    Open(*top_);
    Play("@ option pro_material_dir C:\\Materials");
    Record();
    Play("~ Command `SetMat`\n@ quit\n@ expect no box");
    Recorded();
    EXPECT_EQ(Lines("ProDirectoryChange"), Names{});
    EXPECT_EQ(Lines("ProFilenameParse"), Names{});
    EXPECT_EQ(WorkingFolder(), "C:\\Work");
    EXPECT_EQ(Option("pro_material_dir"), "C:\\Materials");
    EXPECT_EQ(Materials(), (Names{"none", "none", "none"}));
}

TEST_F(SetMaterialCommand, TheDialogListsMaterialFilesAndOpensInTheOptionsFirstFolder) {
    WriteIn("C:\\Materials", "old.mat", MaterialText(7000));
    WriteIn("C:\\Materials", "notes.txt", "");
    Open(ModelNamed("a"));
    Play("@ option pro_material_dir C:\\Materials | C:\\Tables");
    Record();
    Play(std::string("~ Command `SetMat`\n@ answer old.mat\n") + kMaterialDone);
    Recorded();
    EXPECT_EQ(Lines("ProFileOpen"),
              Names{"ProFileOpen(title=\"请选择材料\", filter=\"*.mtl,*.mat\", "
                    "folder=\"C:\\Materials\", proposed=null, "
                    "path=\"C:\\Materials\\old.mat\") = 0"});
    EXPECT_EQ(MaterialOfPart("a"), "old");
}

TEST_F(SetMaterialCommand, WithoutTheOptionItOpensInTheWorkingFolder) {
    WriteIn("C:\\Work", "here.mtl", MaterialText(5000));
    Open(ModelNamed("a"));
    Record();
    Play(std::string("~ Command `SetMat`\n@ answer here.mtl\n") + kMaterialDone);
    Recorded();
    EXPECT_NE(Lines("ProFileOpen").at(0).find("folder=\"\""), std::string::npos);
    EXPECT_EQ(MaterialOfPart("a"), "here");
}

TEST_F(SetMaterialCommand, AnOptionWithoutAnyValueIsLikeNone) {
    host().configOptions[WIDE("pro_material_dir")] = {};  // no host is known to do that
    Open(ModelNamed("a"));
    SetMaterial(kMaterialDone);
    EXPECT_EQ(MaterialOfPart("a"), "steel");
}

TEST_F(SetMaterialCommand, TheMessageLineAsksAboutBendTablesFirst) {
    Open(*top_);
    Play(
        "~ Command `SetMat`\n"
        "@ expect message 为钣金件指定材料时是否更改折弯表\n@ quit");
}

// --- Which parts -------------------------------------------------------------------------------

TEST_F(SetMaterialCommand, ThePartThatIsOpenGetsIt) {
    Open(ModelNamed("b"));
    SetMaterial(kMaterialDone);
    EXPECT_EQ(Materials(), (Names{"none", "steel", "none"}));
    EXPECT_DOUBLE_EQ(MaterialOf(ModelNamed("b"))->density, 8000);
    EXPECT_TRUE(ModelNamed("b").modified);
}

TEST_F(SetMaterialCommand, ASelectionCountsOnlyInAnAssembly) {
    Open(ModelNamed("b"));
    Play("@ select .");
    Record();
    SetMaterial(kMaterialDone);
    Recorded();
    EXPECT_EQ(Lines("ProSelbufferSelectionsGet"), Names{});
    EXPECT_EQ(MaterialOfPart("b"), "steel");
}

TEST_F(SetMaterialCommand, WithNothingPickedAllPartsBelowGetItOnceForEachUse) {
    Open(*top_);
    Record();
    SetMaterial(kMaterialDone);
    Recorded();
    EXPECT_EQ(Materials(), (Names{"steel", "steel", "steel"}));
    EXPECT_EQ(Lines("ProMaterialfileRead"),
              (Names{"ProMaterialfileRead(part=a.prt, name=\"steel\") = 0",
                     "ProMaterialfileRead(part=a.prt, name=\"steel\") = 0",
                     "ProMaterialfileRead(part=b.prt, name=\"steel\") = 0",
                     "ProMaterialfileRead(part=a.prt, name=\"steel\") = 0",
                     "ProMaterialfileRead(part=c.prt, name=\"steel\") = 0"}));
    EXPECT_EQ(Lines("ProMaterialCurrentSet").at(4),
              "ProMaterialCurrentSet(material=\"steel\" of c.prt) = 0");
    EXPECT_EQ(ModelNamed("a").partData.materials.size(), 1u);
}

TEST_F(SetMaterialCommand, TwoPickedPartsAloneGetIt) {
    Open(*top_);
    Play("@ select b, sub/c");
    SetMaterial(kMaterialDone);
    EXPECT_EQ(Materials(), (Names{"none", "steel", "steel"}));
}

TEST_F(SetMaterialCommand, APickedAssemblyMeansAllPartsBelowIt) {
    Open(*top_);
    Play("@ select sub, b");
    Record();
    SetMaterial(kMaterialDone);
    Recorded();
    EXPECT_EQ(Lines("ProMaterialfileRead"),
              (Names{"ProMaterialfileRead(part=a.prt, name=\"steel\") = 0",
                     "ProMaterialfileRead(part=c.prt, name=\"steel\") = 0",
                     "ProMaterialfileRead(part=b.prt, name=\"steel\") = 0"}));
}

TEST_F(SetMaterialCommand, OtherItemsThatArePickedArePassedOver) {
    Open(*top_);
    Play("@ select b#11, a/feature#1");
    Record();
    SetMaterial(kMaterialDone);
    Recorded();
    EXPECT_EQ(Lines("ProModelitemMdlGet"), Names{});
    EXPECT_EQ(Materials(), (Names{"none", "none", "none"}));
}

TEST_F(SetMaterialCommand, ABufferThatIsReadAsEmptyMeansNoPart) {
    Open(*top_);
    Play("@ selection empty");
    SetMaterial(kMaterialDone);
    EXPECT_EQ(Materials(), (Names{"none", "none", "none"}));
}

TEST_F(SetMaterialCommand, ABufferThatCannotBeReadMeansNoPart) {
    Open(*top_);
    Fail("ProSelbufferSelectionsGet", {.status = PRO_TK_GENERAL_ERROR});
    SetMaterial(kMaterialDone);
    EXPECT_EQ(Materials(), (Names{"none", "none", "none"}));
}

TEST_F(SetMaterialCommand, AManufacturingModelGetsNothingButTheBox) {
    Open(Manufacturing("mill", *top_));
    EXPECT_EQ(host().commands.Access("SetMat"), ACCESS_INVISIBLE);
    RunAction("SetMat", "@ answer C:\\Materials\\steel.mtl\n" + std::string(kMaterialDone));
    EXPECT_EQ(Materials(), (Names{"none", "none", "none"}));
    EXPECT_EQ(WorkingFolder(), "C:\\Work");
}

TEST_F(SetMaterialCommand, APickWhoseItemOrModelCannotBeHadIsPassedOver) {
    Open(*top_);
    for (const char* call : {"ProSelectionModelitemGet", "ProModelitemMdlGet"}) {
        Play("@ select a, b");
        ModelNamed("b").partData.material.clear();
        Fail(call);
        SetMaterial(kMaterialDone);
        EXPECT_EQ(Materials(), (Names{"none", "steel", "none"})) << call;
    }
}

TEST_F(SetMaterialCommand, AComponentWhoseModelCannotBeHadIsPassedOver) {
    Open(*top_);
    // Six in the walk, then one for each of five uses: the third is B's.
    Fail("ProAsmcompMdlGet", {.n = 9});
    SetMaterial(kMaterialDone);
    EXPECT_EQ(Materials(), (Names{"steel", "none", "steel"}));
}

// --- The ends ----------------------------------------------------------------------------------

TEST_F(SetMaterialCommand, TheFolderIsTheFilesWhileItIsReadAndThenTheOneBefore) {
    Open(ModelNamed("a"));
    Record();
    SetMaterial(kMaterialDone);
    Recorded();
    EXPECT_EQ(Lines("ProDirectoryChange"),
              (Names{"ProDirectoryChange(directory=\"C:\\Materials\\\") = 0",
                     "ProDirectoryChange(directory=\"C:\\Work\\\") = 0"}));
    EXPECT_EQ(WorkingFolder(), "C:\\Work");
}

TEST_F(SetMaterialCommand, WithoutMemoryForAWalkItEndsInTheFolderOfTheFile) {
    Open(*top_);
    for (const char* picks : {"@ clear selection", "@ select sub"}) {
        Play(std::string(picks) + "\n@ directory C:\\Work");
        Fail("ProArrayAlloc");
        SetMaterial(PlainError("ProArray Alloc error") + "@ expect no box");
        EXPECT_EQ(WorkingFolder(), "C:\\Materials") << picks;
        EXPECT_EQ(Materials(), (Names{"none", "none", "none"})) << picks;
        EXPECT_EQ(host().session.current->repaints, 0) << picks;
    }
}

TEST_F(SetMaterialCommand, AWalkThatFailsEndsItInTheFolderOfTheFile) {
    Open(*top_);
    for (const char* picks : {"@ clear selection", "@ select sub"}) {
        Play(std::string(picks) + "\n@ directory C:\\Work");
        Fail("ProSolidFeatVisit");
        SetMaterial(PlainError("未找到子零件") + "@ expect no box");
        EXPECT_EQ(WorkingFolder(), "C:\\Materials") << picks;
        EXPECT_EQ(host().session.current->repaints, 0) << picks;
    }
}

TEST_F(SetMaterialCommand, AWalkThatFindsNoPartEndsItInTheFolderOfTheFile) {
    Open(MakeModels("hull: shell.asm, a!suppressed, b!invisible"));
    for (const char* picks : {"@ clear selection", "@ select shell"}) {
        Play(std::string(picks) + "\n@ directory C:\\Work");
        SetMaterial(PlainError("当前模型中没有零件") + "@ expect no box");
        EXPECT_EQ(WorkingFolder(), "C:\\Materials") << picks;
        EXPECT_EQ(Materials(), (Names{"none", "none", "none"})) << picks;
    }
}

TEST_F(SetMaterialCommand, WhatWasDoneBeforeAnEmptyAssemblyStaysDone) {
    Open(MakeModels("hull: b, shell.asm, c"));
    Play("@ select b, shell, c");
    SetMaterial(PlainError("当前模型中没有零件") + "@ expect no box");
    EXPECT_EQ(Materials(), (Names{"none", "steel", "none"}));
}

TEST_F(SetMaterialCommand, AHostThatRefusesAMaterialIsNotLookedAt) {
    ModelNamed("b").readOnly = true;
    Open(*top_);
    SetMaterial(kMaterialDone);
    EXPECT_EQ(Materials(), (Names{"steel", "none", "steel"}));
}

TEST_F(SetMaterialCommand, AMaterialThatIsReadAgainTakesThePlaceOfTheOldOne) {
    Open(ModelNamed("a"));
    SetMaterial(kMaterialDone);
    SetMaterial(kMaterialDone, "C:\\Materials\\brass.mtl");
    WriteIn("C:\\Materials", "steel.mtl", MaterialText(8100));
    SetMaterial(kMaterialDone);
    const PartData& part = ModelNamed("a").partData;
    ASSERT_EQ(part.materials.size(), 2u);
    EXPECT_DOUBLE_EQ(part.materials[0].density, 8100);
    EXPECT_EQ(MaterialOfPart("a"), "steel");
}

TEST_F(SetMaterialCommand, TheNameIsThatOfTheFileWithoutVersionAndExtension) {
    WriteIn("C:\\Materials", "钢 45.x.mtl.3", MaterialText(7850));
    Open(ModelNamed("a"));
    SetMaterial(kMaterialDone, "C:\\Materials\\钢 45.x.mtl");
    EXPECT_EQ(MaterialOfPart("a"), "钢 45.x");
}

TEST_F(SetMaterialCommand, ANameOf32CharactersFillsItsRecordAndIsReadNoFurther) {
    const std::string name(32, 'm');
    WriteIn("C:\\Materials", name + ".mtl", MaterialText(7850));
    Open(ModelNamed("a"));
    SetMaterial(kMaterialDone, "C:\\Materials\\" + name + ".mtl");
    EXPECT_EQ(MaterialOfPart("a"), name);
}

TEST_F(SetMaterialCommand, APathThatCannotBeSplitChangesNoPartAndEndsAsUsual) {
    Open(ModelNamed("a"));
    Fail("ProFilenameParse");
    SetMaterial(kMaterialDone);
    EXPECT_EQ(MaterialOfPart("a"), "none");
    EXPECT_EQ(WorkingFolder(), "C:\\Work");
}

TEST_F(SetMaterialCommand, ItsCallsComeInTheirOrderForAPart) {
    Open(ModelNamed("a"));
    Record();
    SetMaterial(kMaterialDone);
    EXPECT_EQ(
        Recorded(),
        (Names{"ProModeCurrentGet", "ProMessageDisplay", "ProConfigoptArrayGet", "ProFileOpen",
               "ProFilenameParse", "ProDirectoryCurrentGet", "ProDirectoryChange",
               "ProMdlCurrentGet", "ProMdlTypeGet", "ProMaterialfileRead", "ProMaterialCurrentSet",
               "ProDirectoryChange", "ProWindowCurrentGet", "ProWindowActivate", "MessageBoxW"}));
    EXPECT_EQ(
        Lines("ProWindowActivate"),
        Names{"ProWindowActivate(window=" + std::to_string(host().session.current->id) + ") = 0"});
    EXPECT_EQ(AllBoxes().at(0).flags, 0x40000u);
}

TEST_F(SetMaterialCommand, ItsCallsComeInTheirOrderForAPickedAssembly) {
    Open(MakeModels("pair: unit(rod)"));
    Play("@ option pro_material_dir C:\\Materials\n@ select unit");
    Record();
    SetMaterial(kMaterialDone, "steel.mtl");
    EXPECT_EQ(Recorded(), (Names{"ProModeCurrentGet",
                                 "ProMessageDisplay",
                                 "ProConfigoptArrayGet",
                                 "ProArraySizeGet",
                                 "ProArrayFree",
                                 "ProFileOpen",
                                 "ProFilenameParse",
                                 "ProDirectoryCurrentGet",
                                 "ProDirectoryChange",
                                 "ProMdlCurrentGet",
                                 "ProMdlTypeGet",
                                 "ProSelbufferSelectionsGet",
                                 "ProArraySizeGet",
                                 "ProSelectionModelitemGet",
                                 "ProModelitemMdlGet",
                                 "ProArrayAlloc",
                                 "ProSolidFeatVisit",
                                 "ProFeatureStatusflagsGet",
                                 "ProFeatureTypeGet",
                                 "ProFeatureStatusGet",
                                 "ProFeatureVisibilityGet",
                                 "ProAsmcompMdlGet",
                                 "ProMdlTypeGet",
                                 "ProArrayObjectAdd",
                                 "ProArraySizeGet",
                                 "ProAsmcompMdlGet",
                                 "ProMaterialfileRead",
                                 "ProMaterialCurrentSet",
                                 "ProArrayFree",
                                 "ProArrayFree",
                                 "ProDirectoryChange",
                                 "ProWindowCurrentGet",
                                 "ProWindowActivate",
                                 "MessageBoxW"}));
}

TEST_F(SetMaterialCommand, WhatWasReadIsKeptInThePartsFile) {
    Open(ModelNamed("b"));
    SetMaterial(kMaterialDone);
    Play("@ save b.prt\n@ erase b.prt\n@ open b.prt\n@ expect material b.prt steel");
}

}  // namespace
