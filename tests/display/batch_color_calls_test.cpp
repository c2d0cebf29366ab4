// BatchColor: the order of its calls, what it says, and what a failing host leaves of it.
#include "simhost/core/operation.h"
#include "tests/display/colour_bench.h"

namespace {

using namespace simhost;
using workbench::ColourBench;
using workbench::Colours;
using workbench::Joined;
using workbench::Names;
using workbench::Rgb;

class BatchColorCalls : public ColourBench {
protected:
    void SetUp() override {
        ColourBench::SetUp();
        Setting("VxRandomColorOpt", "asUG");
    }
    int Repaints() { return host().session.current ? host().session.current->repaints : 0; }
};

const Names kRead = {"GetPrivateProfileStringW"};
// The mode from beside the module, the model's type and name, the paths of both palettes.
const Names kBeginning = {"GetSystemTimeAsFileTime",
                          "GetModuleHandleW",
                          "GetModuleFileNameW",
                          "GetPrivateProfileStringW",
                          "ProMdlTypeGet",
                          "ProMdlNameGet",
                          "ProToolkitApplTextPathGet",
                          "ProToolkitApplTextPathGet"};

Names Repeated(int times, const Names& calls) {
    Names all;
    for (int i = 0; i < times; ++i) all.insert(all.end(), calls.begin(), calls.end());
    return all;
}

// Of a part with this many surfaces.
Names ClearCalls(int surfaces) {
    return Joined(
        {{"ProMdlNameGet", "prodb_get_object_ptr", "ProArrayAlloc", "ProSolidSurfaceVisit"},
         Repeated(surfaces, {"ProArrayObjectAdd"}),
         {"ProArraySizeGet"},
         Repeated(surfaces, {"ProSurfaceToGeomitem", "prodb_unset_surface_props"}),
         {"ProArrayFree"}});
}

// --- Order -------------------------------------------------------------------------------------

TEST_F(BatchColorCalls, APartAloneIsFoundThenDrawsThenIsClearedThenSet) {
    Open(Part("single"));
    Record();
    Press("BatchColor");
    EXPECT_EQ(Recorded(), Joined({{"ProModeCurrentGet", "ProMdlCurrentGet"},
                                  kBeginning,
                                  {"prodb_get_object_ptr"},
                                  kRead,
                                  ClearCalls(6),
                                  {"prodb_set_surface_props", "ProWindowRepaint"}}));
}

TEST_F(BatchColorCalls, AnEntryOfTheListIsFoundThenClearedThenDrawsThenIsSet) {
    Model& part = Part("part");
    Model& top = Assembly("top");
    UseAll(top, {&part});
    Open(top);
    Record();
    Press("BatchColor");
    EXPECT_EQ(Recorded(),
              Joined({{"ProModeCurrentGet", "ProMdlCurrentGet"},
                      kBeginning,
                      // the walk
                      {"ProArrayAlloc", "ProSolidFeatVisit", "ProFeatureStatusflagsGet",
                       "ProFeatureTypeGet", "ProFeatureStatusGet", "ProFeatureVisibilityGet",
                       "ProArrayObjectAdd", "ProAsmcompMdlGet", "ProMdlTypeGet", "ProArraySizeGet",
                       "ProAsmcompMdlGet", "ProArrayFree"},
                      // the part
                      {"ProMdlNameGet", "ProMdlTypeGet", "prodb_get_object_ptr"},
                      ClearCalls(6),
                      kRead,
                      {"prodb_set_surface_props", "ProWindowRepaint"}}));
}

TEST_F(BatchColorCalls, ASubAssemblyOfTheListOnlyDrawsAndSets) {
    Model& part = Part("part", /*solids=*/0);
    Model& sub = AssemblyBehind(part);
    Model& top = Assembly("top");
    UseAll(top, {&part, &sub});
    Open(top);
    Record();
    Press("BatchColor");
    const Names names = Recorded();
    const Names end = {"prodb_set_surface_props",  "ProMdlNameGet",           "ProMdlTypeGet",
                       "GetPrivateProfileStringW", "prodb_set_surface_props", "ProWindowRepaint"};
    ASSERT_GE(names.size(), end.size());
    EXPECT_EQ(Names(names.end() - long(end.size()), names.end()), end);
}

TEST_F(BatchColorCalls, ObjectsAreAskedForByNameAndTheKindPrt) {
    Open(Part("single"));
    Record();
    Press("BatchColor");
    Recorded();
    EXPECT_EQ(Lines("prodb_get_object_ptr").front().substr(0, 54),
              "prodb_get_object_ptr(name=\"SINGLE\", kind=\"PRT\") = sing");
    EXPECT_EQ(Lines("ProArrayAlloc"), Names{"ProArrayAlloc(objects=0, objectSize=8, step=1) = 0"});
}

TEST_F(BatchColorCalls, TheCurrentWindowIsRepaintedOnceAtTheEnd) {
    Model& top = Assembly("top");
    for (int i = 0; i < 5; ++i) UseAll(top, {&Part("part" + std::to_string(i))});
    Open(top);
    Record();
    Press("BatchColor");
    Recorded();
    EXPECT_EQ(Lines("ProWindowRepaint"), Names{"ProWindowRepaint(window=-1) = 0"});
    EXPECT_EQ(host().journal.lines().back(), "ProWindowRepaint(window=-1) = 0");
    EXPECT_EQ(Repaints(), 1);
}

// --- Surfaces ----------------------------------------------------------------------------------

TEST_F(BatchColorCalls, TheSurfacesOfEveryPartLoseTheirOwnAppearances) {
    Model& first = Part("first");
    Model& second = Part("second", /*solids=*/2);
    Model& top = Assembly("top");
    UseAll(top, {&first, &second});
    Open(top);
    ColourSurfaces(first);
    ColourSurfaces(second);
    Record();
    Press("BatchColor");
    Recorded();
    EXPECT_TRUE(first.partData.surfaceAppearances.empty());
    EXPECT_TRUE(second.partData.surfaceAppearances.empty());
    // Six surfaces to a box, and each is named by its id, with the item type of a surface.
    const Names unset = Lines("prodb_unset_surface_props");
    EXPECT_EQ(unset.size(), 18u);
    EXPECT_EQ(std::count(unset.begin(), unset.end(),
                         "prodb_unset_surface_props(object=second.prt object, itemType=2, id=21, "
                         "unused=0) = 0"),
              1);
}

TEST_F(BatchColorCalls, TheSurfacesOfAPartAloneLoseTheirsToo) {
    Model& part = Part("single");
    Open(part);
    ColourSurfaces(part);
    Press("BatchColor");
    EXPECT_TRUE(part.partData.surfaceAppearances.empty());
    EXPECT_TRUE(part.appearance);
}

TEST_F(BatchColorCalls, APartWithoutSurfacesIsPaintedToo) {
    Model& part = Part("empty", /*solids=*/0);
    Open(part);
    Press("BatchColor");
    EXPECT_TRUE(part.appearance);
}

TEST_F(BatchColorCalls, WhenTheSurfacesCannotBeListedTheyStayAndThePartIsPainted) {
    Model& part = Part("single");
    Open(part);
    for (const char* operation : {"ProArrayAlloc", "ProSolidSurfaceVisit"}) {
        SCOPED_TRACE(operation);
        part.appearance.reset();
        ColourSurfaces(part);
        Fail(operation);
        Press("BatchColor");
        EXPECT_EQ(Operation::FiredFaults(), 1u);
        EXPECT_EQ(part.partData.surfaceAppearances.size(), 6u);
        EXPECT_TRUE(part.appearance);
        Operation::ForgetFaults();
    }
}

TEST_F(BatchColorCalls, ASurfaceThatCannotBeTreatedIsPassedOverAndTheOthersAreCleared) {
    Model& part = Part("single");  // surfaces 11 to 16
    Open(part);
    for (const char* operation :
         {"ProArrayObjectAdd", "ProSurfaceToGeomitem", "prodb_unset_surface_props"}) {
        SCOPED_TRACE(operation);
        ColourSurfaces(part);
        Fail(operation, {.n = 3});
        Press("BatchColor");
        ASSERT_EQ(part.partData.surfaceAppearances.size(), 1u);
        EXPECT_EQ(part.partData.surfaceAppearances.begin()->first, 13);
        Operation::ForgetFaults();
    }
}

// --- Nothing to colour -------------------------------------------------------------------------

TEST_F(BatchColorCalls, WithoutAnObjectTheSurfacesAreAskedForTheirIdsAndKeepTheirAppearances) {
    Open(Part("single"));
    Fail("prodb_get_object_ptr", {.forGood = true});
    Record();
    Press("BatchColor");
    const Names calls = Recorded();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "ProSurfaceToGeomitem"), 6);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "prodb_unset_surface_props"), 0);
}

