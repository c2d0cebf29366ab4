// VxBox: where the block lies, which coordinate system it hangs on, where the group's file comes
// from, and what is left when a step fails.
#include "simhost/model/group.h"
#include "simhost/model/shape.h"
#include "simhost/model/solid_features.h"
#include "tests/construct/templates.h"
#include "tests/support/solids.h"

namespace {

using namespace construct_tests;
using workbench::ExpectBox;
using workbench::kModuleFolder;
using workbench::MakeModels;
using workbench::ModelNamed;

const std::string kNoCsys = "当前所选模型无坐标系。";
const std::string kNoCsysAbove = "\t当前组件无坐标系,无法缺省装配新零件\t";
const WideText kGroups = WIDE("C:\\组 库");

class Block : public TemplateBench {
protected:
    void SetUp() override { WriteTemplates(); }

    // Plays the lines, and gives the boxes that came; each is answered by a line of its own.
    std::vector<Box> BoxesOf(const std::string& lines) {
        const std::size_t before = AllBoxes().size();
        Play(lines);
        const std::vector<Box> all = AllBoxes();
        return {all.begin() + std::ptrdiff_t(before), all.end()};
    }
    static Names TextsOf(const std::vector<Box>& boxes) {
        Names texts;
        for (const Box& box : boxes) texts.push_back(Utf8(box.text));
        return texts;
    }
    // A feature that others can hang on, and a coordinate system that hangs on it or on nothing.
    static int AddDatum(Model& model) {
        Feature datum;
        datum.type = 923;
        return model.AddFeature(datum).id;
    }
    static int AddCsysOn(Model& model, std::vector<int> parents, Vec3 at, int number = 0) {
        Feature csys;
        csys.type = PRO_FEAT_CSYS;
        csys.placement.origin = at;
        csys.parents = std::move(parents);
        csys.itemId = number;
        return CsysIdOf(model.AddFeature(csys));
    }
    static const Feature* GroupOf(const Model& part) {
        for (const Feature& feature : part.features()) {
            if (feature.group) return &feature;
        }
        return nullptr;
    }
    // Which coordinate system the block hangs on; 0: there is no block.
    static int CsysOfBlock(const Model& part) {
        const Feature* group = GroupOf(part);
        return group ? group->group->references.at(0).csysId : 0;
    }
    static Extents ExtentsOfBlock(const Model& part, const Placement& frame) {
        std::vector<Solid> solids;
        for (const Solid& solid : part.partData.solids) {
            if (solid.feature != 0) solids.push_back(solid);
        }
        return ExtentsIn(ShapeOf(solids), frame);
    }
    // An assembly with a coordinate system at its origin and a plate of 10 x 20 x 30 that is turned
    // by a quarter about z at (50, 60, 70): from (30, 60, 70) to (50, 70, 100).
    Model& Top(const std::string& name = "top") {
        Model& top = MakeModels(name + ": plate");
        AddCsys(top, {}, {});
        top.FindFeature(1)->placement = PlacementFrom({50, 60, 70}, {0, 0, 90});
        Open(top);
        Start();
        return top;
    }
    Model& PartWithCsys(Vec3 at, Vec3 turn) {
        Model& part = MakeModels("plate");
        AddCsys(part, at, turn);
        Open(part);
        Start();
        return part;
    }
};

// --- In a part ---

TEST_F(Block, OfAPartHasItsExtentsByDimensionsOfWhichTwoCrossOver) {
    Model& part = PartWithCsys({}, {});
    Play("@ mapped key VxBox");
    const Feature* feature = GroupOf(part);
    ASSERT_NE(feature, nullptr);
    const std::pair<const char*, double> expected[] = {{"x", 5},  {"y", 10},    {"z", 15},
                                                       {"x2", 5}, {"yval", 30}, {"zval", 20}};
    ASSERT_EQ(feature->group->dimensions.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(feature->group->dimensions[i].name, expected[i].first);
        EXPECT_EQ(feature->group->dimensions[i].value, expected[i].second);
    }
    ExpectBox(ExtentsOfBlock(part, {}), {0, 0, 0}, {10, 20, 30});
    EXPECT_TRUE(part.modified);
    EXPECT_EQ(AllBoxes().size(), 0u) << "ends silently";
}

TEST_F(Block, TheDimensionsAreHandedOverInTheirOrderAndTheReferenceIsOfThePartItself) {
    PartWithCsys({}, {});
    Record();
    Play("@ mapped key VxBox");
    const Names dimensions = Lines("ProUdfvardimAlloc");
    const Names expected = {"x", "y", "z", "x2", "yval", "zval"};
    ASSERT_EQ(dimensions.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NE(dimensions[i].find("name=\"" + expected[i] + "\""), std::string::npos)
            << dimensions[i];
    }
    ASSERT_EQ(Lines("ProUdfreferenceAlloc").size(), 1u);
    EXPECT_NE(Lines("ProUdfreferenceAlloc")[0].find("external=0"), std::string::npos);
}

TEST_F(Block, WhatTheGroupDoesNotTakeIsFreed) {
    PartWithCsys({}, {});
    for (const auto& [adds, frees] : std::vector<std::pair<std::string, std::string>>{
             {"ProUdfdataUdfvardimAdd", "ProUdfvardimFree"},
             {"ProUdfdataReferenceAdd", "ProUdfreferenceFree"}}) {
        Fail(adds);
        Record();
        Play("@ mapped key VxBox");
        EXPECT_EQ(Lines(frees).size(), 1u) << adds;
    }
}

TEST_F(Block, IsBuiltInTheFrameOfTheCoordinateSystem) {
    Model& part = PartWithCsys({100, 0, 0}, {0, 0, 90});
    Play("@ mapped key VxBox");
    // What reaches 10 along the frame's x lies along y; 20 along its y against x.
    ExpectBox(ExtentsOfBlock(part, {}), {80, 0, 0}, {100, 10, 30});
}

TEST_F(Block, IsOnlyOfferedInAssembliesAndManufacturing) {
    PartWithCsys({}, {});
    Play("@ expect greyed VxBox");
}

TEST_F(Block, ASecondOneIsAFeatureOfItsOwnAroundBoth) {
    Model& part = PartWithCsys({100, 0, 0}, {0, 0, 90});
    Play("@ mapped key VxBox\n@ mapped key VxBox");
    ASSERT_EQ(part.partData.solids.size(), 3u);
    EXPECT_NE(part.partData.solids[1].feature, part.partData.solids[2].feature);
    // The part and its first block reach from 0 to 100, 20 and 30.
    const Solid& second = part.partData.solids[2];
    EXPECT_NEAR(second.size.x, 100, 1e-9);
    EXPECT_NEAR(second.size.y, 20, 1e-9);
    EXPECT_NEAR(second.size.z, 30, 1e-9);
}

TEST_F(Block, HangsOnTheFirstCoordinateSystemWithoutParents) {
    Model& part = MakeModels("plate");
    const int datum = AddDatum(part);
    AddCsysOn(part, {datum}, {1, 0, 0});
    const int second = AddCsysOn(part, {}, {2, 0, 0});
    AddCsysOn(part, {}, {3, 0, 0});
    Open(part);
    Start();
    Play("@ mapped key VxBox");
    EXPECT_EQ(CsysOfBlock(part), second);
    ExpectBox(ExtentsOfBlock(part, {}), {2, 0, 0}, {12, 20, 30});
}

TEST_F(Block, HangsOnTheFirstOfAllWhereEachHasParents) {
    Model& part = MakeModels("plate");
    const int datum = AddDatum(part);
    const int first = AddCsysOn(part, {datum}, {1, 0, 0});
    AddCsysOn(part, {datum}, {2, 0, 0});
    Open(part);
    Start();
    Record();
    Play("@ mapped key VxBox");
    EXPECT_EQ(CsysOfBlock(part), first);
    EXPECT_EQ(Lines("ProCsysIdGet").size(), 2u);
}

TEST_F(Block, WhatCannotBeAskedForItsParentsCountsAsHavingSome) {
    Model& part = MakeModels("plate");
    const int datum = AddDatum(part);
    // The number before 70 is no feature's.
    AddCsysOn(part, {}, {}, 70);
    const int second = AddCsysOn(part, {}, {});
    AddCsysOn(part, {datum}, {});
    Open(part);
    Start();
    Play("@ mapped key VxBox");
    EXPECT_EQ(CsysOfBlock(part), second);
    for (const char* operation : {"ProCsysIdGet", "ProFeatureInit", "ProFeatureParentsGet"}) {
        Model& other = MakeModels(std::string("other") + operation);
        AddCsysOn(other, {AddDatum(other)}, {});
        AddCsysOn(other, {}, {});
        const int third = AddCsysOn(other, {}, {});
        Open(other);
        Fail(operation, {.n = 2});
        Play("@ mapped key VxBox");
        EXPECT_EQ(CsysOfBlock(other), third) << operation;
    }
}

TEST_F(Block, OfAPartWithoutACoordinateSystemIsNotMade) {
    Model& part = MakeModels("plate");
    Open(part);
    Start();
    const std::vector<Box> boxes = BoxesOf("@ mapped key VxBox\n@ ok");
    EXPECT_EQ(TextsOf(boxes), Names{kNoCsys});
    EXPECT_FALSE(IsNotice(boxes[0])) << "a plain error";
    EXPECT_EQ(part.partData.solids.size(), 1u);
}

TEST_F(Block, APartWithoutSolidsIsTold) {
    Open(workbench::MakePart("empty", 0));
    Start();
    const std::vector<Box> boxes = BoxesOf("@ mapped key VxBox\n@ ok");
    EXPECT_EQ(TextsOf(boxes), Names{"\t当前模型非实体模型。\t"});
    EXPECT_TRUE(IsNotice(boxes[0]));
}

TEST_F(Block, AnyOtherFailureOfTheSurfacesEndsSilently) {
    Model& part = PartWithCsys({}, {});
    Fail("ProSolidSurfaceVisit", {.status = PRO_TK_GENERAL_ERROR});
    Play("@ mapped key VxBox");
    EXPECT_EQ(GroupOf(part), nullptr);
}

// --- Other windows ---

TEST_F(Block, WithoutAModelAndInADrawingItSaysSo) {
    Start();
    std::vector<Box> boxes = BoxesOf("@ mapped key VxBox\n@ ok");
    EXPECT_EQ(TextsOf(boxes), Names{"\t当前环境此功能不可用。\t"});
    EXPECT_TRUE(IsNotice(boxes[0]));
    Open(MakeModels("sheet.drw: A3"));
    boxes = BoxesOf("@ mapped key VxBox\n@ ok");
    EXPECT_EQ(TextsOf(boxes), Names{"\t当前模型不是零件/组件/制造,无法执行此操作\t"});
    EXPECT_TRUE(IsNotice(boxes[0]));
}

// --- In an assembly ---

TEST_F(Block, LiesAroundThePickedPartsInANewPart) {
    Model& top = Top();
    Record();
    Play("~ Command `VxBox`\n@ pick plate");
    ASSERT_EQ(Lines("ProMdlLoad").size(), 1u);
    EXPECT_NE(Lines("ProMdlLoad")[0].find("askUser=0"), std::string::npos);
    EXPECT_EQ(Lines("ProCsysIdGet"), Names{}) << "a single one is not asked for its parents";
    ASSERT_EQ(Components(top), (Names{"plate.prt", "top-1.prt"}));
    const Feature& component = top.features().back();
    ASSERT_TRUE(component.constraints);
    EXPECT_EQ(ConstraintText(component.constraints->at(0)), "csys: csys#5 to csys#3");
    EXPECT_FALSE(IsSamePlace(component.placement, {})) << "the template's is not at its origin";
    ExpectBox(ExtentsOfBlock(*component.model, component.placement), {30, 60, 70}, {50, 70, 100});
    EXPECT_EQ(Files(), Names{}) << "nothing is saved";
    EXPECT_EQ(AllBoxes().size(), 0u);
}

TEST_F(Block, ReachesOverAllPicksAtTheirOwnPlaces) {
    Model& top = MakeModels("top: sub(plate), plate");
    AddCsys(top, {}, {});
    top.FindFeature(1)->placement.origin = {1000, 0, 0};
    ModelNamed("sub").FindFeature(1)->placement = PlacementFrom({0, 0, -7}, {90, 0, 0});
    Open(top);
    Start();
    Play("~ Command `VxBox`\n@ pick plate, sub/plate");
    const Feature& component = top.features().back();
    // The one in the unit reaches from (1000, -30, -7) to (1010, 0, 13).
    ExpectBox(ExtentsOfBlock(*component.model, component.placement), {0, -30, -7}, {1010, 20, 30});
}

TEST_F(Block, IsMovedAlongWithTheCoordinateSystemOfTheAssembly) {
    Model& top = Top();
    top.FindFeature(2)->placement.origin = {1000, 0, 0};
    Play("~ Command `VxBox`\n@ pick plate");
    const Feature& component = top.features().back();
    ExpectBox(ExtentsOfBlock(*component.model, component.placement), {1030, 60, 70},
              {1050, 70, 100});
}

TEST_F(Block, TheAssemblysCoordinateSystemIsTheFirstWithoutParentsAndTheParts) {
    WriteTemplate(WIDE("two.prt.1"), "part",
                  "\n[[feature]]\nid = 1\ntype = 923\n\n[[feature]]\nid = 2\ntype = 979\n"
                  "parents = [1]\n\n[[feature]]\nid = 6\ntype = 979\n");
    Option("template_solidpart", kTemplates + WIDE("two.prt"));
    Model& top = MakeModels("top: plate");
    const int datum = AddDatum(top);
    AddCsysOn(top, {datum}, {});
    const int second = AddCsysOn(top, {}, {});
    Open(top);
    Start();
    Play("~ Command `VxBox`\n@ pick plate");
    const Feature& component = top.features().back();
    ASSERT_TRUE(component.constraints);
    EXPECT_EQ(ConstraintText(component.constraints->at(0)),
              "csys: csys#3 to csys#" + std::to_string(second));
    EXPECT_EQ(CsysOfBlock(*component.model), 3) << "the part's is its first";
}

TEST_F(Block, TheNewPartHasTheFirstFreeNameAndNoEndingIsCut) {
    Write(WIDE("C:\\Work\\top_00-1.prt.1"), "[model]\ntype = \"part\"\n");
    MakeModels("top_00-2.prt");
    Model& top = Top("top_00");
    Play("~ Command `VxBox`\n@ pick plate");
    EXPECT_EQ(top.features().back().model->FileName(), "top_00-3.prt");
}

TEST_F(Block, OfAManufacturingModelGoesIntoItsAssembly) {
    Model& mill = MakeModels("mill.mfg: asm1(plate)");
    Model& assembly = ModelNamed("asm1");
    AddCsys(assembly, {}, {});
    Open(mill);
    Start();
    Play("~ Command `VxBox`\n@ pick plate");
    EXPECT_EQ(Components(assembly), (Names{"plate.prt", "asm1-1.prt"}));
}

TEST_F(Block, WithNothingPickedThereIsANewPartAndNoBlock) {
    Model& top = Top();
    Play("~ Command `VxBox`\n@ pick nothing");
    ASSERT_EQ(Components(top), (Names{"plate.prt", "top-1.prt"}));
    EXPECT_TRUE(top.features().back().constraints);
    EXPECT_EQ(GroupOf(*top.features().back().model), nullptr);
}

TEST_F(Block, APickWithoutSolidsAddsNothing) {
    Model& top = Top();
    Use(top, workbench::MakePart("empty", 0));
    Play("~ Command `VxBox`\n@ pick empty, plate");
    const Feature& component = top.features().back();
    ExpectBox(ExtentsOfBlock(*component.model, component.placement), {30, 60, 70}, {50, 70, 100});
}

TEST_F(Block, LeavingThePickLeavesEverythingAsItWas) {
    Model& top = Top();
    Play("~ Command `VxBox`\n@ quit");
    EXPECT_EQ(Components(top), Names{"plate.prt"});
    EXPECT_EQ(InMemory("起始 零件.prt"), nullptr);
}

TEST_F(Block, AMissingTemplateIsTold) {
    Model& top = Top();
    NoOption("template_solidpart");
    std::vector<Box> boxes = BoxesOf("~ Command `VxBox`\n@ pick plate\n@ ok");
    EXPECT_EQ(TextsOf(boxes), Names{"\t请先正确配置零件模板选项“template_solidpart”\t"});
    EXPECT_TRUE(IsNotice(boxes[0]));
    Option("template_solidpart", kTemplates + WIDE("none.prt"));
    boxes = BoxesOf("~ Command `VxBox`\n@ pick plate\n@ ok");
    EXPECT_EQ(TextsOf(boxes),
              Names{"\t零件模板加载失败，请确认template_solidpart选项是否配置正确\t"});
    EXPECT_TRUE(IsNotice(boxes[0]));
    EXPECT_EQ(Components(top), Names{"plate.prt"});
}

TEST_F(Block, AnAssemblyWithoutACoordinateSystemGetsTheBlockUnconstrained) {
    Model& top = Top();
    top.RemoveFeature(2);
    const std::vector<Box> boxes = BoxesOf("~ Command `VxBox`\n@ pick plate\n@ ok");
    EXPECT_EQ(TextsOf(boxes), Names{kNoCsysAbove});
    EXPECT_TRUE(IsNotice(boxes[0]));
    const Feature& component = top.features().back();
    EXPECT_FALSE(component.constraints);
    EXPECT_EQ(CsysOfBlock(*component.model), 5);
    EXPECT_EQ(top.treeRefreshes, 0);
}

TEST_F(Block, ANewPartWithoutACoordinateSystemIsToldTwiceAsAPlainError) {
    WriteTemplate(WIDE("bare.prt.1"), "part", "");
    Option("template_solidpart", kTemplates + WIDE("bare.prt"));
    Model& top = Top();
    const std::vector<Box> boxes = BoxesOf("~ Command `VxBox`\n@ pick plate\n@ ok\n@ ok");
    EXPECT_EQ(TextsOf(boxes), (Names{"零件TOP-1无坐标系,无法完成装配", kNoCsys}));
    for (const Box& box : boxes) EXPECT_FALSE(IsNotice(box));
    EXPECT_EQ(Components(top), (Names{"plate.prt", "top-1.prt"}));
    top.RemoveFeature(2);
    EXPECT_EQ(TextsOf(BoxesOf("~ Command `VxBox`\n@ pick plate\n@ ok\n@ ok")),
              (Names{kNoCsysAbove, kNoCsys}));
}

TEST_F(Block, ARefusedCopyLeavesTheAssemblyAsItWas) {
    Model& top = Top();
    Fail("ProMdlCopy");
    Play("~ Command `VxBox`\n@ pick plate");
    EXPECT_EQ(Components(top), Names{"plate.prt"});
}

TEST_F(Block, AReleasedAssemblyGetsNoComponent) {
    Model& top = Top();
    top.readOnly = true;
    Play("~ Command `VxBox`\n@ pick plate");
    EXPECT_EQ(Components(top), Names{"plate.prt"});
    ASSERT_NE(InMemory("top-1.prt"), nullptr);
    EXPECT_NE(GroupOf(*InMemory("top-1.prt")), nullptr);
}

// --- The group's file ---

TEST_F(Block, WithoutAnOptionTheShippedFolderBecomesItsValueForThisSession) {
    Model& part = PartWithCsys({}, {});
    Option("pro_group_dir", {});
    Play("@ mapped key VxBox\n@ expect option pro_group_dir " +
         Utf8(kModuleFolder + WIDE("\\vxudf")));
    EXPECT_NE(GroupOf(part), nullptr);
}

TEST_F(Block, AFolderWithoutTheGroupGetsACopyOfIt) {
    Model& part = PartWithCsys({}, {});
    std::filesystem::create_directories(host().disk.Real(kGroups));
    Option("pro_group_dir", kGroups);
    Play("@ mapped key VxBox");
    EXPECT_EQ(Read(kGroups + WIDE("\\vxbox.gph")),
              Read(kModuleFolder + WIDE("\\vxudf\\vxbox.gph")));
    EXPECT_EQ(host().configOptions[WIDE("pro_group_dir")].at(0), kGroups);
    EXPECT_NE(GroupOf(part), nullptr);
}

TEST_F(Block, AChangedGroupIsKept) {
    Model& part = PartWithCsys({}, {});
    std::string text = Read(kModuleFolder + WIDE("\\vxudf\\vxbox.gph"));
    text.replace(text.find("2 * x2"), 6, "4 * x2");
    std::filesystem::create_directories(host().disk.Real(kGroups));
    Write(kGroups + WIDE("\\vxbox.gph"), text);
    Option("pro_group_dir", kGroups);
    host().journal.Start();
    Play("@ mapped key VxBox");
    host().journal.Stop();
    EXPECT_EQ(Lines("CopyFileW"), Names{});
    EXPECT_EQ(Read(kGroups + WIDE("\\vxbox.gph")), text);
    EXPECT_EQ(part.partData.solids.back().size.x, 20);
}

TEST_F(Block, AFolderThatIsNotThereGivesNoBlockAndNoWord) {
    Model& part = PartWithCsys({}, {});
    Option("pro_group_dir", kGroups);
    Play("@ mapped key VxBox");
    EXPECT_EQ(GroupOf(part), nullptr);
    EXPECT_EQ(AllBoxes().size(), 0u);
}

TEST_F(Block, TheFileIsProvidedBeforeAnythingIsLookedAt) {
    Start();
    std::filesystem::create_directories(host().disk.Real(kGroups));
    Option("pro_group_dir", kGroups);
    Play("@ mapped key VxBox\n@ ok");
    EXPECT_NE(Read(kGroups + WIDE("\\vxbox.gph")), "");
}

TEST_F(Block, WithTheModuleNotFoundUnderItsNameTheOptionIsLeftAlone) {
    PartWithCsys({}, {});
    Fail("GetModuleHandleW", {.forGood = true});
    Play("@ mapped key VxBox\n@ expect option pro_group_dir none");
}

// --- Calls ---

TEST_F(Block, AsksTheHostInThisOrder) {
    Model& part = PartWithCsys({}, {});
    AddCsys(part, {1, 0, 0}, {});
    host().journal.Clear();
    host().journal.Start();
    Play("@ mapped key VxBox");
    host().journal.Stop();
    Names names;
    for (const std::string& name : host().journal.Names()) {
        const bool counts = name.substr(0, 3) == "Pro" && name.substr(0, 8) != "ProArray" &&
                            name != "ProStringToWstring" && name != "ProSurfaceDataGet" &&
                            name != "ProGeomitemdataFree";
        if (counts) names.push_back(name);
    }
    const Names dimension = {"ProUdfvardimAlloc", "ProUdfdataUdfvardimAdd"};
    EXPECT_EQ(names,
              workbench::Joined(
                  {{"ProConfigoptArrayGet", "ProConfigoptSet", "ProMdlCurrentGet", "ProMdlTypeGet",
                    "ProSolidSurfaceVisit", "ProUdfdataAlloc", "ProUdfdataNameSet",
                    "ProSolidCsysVisit", "ProCsysIdGet", "ProFeatureInit", "ProFeatureParentsGet",
                    "ProCsysToGeomitem", "ProModelitemNameGet", "ProSelectionAlloc",
                    "ProUdfreferenceAlloc", "ProSelectionFree", "ProUdfdataReferenceAdd"},
                   dimension,
                   dimension,
                   dimension,
                   dimension,
                   dimension,
                   dimension,
                   {"ProUdfCreate", "ProSolidRegenerate", "ProUdfdataFree"}}));
    EXPECT_EQ(Lines("ProSolidRegenerate").at(0).substr(0, 45),
              "ProSolidRegenerate(solid=plate.prt, flags=0) ");
}

TEST_F(Block, ThePickAsksForPartsWithTheseOptions) {
    Top();
    host().journal.Start();
    Play("~ Command `VxBox`\n@ quit");
    host().journal.Stop();
    EXPECT_NE(Lines("ProSelectionEnvAlloc").at(0).find("[50 = 0, 51 = 1, 52 = 1]"),
              std::string::npos);
    EXPECT_NE(Lines("ProSelect").at(0).find("filter=\"part\", most=-1"), std::string::npos);
}

}  // namespace
