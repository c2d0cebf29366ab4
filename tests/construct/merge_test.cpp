// VxMerge, VxMergeTo: which parts are merged into what, where they come to lie, what the model tree
// shows, and what is left when a step fails.
#include "simhost/model/shape.h"
#include "simhost/model/solid_features.h"
#include "tests/construct/templates.h"
#include "tests/support/call_order.h"
#include "tests/support/solids.h"

namespace {

using namespace construct_tests;
using workbench::ExpectBox;
using workbench::MakeModels;
using workbench::ModelNamed;

const std::string kNoTemplate = "零件模板加载失败，请确认template_solidpart选项是否配置正确";
const std::string kSelectParts = "请先选择需要合并的零件(不支持组件)";
const std::string kOtherName = "名称已存在或输入非法，请重新输入";
const std::string kNoCsysInAssembly = "当前组件无坐标系,无法缺省装配新零件";
const std::string kNoCsysInTemplate = "零件模板无坐标系,无法缺省装配新零件";
const std::string kNotAPart = "当前激活的元件不是零件，无法合并";
const std::string kNotFound = "当前组件中找不到激活的零件，无法合并";

class Merging : public TemplateBench {
protected:
    void SetUp() override { WriteTemplates(); }

    // TOP with a plate of 10 x 20 x 30 that is turned by a quarter about z at (50, 60, 70): from
    // (30, 60, 70) to (50, 70, 100); with SUB at (1000, 0, 0) and in it a bolt of the same size,
    // from (1000, -30, -7) to (1010, 0, 13); with a coordinate system off its origin.
    Model& Top() {
        Model& top = MakeModels("top: plate, sub(bolt)");
        top.FindFeature(1)->placement = PlacementFrom({50, 60, 70}, {0, 0, 90});
        top.FindFeature(2)->placement.origin = {1000, 0, 0};
        ModelNamed("sub").FindFeature(1)->placement = PlacementFrom({0, 0, -7}, {90, 0, 0});
        AddCsys(top);
        Open(top);
        Start();
        return top;
    }
    // The texts of the boxes that the lines bring; each is a notice.
    Names NoticesOf(const std::string& lines) {
        const std::size_t before = AllBoxes().size();
        Play(lines);
        Names texts;
        const std::vector<Box> all = AllBoxes();
        for (std::size_t i = before; i < all.size(); ++i) {
            EXPECT_TRUE(IsNotice(all[i])) << Utf8(all[i].text);
            texts.push_back(Utf8(all[i].text));
        }
        return texts;
    }
    // The names of a part's merges, in the order of its tree.
    static Names Merges(const Model& part) {
        Names names;
        for (const Feature& feature : part.features()) {
            if (feature.type == kMergeFeature) names.push_back(Utf8(feature.name));
        }
        return names;
    }
    // Where the n-th solid of a part lies, with the part at this place.
    static void ExpectSolid(const Model& part, std::size_t n, const Placement& place, Vec3 low,
                            Vec3 high) {
        ASSERT_GT(part.partData.solids.size(), n);
        ExpectBox(ExtentsIn(ShapeOf({part.partData.solids[n]}), place), low, high);
    }
    // Lines with which a press begins that asks for a name.
    static std::string Press(const std::string& select, const std::string& name) {
        return "@ select " + select + "\n~ Command `VxMerge`\n@ answer " + name;
    }
};

// --- VxMerge ---

TEST_F(Merging, MakesANewPartOfTheSelectedOnesWhereTheyLie) {
    Model& top = Top();
    EXPECT_EQ(NoticesOf(Press("plate, sub/bolt", "unit")), Names{});
    EXPECT_EQ(Components(top), (Names{"plate.prt", "sub.asm", "unit.prt"}));
    const Feature& component = top.features().back();
    ASSERT_TRUE(component.constraints);
    EXPECT_EQ(ConstraintText(component.constraints->at(0)), "csys: csys#5 to csys#4");
    EXPECT_FALSE(IsSamePlace(component.placement, {})) << "the coordinate systems differ";
    ASSERT_EQ(component.model->partData.solids.size(), 2u);
    ExpectSolid(*component.model, 0, component.placement, {30, 60, 70}, {50, 70, 100});
    ExpectSolid(*component.model, 1, component.placement, {1000, -30, -7}, {1010, 0, 13});
    EXPECT_EQ(Files(), Names{"unit.prt.1"}) << "saved as the template was, before the merging";
    EXPECT_TRUE(component.model->modified);
    EXPECT_EQ(top.treeRefreshes, 1);
}

TEST_F(Merging, AssembliesAndWhatIsNoModelArePassedOverWithoutAWord) {
    Top();
    EXPECT_EQ(NoticesOf(Press("sub, plate, plate#11, sub/bolt", "unit")), Names{});
    EXPECT_EQ(Merges(ModelNamed("unit")), (Names{"合并1", "合并1"}));
}

TEST_F(Merging, APartThatIsSelectedTwiceIsMergedFromBothItsPlaces) {
    Model& top = Top();
    Use(top, ModelNamed("plate"));
    Play(Press("plate:2, plate", "unit"));
    const Feature& component = top.features().back();
    ExpectSolid(*component.model, 0, component.placement, {0, 0, 0}, {10, 20, 30});
    ExpectSolid(*component.model, 1, component.placement, {30, 60, 70}, {50, 70, 100});
}

TEST_F(Merging, GoesIntoTheAssemblyThatIsActive) {
    Model& top = Top();
    Model& sub = ModelNamed("sub");
    AddCsys(sub, {0, 8, 0}, {0, 90, 0});
    Play("@ activate sub\n" + Press("plate, sub/bolt", "unit"));
    EXPECT_EQ(Components(top), (Names{"plate.prt", "sub.asm"}));
    EXPECT_EQ(Components(sub), (Names{"bolt.prt", "unit.prt"}));
    const Placement place = Compose(top.FindFeature(2)->placement, sub.features().back().placement);
    ExpectSolid(ModelNamed("unit"), 0, place, {30, 60, 70}, {50, 70, 100});
    ExpectSolid(ModelNamed("unit"), 1, place, {1000, -30, -7}, {1010, 0, 13});
}

TEST_F(Merging, TheTemplateIsAskedForBeforeTheSelection) {
    Top();
    NoOption("template_solidpart");
    EXPECT_EQ(NoticesOf("@ clear selection\n~ Command `VxMerge`\n@ ok"), Names{kNoTemplate});
    Option("template_solidpart", kTemplates + WIDE("none.prt"));
    EXPECT_EQ(NoticesOf("@ clear selection\n~ Command `VxMerge`\n@ ok"), Names{kNoTemplate});
    Option("template_solidpart", kTemplates + WIDE("start.asm"));
    EXPECT_EQ(NoticesOf("@ clear selection\n~ Command `VxMerge`\n@ ok"), Names{kNoTemplate})
        << "an assembly is no template of a part";
}

TEST_F(Merging, WithoutASelectionNoNameIsAsked) {
    Model& top = Top();
    Record();
    EXPECT_EQ(NoticesOf("@ clear selection\n~ Command `VxMerge`\n@ ok"), Names{kSelectParts});
    EXPECT_EQ(NoticesOf("@ selection empty\n~ Command `VxMerge`\n@ ok"), Names{kSelectParts});
    Fail("ProSelbufferSelectionsGet");
    EXPECT_EQ(NoticesOf("@ select plate\n~ Command `VxMerge`\n@ ok"), Names{kSelectParts});
    EXPECT_EQ(Lines("ProMessageStringRead"), Names{});
    EXPECT_EQ(top.features().size(), 3u);
}

TEST_F(Merging, LeavingTheQuestionMakesNothing) {
    Model& top = Top();
    EXPECT_EQ(NoticesOf("@ select plate\n~ Command `VxMerge`\n@ quit"), Names{});
    EXPECT_EQ(top.features().size(), 3u);
    EXPECT_EQ(Files(), Names{});
}

TEST_F(Merging, AsksAgainForANameThatIsTakenOrIllegal) {
    Top();
    Write(WIDE("C:\\Work\\lid.prt.3"), "[model]\ntype = \"part\"\n");
    EXPECT_EQ(NoticesOf(Press("plate", "bolt") + "\n@ ok\n@ answer a.b\n@ ok\n@ answer lid\n@ ok\n"
                                                 "@ answer unit"),
              (Names{kOtherName, kOtherName, kOtherName}));
    EXPECT_EQ(Merges(ModelNamed("unit")), Names{"合并1"});
    EXPECT_EQ(Files(), (Names{"lid.prt.3", "unit.prt.1"}));
}

TEST_F(Merging, TheQuestionIsTheOneOfTheMessageFileAndThirtyTwoLettersAreTaken) {
    Top();
    const std::string longest = "abcdefghijklmnopqrstuvwxyz123456";
    Record();
    Play(Press("plate", longest));
    EXPECT_NE(InMemory(longest + ".prt"), nullptr);
    ASSERT_EQ(Lines("ProMessageDisplay").size(), 1u);
    EXPECT_NE(Lines("ProMessageDisplay")[0].find("\"USER Enter a new name: \""), std::string::npos);
    ASSERT_EQ(Lines("ProMessageStringRead").size(), 1u);
    EXPECT_NE(Lines("ProMessageStringRead")[0].find("32"), std::string::npos);
}

TEST_F(Merging, AnAssemblyWithoutACoordinateSystemIsToldAndTheMergingGoesOn) {
    Model& top = Top();
    top.RemoveFeature(3);
    EXPECT_EQ(NoticesOf(Press("plate, sub/bolt", "unit") + "\n@ ok"), Names{kNoCsysInAssembly});
    const Feature& component = top.features().back();
    EXPECT_FALSE(component.constraints);
    EXPECT_EQ(top.treeRefreshes, 0);
    EXPECT_EQ(Merges(*component.model).size(), 2u);
    ExpectSolid(*component.model, 0, {}, {30, 60, 70}, {50, 70, 100});
}

TEST_F(Merging, ATemplateWithoutACoordinateSystemIsToldAndNothingIsMerged) {
    WriteTemplate(WIDE("bare.prt.1"), "part", "");
    Option("template_solidpart", kTemplates + WIDE("bare.prt"));
    Model& top = Top();
    EXPECT_EQ(NoticesOf(Press("plate", "unit") + "\n@ ok"), Names{kNoCsysInTemplate});
    EXPECT_EQ(Components(top).back(), "unit.prt");
    EXPECT_EQ(Merges(ModelNamed("unit")), Names{});
    top.RemoveFeature(3);
    EXPECT_EQ(NoticesOf(Press("plate", "other") + "\n@ ok"), Names{kNoCsysInAssembly})
        << "the assembly comes first, and with it the merging";
    EXPECT_EQ(Merges(ModelNamed("other")), Names{"合并1"});
}

TEST_F(Merging, AnActiveManufacturingModelGetsNoPartAndItsAssemblyNeither) {
    Model& mill = MakeModels("mill.mfg: asm1(plate)");
    AddCsys(ModelNamed("asm1"));
    Open(mill);
    Start();
    EXPECT_EQ(NoticesOf(Press("plate", "unit") + "\n@ ok"), Names{kNoCsysInAssembly});
    EXPECT_EQ(Components(ModelNamed("asm1")), Names{"plate.prt"});
    EXPECT_EQ(Merges(ModelNamed("unit")), Names{"合并1"});
}

TEST_F(Merging, ThePartIsMadeSavedAssembledAndRegeneratedAfterEachMerge) {
    Top();
    Record();
    Play(Press("plate, sub/bolt", "unit"));
    const Names calls = workbench::CallOrder(
        Recorded(),
        {"ProConfigoptArrayGet", "ProMdlLoad", "ProSelbufferSelectionsGet", "ProMdlActiveGet",
         "ProMessageDisplay", "ProMessageStringRead", "ProMdlCopy", "ProMdlSave",
         "ProMdlToModelitem", "ProAsmcompAssemble", "ProAsmcompConstraintsSet",
         "ProSelectionModelitemGet", "ProFeatureCreate", "ProElementFree", "ProSolidRegenerate"});
    Names operations;
    for (const std::string& call : calls) operations.push_back(call.substr(0, call.find(' ')));
    EXPECT_EQ(operations,
              (Names{"ProConfigoptArrayGet", "ProMdlLoad", "ProSelbufferSelectionsGet",
                     "ProMdlActiveGet", "ProMessageDisplay", "ProMessageStringRead", "ProMdlCopy",
                     "ProMdlSave", "ProMdlToModelitem", "ProAsmcompAssemble",
                     "ProAsmcompConstraintsSet", "ProSelectionModelitemGet", "ProFeatureCreate",
                     "ProElementFree", "ProSolidRegenerate", "ProSelectionModelitemGet",
                     "ProFeatureCreate", "ProElementFree", "ProSolidRegenerate"}));
}

TEST_F(Merging, TheComponentIsConstrainedInItsPrescribedOrder) {
    Top();
    Record();
    Play(Press("sub", "unit"));
    Names operations;
    for (const std::string& call : workbench::CallOrder(
             Recorded(),
             {"ProAsmcompAssemble", "ProAsmcompconstraintAlloc", "ProSolidCsysVisit",
              "ProCsysToGeomitem", "ProSelectionAlloc", "ProArrayFree",
              "ProAsmcompconstraintAsmreferenceSet", "ProAsmcompconstraintCompreferenceSet",
              "ProAsmcompConstraintsSet", "ProSelectionFree", "ProTreetoolRefresh"})) {
        operations.push_back(call.substr(0, call.find(' ')));
    }
    const auto from = std::find(operations.begin(), operations.end(), "ProAsmcompAssemble");
    const auto to = std::find(from, operations.end(), "ProTreetoolRefresh");
    EXPECT_EQ(Names(from, to),
              (Names{"ProAsmcompAssemble", "ProAsmcompconstraintAlloc", "ProSolidCsysVisit",
                     "ProSolidCsysVisit", "ProCsysToGeomitem", "ProSelectionAlloc",
                     "ProCsysToGeomitem", "ProSelectionAlloc", "ProArrayFree", "ProArrayFree",
                     "ProAsmcompconstraintAsmreferenceSet", "ProAsmcompconstraintCompreferenceSet",
                     "ProAsmcompConstraintsSet", "ProSelectionFree", "ProSelectionFree",
                     "ProArrayFree"}));
}

TEST_F(Merging, EachElementHasItsValueBeforeItIsAddedAndTheTargetIsSelectedAfterThem) {
    Top();
    Play("@ activate plate");
    Record();
    Play("~ Command `VxMergeTo`\n@ pick sub/bolt");
    Names made;
    for (const std::string& line : Recorded()) {
        const std::string operation = line.substr(0, line.find('('));
        for (const char* each : {"ProElem", "ProValue", "ProSelectionAlloc", "ProFeatureCreate"}) {
            if (operation.find(each) == 0) made.push_back(operation);
        }
    }
    const Names plain{"ProElementAlloc", "ProElemtreeElementAdd"};
    const Names valued{"ProElementAlloc", "ProValueAlloc", "ProValueDataSet", "ProElementValueSet",
                       "ProElemtreeElementAdd"};
    EXPECT_EQ(made,
              workbench::Joined({{"ProElementAlloc"},
                                 valued,  // the type of the feature
                                 valued,  // its name
                                 valued,
                                 plain,
                                 valued,
                                 valued,  // the part
                                 plain,
                                 plain,
                                 plain,
                                 valued,
                                 {"ProSelectionAlloc", "ProFeatureCreate", "ProElementFree"}}));
}

TEST_F(Merging, WithoutATreeOrASelectedTargetNoFeatureIsAskedFor) {
    Top();
    for (const char* operation : {"ProElementAlloc", "ProSelectionAlloc"}) {
        Play("@ activate plate");
        Fail(operation);
        Record();
        Play("~ Command `VxMergeTo`\n@ pick sub/bolt");
        EXPECT_EQ(Lines("ProFeatureCreate"), Names{}) << operation;
    }
}

TEST_F(Merging, RegeneratesAsAUserWouldAndAsksNobodyAboutTheTemplate) {
    Top();
    Record();
    Play(Press("plate", "unit") + "\n@ activate plate\n~ Command `VxMergeTo`\n@ pick sub/bolt");
    EXPECT_EQ(Lines("ProSolidRegenerate"),
              (Names{"ProSolidRegenerate(solid=unit.prt, flags=0) = 0",
                     "ProSolidRegenerate(solid=plate.prt, flags=0) = 0"}));
    ASSERT_EQ(Lines("ProMdlLoad").size(), 1u);
    EXPECT_NE(Lines("ProMdlLoad")[0].find("askUser=0"), std::string::npos);
}

// A tree that lacks something makes no feature, and nothing of it is left behind.
TEST_F(Merging, WhatTheHostRefusesOfATreeLeavesNoFeature) {
    Top();
    int made = 0;
    for (const auto& [operation, calls] :
         std::vector<std::pair<std::string, unsigned>>{{"ProElementAlloc", 11},
                                                       {"ProElemtreeElementAdd", 10},
                                                       {"ProValueAlloc", 6},
                                                       {"ProValueDataSet", 6},
                                                       {"ProElementValueSet", 6},
                                                       {"ProFeatureCreate", 1}}) {
        for (unsigned n = 1; n <= calls; ++n) {
            const std::string name = "unit" + std::to_string(++made);
            Fail(operation, {.n = n});
            Play(Press("plate", name));
            EXPECT_EQ(Merges(ModelNamed(name)), Names{}) << operation << " " << n;
        }
    }
}

TEST_F(Merging, ARefusedMergeDoesNotStopTheOthers) {
    Model& top = Top();
    Use(top, workbench::MakePart("empty", 0));
    Play(Press("empty, plate", "unit"));
    EXPECT_EQ(Merges(ModelNamed("unit")), Names{"合并1"});
}

// --- VxMergeTo ---

TEST_F(Merging, PickedPartsComeIntoTheActiveOneInTheOrderOfPicking) {
    Model& top = Top();
    Use(top, MakeModels("lid")).placement.origin = {0, 0, 500};
    EXPECT_EQ(NoticesOf("@ activate plate\n~ Command `VxMergeTo`\n@ pick lid, sub/bolt"), Names{});
    Model& plate = ModelNamed("plate");
    EXPECT_EQ(Merges(plate), (Names{"合并", "合并"}));
    const Placement place = top.FindFeature(1)->placement;
    ASSERT_EQ(plate.partData.solids.size(), 3u);
    ExpectSolid(plate, 1, place, {0, 0, 500}, {10, 20, 530});
    ExpectSolid(plate, 2, place, {1000, -30, -7}, {1010, 0, 13});
    EXPECT_TRUE(plate.modified);
    EXPECT_EQ(Files(), Names{}) << "nothing is saved";
}

TEST_F(Merging, AnyOtherActiveModelIsToldAndNoPickIsAsked) {
    Top();
    Record();
    EXPECT_EQ(NoticesOf("~ Command `VxMergeTo`\n@ ok"), Names{kNotAPart});
    EXPECT_EQ(NoticesOf("@ activate sub\n~ Command `VxMergeTo`\n@ ok"), Names{kNotAPart});
    EXPECT_EQ(Lines("ProSelect"), Names{});
}

TEST_F(Merging, APartInAWindowOfItsOwnIsNotInAnAssembly) {
    Open(MakeModels("plate"));
    Start();
    Record();
    EXPECT_EQ(NoticesOf("@ mapped key VxMergeTo\n@ ok"), Names{kNotFound});
    EXPECT_EQ(Lines("ProAsmcomppath*"), Names{});
    EXPECT_EQ(Lines("ProSelect"), Names{});
    EXPECT_EQ(Lines("ProWindow*"), Names{});
}

// The line of SUB2/PIN/BOLT comes after those of other branches as deep.
TEST_F(Merging, TheWayToTheTargetIsThroughItsOwnParents) {
    Model& top = MakeModels("top: a(b(c)), d, sub2(plate, pin(lid, bolt))");
    Open(top);
    Start();
    Play("@ activate sub2/pin/bolt");
    Record();
    Play("~ Command `VxMergeTo`\n@ pick d");
    ASSERT_EQ(Lines("ProAsmcomppathInit").size(), 1u);
    EXPECT_NE(Lines("ProAsmcomppathInit")[0].find("[3, 2, 2]"), std::string::npos)
        << Lines("ProAsmcomppathInit")[0];
    EXPECT_EQ(Merges(ModelNamed("bolt")), Names{"合并"});
}

TEST_F(Merging, APartThatIsUsedTwiceIsFoundAtItsFirstPlace) {
    Model& top = MakeModels("top: lid, sub(plate), plate");
    Open(top);
    Start();
    Play("@ activate plate");
    Record();
    Play("~ Command `VxMergeTo`\n@ pick lid");
    ASSERT_EQ(Lines("ProAsmcomppathInit").size(), 1u);
    EXPECT_NE(Lines("ProAsmcomppathInit")[0].find("[2, 1]"), std::string::npos)
        << Lines("ProAsmcomppathInit")[0];
}

// A path has room for 25 ids.
TEST_F(Merging, APartThatIsDeeperThanAPathCanTellIsNotFound) {
    Model& top = MakeModels("top: lid");
    Model* above = &top;
    for (int depth = 0; depth < 25; ++depth) {
        if (depth == 24) Use(*above, MakeModels("bolt"));
        Model& next = Assembly("level" + std::to_string(depth));
        Use(*above, next);
        above = &next;
    }
    Use(*above, MakeModels("plate"));
    Open(top);
    Start();
    std::vector<int> path(25, 1);
    path.front() = 2;
    host().session.current->activated = path;
    Play("~ Command `VxMergeTo`\n@ pick lid");
    EXPECT_EQ(Merges(ModelNamed("bolt")), Names{"合并"});
    path.back() = 2;
    path.push_back(1);
    host().session.current->activated = path;
    EXPECT_EQ(NoticesOf("~ Command `VxMergeTo`\n@ ok"), Names{kNotFound});
}

TEST_F(Merging, AnAssemblyOfThePartsNameIsNotTakenForIt) {
    Model& top = MakeModels("top: plate.asm(lid), bolt, plate.prt");
    Open(top);
    Start();
    Play("@ activate plate.prt\n~ Command `VxMergeTo`\n@ pick bolt");
    EXPECT_EQ(Merges(ModelNamed("plate.prt")), Names{"合并"});
}

TEST_F(Merging, TheListIsMadeAnewEachTime) {
    Top();
    Play("@ activate plate\n~ Command `VxMergeTo`\n@ pick sub/bolt");
    Play("@ activate sub/bolt\n~ Command `VxMergeTo`\n@ pick nothing");
    Play("@ activate plate\n~ Command `VxMergeTo`\n@ pick sub/bolt");
    EXPECT_EQ(Merges(ModelNamed("plate")).size(), 2u);
}

TEST_F(Merging, TheWindowIsShownAnewWhateverWasPicked) {
    Top();
    const Names expected{"ProWindowCurrentGet", "ProWindowActivate", "ProWindowRepaint",
                         "ProWindowRefresh"};
    for (const char* answer : {"@ pick sub/bolt", "@ pick nothing", "@ quit"}) {
        Play("@ activate plate");
        Record();
        Play(std::string("~ Command `VxMergeTo`\n") + answer);
        Names operations;
        for (const std::string& line : Lines("ProWindow*")) {
            operations.push_back(line.substr(0, line.find('(')));
        }
        EXPECT_EQ(operations, expected) << answer;
    }
    EXPECT_EQ(Merges(ModelNamed("plate")).size(), 1u);
}

TEST_F(Merging, PartsOnlyAndAnyNumberOfThemArePicked) {
    Top();
    Play("@ activate plate");
    Record();
    Play("~ Command `VxMergeTo`\n@ pick sub/bolt");
    ASSERT_EQ(Lines("ProSelect").size(), 1u);
    EXPECT_EQ(Lines("ProSelect")[0].find("ProSelect(filter=\"part\", most=-1,"), 0u)
        << Lines("ProSelect")[0];
    ASSERT_EQ(Lines("ProMessageDisplay").size(), 1u);
    EXPECT_NE(Lines("ProMessageDisplay")[0].find("\"Please select parts to be merged:\""),
              std::string::npos);
}

TEST_F(Merging, OfSeveralMergesOnlyTheLastTreeAndSelectionAreFreedAfterThem) {
    Model& top = Top();
    Use(top, MakeModels("lid"));
    Play("@ activate plate");
    Record();
    Play("~ Command `VxMergeTo`\n@ pick lid, sub/bolt");
    Names operations;
    for (const std::string& call : workbench::CallOrder(
             Recorded(),
             {"ProMdlToModelitem", "ProMessageDisplay", "ProSelect", "ProFeatureCreate",
              "ProSolidRegenerate", "ProElementFree", "ProSelectionFree", "ProWindowCurrentGet"})) {
        operations.push_back(call.substr(0, call.find(' ')));
    }
    EXPECT_EQ(operations,
              (Names{"ProMdlToModelitem", "ProMessageDisplay", "ProSelect", "ProFeatureCreate",
                     "ProSolidRegenerate", "ProFeatureCreate", "ProSolidRegenerate",
                     "ProElementFree", "ProSelectionFree", "ProWindowCurrentGet"}));
}

TEST_F(Merging, ThePartItselfIsRefusedAndTheOthersComeIn) {
    Top();
    Play("@ activate plate\n~ Command `VxMergeTo`\n@ pick plate, sub/bolt");
    EXPECT_EQ(Merges(ModelNamed("plate")), Names{"合并"});
}

TEST_F(Merging, WithoutItsPathOrItsModelTheTargetIsNotFound) {
    Top();
    for (const char* operation : {"ProAsmcomppathInit", "ProAsmcomppathMdlGet", "ProMdlDataGet",
                                  "ProMdlCurrentGet", "ProSolidFeatVisit", "ProArrayAlloc"}) {
        Play("@ activate plate");
        Fail(operation);
        Record();
        EXPECT_EQ(NoticesOf("~ Command `VxMergeTo`\n@ ok"), Names{kNotFound}) << operation;
        EXPECT_EQ(Lines("ProSelect"), Names{}) << operation;
    }
}

}  // namespace