TEST_F(BatchColorCalls, AnAssemblyWithoutComponentsIsToldInAPlainBoxAndNothingIsRepainted) {
    Open(Assembly("top"));
    Play(
        "~ Command `BatchColor`\n"
        "@ expect box \"当前模型中没有子零件/组件\"\n"
        "@ expect caption none\n"
        "@ ok\n");
    ASSERT_EQ(AllBoxes().size(), 1u);
    EXPECT_EQ(AllBoxes()[0].flags, 0u);
    EXPECT_EQ(Repaints(), 0);
}

TEST_F(BatchColorCalls, OnlySuppressedComponentsCountAsNone) {
    Model& top = Assembly("top");
    UseAll(top, {&Part("part")});
    FeatureOf(top, 1).status = PRO_FEAT_SUPPRESSED;
    Open(top);
    Play("~ Command `BatchColor`\n@ expect box \"当前模型中没有子零件/组件\"\n@ ok\n");
    EXPECT_EQ(Repaints(), 0);
}

TEST_F(BatchColorCalls, AnEmptyAssemblyOfAManufacturingModelIsToldToo) {
    Open(Manufacturing("mill", Assembly("workpieces")));
    Play("~ Command `BatchColor`\n@ expect box \"当前模型中没有子零件/组件\"\n@ ok\n");
    EXPECT_EQ(Repaints(), 0);
}

TEST_F(BatchColorCalls, AComponentWhoseModelIsMissingCountsAndOnlyRepaints) {
    Model& top = Assembly("top");
    UseMissing(top, "lost.prt");
    Open(top);
    Record();
    Press("BatchColor");
    Recorded();
    EXPECT_EQ(Lines("prodb_set_surface_props"), Names{});
    EXPECT_EQ(Repaints(), 1);
}

TEST_F(BatchColorCalls, SubAssembliesWithoutPartsHaveNoObjectToPaint) {
    Model& first = Assembly("first");
    Model& second = Assembly("second");
    UseAll(first, {&second});
    Model& top = Assembly("top");
    UseAll(top, {&first});
    Open(top);
    Record();
    Press("BatchColor");
    Recorded();
    EXPECT_EQ(Lines("prodb_set_surface_props"), Names{});
    EXPECT_EQ(Lines("prodb_get_object_ptr"), Names{});
    EXPECT_EQ(Repaints(), 1);
}

TEST_F(BatchColorCalls, OtherKindsOfModelsAreOnlyRepainted) {
    for (const ProMdlType type : {PRO_MDL_DRAWING, PRO_MDL_DWGFORM}) {
        SCOPED_TRACE(int(type));
        Open(host().session.Create(WIDE("sheet"), type));
        Record();
        RunAction("BatchColor");
        EXPECT_EQ(Recorded(), Joined({{"ProMdlCurrentGet"}, kBeginning, {"ProWindowRepaint"}}));
        EXPECT_EQ(Repaints(), 1);
    }
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(BatchColorCalls, WithoutACurrentModelTheCommandEndsBeforeAnythingElse) {
    Record();
    RunAction("BatchColor");
    EXPECT_EQ(Recorded(), Names{"ProMdlCurrentGet"});
    EXPECT_EQ(Boxes(), Names{});
}

TEST_F(BatchColorCalls, TheUserCanPressItForSolidsAndManufacturingOnly) {
    EXPECT_EQ(host().commands.Access("BatchColor"), ACCESS_INVISIBLE);
    Model& assembly = Assembly("assembly");
    const struct {
        Model& model;
        uiCmdAccessState state;
    } rows[] = {
        {Part("part"), ACCESS_AVAILABLE},
        {SheetMetal("sheet"), ACCESS_AVAILABLE},
        {assembly, ACCESS_AVAILABLE},
        {Manufacturing("mill", assembly), ACCESS_AVAILABLE},
        {host().session.Create(WIDE("drawing"), PRO_MDL_DRAWING), ACCESS_INVISIBLE},
        {host().session.Create(WIDE("format"), PRO_MDL_DWGFORM), ACCESS_INVISIBLE},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.model.FileName());
        Open(row.model);
        for (const char* command : {"BatchColor", "VxClearAllColor"}) {
            EXPECT_EQ(host().commands.Access(command), row.state);
        }
    }
}

// --- Failures ----------------------------------------------------------------------------------

TEST_F(BatchColorCalls, AManufacturingModelIsAskedForItsAssemblyAfterThePalettesAreFound) {
    Model& top = Assembly("top");
    UseAll(top, {&Part("part")});
    Open(Manufacturing("mill", top));
    Record();
    Press("BatchColor");
    Names calls = Recorded();
    const Names beginning = Joined({{"ProModeCurrentGet", "ProMdlCurrentGet"}, kBeginning});
    ASSERT_GT(calls.size(), beginning.size());
    EXPECT_EQ(calls.at(beginning.size()), "ProMfgAssemGet");
    calls.resize(beginning.size());
    EXPECT_EQ(calls, beginning);
}

TEST_F(BatchColorCalls, AManufacturingModelWithoutItsAssemblyHasNothingToColour) {
    Model& assembly = Assembly("workpieces");
    UseAll(assembly, {&Part("part")});
    Open(Manufacturing("mill", assembly));
    Fail("ProMfgAssemGet");
    Play("~ Command `BatchColor`\n@ expect box \"当前模型中没有子零件/组件\"\n@ ok\n");
    EXPECT_EQ(Repaints(), 0);
}

TEST_F(BatchColorCalls, AModelWhoseTypeCannotBeReadIsOnlyRepainted) {
    Model& part = Part("single");
    Open(part);
    Fail("ProMdlTypeGet");
    Press("BatchColor");
    EXPECT_FALSE(part.appearance);
    EXPECT_EQ(Repaints(), 1);
}

TEST_F(BatchColorCalls, APartWithoutAnObjectLeavesTheColourOfThePartBefore) {
    Model& first = Part("first");
    Model& second = PartBehind(first);
    Model& top = Assembly("top");
    UseAll(top, {&first, &second});
    Open(top);
    // The first part asks for its object twice, once to clear its surfaces.
    Fail("prodb_get_object_ptr", {.n = 3});
    Record();
    Press("BatchColor");
    Recorded();
    EXPECT_EQ(Lines("prodb_set_surface_props").size(), 1u);
    EXPECT_TRUE(first.appearance);
    EXPECT_FALSE(second.appearance);
}

TEST_F(BatchColorCalls, APartThatCannotBePaintedDoesNotEndTheBatch) {
    Model& first = Part("first");
    Model& second = PartBehind(first);
    Model& top = Assembly("top");
    UseAll(top, {&first, &second});
    Open(top);
    Fail("prodb_set_surface_props");
    Press("BatchColor");
    EXPECT_FALSE(first.appearance);
    EXPECT_TRUE(second.appearance);
    EXPECT_EQ(Repaints(), 1);
}

TEST_F(BatchColorCalls, WithoutSettingsTheColourOfTheRecordIsUsed) {
    Model& part = Part("single");
    Open(part);
    Fail("GetPrivateProfileStringW");
    Press("BatchColor");
    EXPECT_EQ(Present({&part}), (Colours{{&part, Rgb{}}}));
}

TEST_F(BatchColorCalls, WithoutATextFolderThePalettesAreNotFoundAndAllIsBlack) {
    Model& part = Part("single");
    Open(part);
    Fail("ProToolkitApplTextPathGet", {.forGood = true});
    Press("BatchColor");
    EXPECT_EQ(Present({&part}), (Colours{{&part, Rgb{}}}));
}

}  // namespace
