// Groups and merges as features of parts, through the door: what is refused without a trace, what
// files keep, and what regeneration makes of a change.
#include <map>

#include "simhost/model/frames.h"
#include "simhost/model/model_file.h"
#include "simhost/model/shape.h"
#include "simhost/model/solid_features.h"
#include "tests/support/workbench.h"

namespace {

using namespace simhost;
using workbench::MakeModels;
using workbench::ModelNamed;

WideChar* Text(const WideChar* text) {
    return const_cast<WideChar*>(text);
}

Feature& AddCsys(Model& model, Vec3 at, Vec3 turn) {
    Feature csys;
    csys.type = PRO_FEAT_CSYS;
    csys.placement = PlacementFrom(at, turn);
    return model.AddFeature(csys);
}

ProSelection SelectionOf(Model& model, ProType type, int id, ProAsmcomppath* path = nullptr) {
    ProModelitem item{type, id, model.handle};
    ProSelection selection = nullptr;
    EXPECT_EQ(ProSelectionAlloc(path, &item, &selection), PRO_TK_NO_ERROR);
    return selection;
}

void ExpectSameSolids(const Model& a, const Model& b) {
    ASSERT_EQ(a.partData.solids.size(), b.partData.solids.size());
    for (std::size_t i = 0; i < a.partData.solids.size(); ++i) {
        EXPECT_EQ(a.partData.solids[i], b.partData.solids[i]);
    }
}

// --- Groups ---

class GroupsInParts : public workbench::Workbench {
protected:
    void SetUp() override {
        Write(WIDE("C:\\Work\\peg.gph"),
              "[group]\nname = \"peg\"\n[[reference]]\nprompt = \"where\"\n"
              "[[dimension]]\nname = \"d\"\nvalue = 8\n[[dimension]]\nname = \"l\"\nvalue = 30\n"
              "[[solid]]\nshape = \"cylinder\"\ndiameter = \"d\"\nlength = \"l\"\n");
        part_ = &MakeModels("plate");
        csys_ = AddCsys(*part_, {100, 0, 0}, {0, 90, 0}).id + 1;
    }
    struct Given {
        const WideChar* group = WIDE("peg");
        const WideChar* prompt = WIDE("where");
        const WideChar* dimension = WIDE("d");
        double value = 12;
    };
    ProError Place(const Given& given) {
        ProUdfdata data = nullptr;
        EXPECT_EQ(ProUdfdataAlloc(&data), PRO_TK_NO_ERROR);
        EXPECT_EQ(ProUdfdataNameSet(data, Text(given.group), nullptr), PRO_TK_NO_ERROR);
        if (given.prompt) {
            ProSelection selection = SelectionOf(*part_, PRO_CSYS, csys_);
            ProUdfreference reference = nullptr;
            ProUdfreferenceAlloc(Text(given.prompt), selection, PRO_B_FALSE, &reference);
            ProUdfdataReferenceAdd(data, reference);
            ProSelectionFree(&selection);
        }
        ProUdfvardim dimension = nullptr;
        ProUdfvardimAlloc(Text(given.dimension), given.value, PROUDFVARTYPE_DIM, &dimension);
        ProUdfdataUdfvardimAdd(data, dimension);
        const ProError status =
            ProUdfCreate(static_cast<ProSolid>(part_->handle), data, nullptr, 0, &group_);
        EXPECT_EQ(ProUdfdataFree(data), PRO_TK_NO_ERROR);
        return status;
    }
    Model* part_ = nullptr;
    int csys_ = 0;
    ProGroup group_ = {};
};

TEST_F(GroupsInParts, AreBuiltInTheFrameOfTheirReferenceWithTheGivenDimensions) {
    EXPECT_EQ(Place({}), PRO_TK_NO_ERROR);
    ASSERT_EQ(part_->partData.solids.size(), 2u);
    const Solid& peg = part_->partData.solids[1];
    EXPECT_EQ(peg.diameter, 12);
    EXPECT_EQ(peg.length, 30);
    EXPECT_EQ(peg.at, (Vec3{100, 0, 0}));
    EXPECT_EQ(peg.turn, (Vec3{0, 90, 0}));
    EXPECT_EQ(peg.feature, group_.id);
    // The plate has the surfaces 11 to 16.
    EXPECT_EQ(peg.id, 20);
    const Feature& feature = *part_->FindFeature(group_.id);
    EXPECT_EQ(feature.name, WIDE("PEG"));
    EXPECT_EQ(feature.parents, std::vector<int>{csys_ - 1});
    EXPECT_EQ(part_->Surfaces().size(), 9u);
}

TEST_F(GroupsInParts, WhatDoesNotFitIsRefusedWithoutATrace) {
    const auto refused = [&](const Given& given) {
        const std::string before = ModelText(*part_);
        const ProError status = Place(given);
        EXPECT_EQ(ModelText(*part_), before);
        EXPECT_FALSE(part_->modified);
        return status;
    };
    EXPECT_EQ(refused({.group = WIDE("none")}), PRO_TK_E_NOT_FOUND);
    EXPECT_EQ(refused({.prompt = WIDE("here")}), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(refused({.prompt = nullptr}), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(refused({.dimension = WIDE("w")}), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(refused({.value = 0}), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(refused({.value = -1}), PRO_TK_GENERAL_ERROR);
    Write(WIDE("C:\\Work\\bad.gph"), "nonsense");
    EXPECT_EQ(refused({.group = WIDE("bad")}), PRO_TK_GENERAL_ERROR);
    part_->readOnly = true;
    EXPECT_EQ(refused({}), PRO_TK_NO_PERMISSION);
}

TEST_F(GroupsInParts, TheNewestFileIsTakenWhateverItsLetters) {
    Write(WIDE("C:\\Work\\PEG.gph.2"),
          "[group]\nname = \"peg\"\n[[reference]]\nprompt = \"where\"\n"
          "[[dimension]]\nname = \"d\"\nvalue = 8\n"
          "[[solid]]\nshape = \"cylinder\"\ndiameter = \"d\"\nlength = 77\n");
    EXPECT_EQ(Place({}), PRO_TK_NO_ERROR);
    EXPECT_EQ(part_->partData.solids[1].length, 77);
}

TEST_F(GroupsInParts, FollowTheirCoordinateSystemAtRegenerationAndKeepTheirIds) {
    Place({});
    const ProSurface wall = part_->Surfaces()[6]->handle;
    part_->FindFeature(csys_ - 1)->placement.origin = {5, 6, 7};
    EXPECT_EQ(ProSolidRegenerate(static_cast<ProSolid>(part_->handle), 0), PRO_TK_NO_ERROR);
    EXPECT_EQ(part_->partData.solids[1].at, (Vec3{5, 6, 7}));
    EXPECT_EQ(part_->partData.solids[1].id, 20);
    EXPECT_EQ(part_->Surfaces()[6]->handle, wall);
    EXPECT_EQ(part_->FindFeature(group_.id)->status, PRO_FEAT_ACTIVE);
}

TEST_F(GroupsInParts, KeepTheirLastShapeWhereTheCoordinateSystemIsGone) {
    Place({});
    part_->RemoveFeature(csys_ - 1);
    EXPECT_EQ(ProSolidRegenerate(static_cast<ProSolid>(part_->handle), 0), PRO_TK_NO_ERROR);
    EXPECT_EQ(part_->partData.solids.size(), 2u);
    EXPECT_EQ(part_->FindFeature(group_.id)->status, PRO_FEAT_UNREGENERATED);
}

TEST_F(GroupsInParts, AreWholeInTheFileOfTheirPart) {
    Place({});
    Model& again = MakeModels("again");
    again.partData.solids.clear();
    ReadModelText(ModelText(*part_), "again.prt", &again);
    ExpectSameSolids(again, *part_);
    EXPECT_EQ(ModelText(again), ModelText(*part_));
    again.FindFeature(group_.id)->group->dimensions[1].value = 40;
    RegenerateSolids(again);
    EXPECT_EQ(again.partData.solids[1].length, 40);
}

TEST_F(GroupsInParts, WhatWasAddedToDataIsNotTheCallersAnyMore) {
    ProUdfdata data = nullptr;
    ProUdfdataAlloc(&data);
    ProUdfvardim dimension = nullptr;
    ProUdfvardimAlloc(Text(WIDE("d")), 1, PROUDFVARTYPE_DIM, &dimension);
    ProUdfdataUdfvardimAdd(data, dimension);
    EXPECT_EQ(ProUdfvardimFree(dimension), PRO_TK_BAD_INPUTS);
    ProUdfdataFree(data);
    EXPECT_EQ(ProUdfdataFree(data), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProUdfdataFree(nullptr), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(),
              (std::vector<std::string>{
                  "ProUdfvardimFree: a dimension of a group that was freed or handed on",
                  "ProUdfdataFree: data of a group that was freed or handed on"}));
}

// --- Merges ---

struct Row {
    int id, parent, kind, number;
};
constexpr Row kRows[] = {{386, 0, 0, 0},     {387, 386, 1, 1238}, {1964, 386, 5, 0},
                         {3386, 386, 1, 0},  {3388, 386, 0, 0},   {3389, 3388, 1, 0},
                         {3390, 3388, 6, 0}, {3391, 3390, 0, 0},  {605, 3391, 0, 0},
                         {606, 605, 0, 0},   {607, 606, 1, 13}};

class MergesInParts : public workbench::Workbench {
protected:
    // A shaft at (100, 0, 0) turned by a quarter about z, and in it a key that is off it and turned
    // about x: 10 x 20 x 30 from (1, 2, 3).
    void SetUp() override {
        top_ = &MakeModels("top: shaft, sub(key)");
        shaft_ = &ModelNamed("shaft");
        key_ = &ModelNamed("key");
        top_->FindFeature(1)->placement = PlacementFrom({100, 0, 0}, {0, 0, 90});
        top_->FindFeature(2)->placement.origin = {100, 50, 0};
        ModelNamed("sub").FindFeature(1)->placement = PlacementFrom({1, 2, 3}, {90, 0, 0});
        Open(*top_);
    }
    // The tree as it is prescribed, changed by `change` before each element is added.
    ProError Merge(Model& target, Model& source, ProIdTable way, int levels,
                   std::vector<Row> rows = {std::begin(kRows), std::end(kRows)}) {
        ProAsmcomppath path = {};
        ProAsmcomppathInit(static_cast<ProSolid>(top_->handle), way, levels, &path);
        ProSelection picked = SelectionOf(source, PRO_PART, -1, &path);
        ProSelection into = SelectionOf(target, ProType(target.type), -1);
        std::map<int, ProElement> made;
        for (const Row& row : rows) {
            ProElement element = nullptr;
            ProElementAlloc(row.id, &element);
            ProValueData data{ProValueDataType(row.kind), {}};
            if (row.kind == 1) data.v.i = row.number;
            if (row.kind == 5) data.v.w = Text(WIDE("合并"));
            if (row.kind == 6) data.v.r = picked;
            ProValue value = nullptr;
            if (row.kind) {
                ProValueAlloc(&value);
                ProValueDataSet(value, &data);
                ProElementValueSet(element, value);
            }
            if (row.parent) ProElemtreeElementAdd(made.at(row.parent), nullptr, element);
            made.emplace(row.id, element);
        }
        errors_ = {};
        const ProError status =
            ProFeatureCreate(into, made.at(386), nullptr, 0, &feature_, &errors_);
        ProElementFree(&made.at(386));
        ProSelectionFree(&picked);
        ProSelectionFree(&into);
        return status;
    }
    ProError MergeKey() {
        ProIdTable way = {2, 1};
        return Merge(*shaft_, *key_, way, 2);
    }
    std::vector<int> Faulty() {
        std::vector<int> ids;
        for (int i = 0; i < errors_.count; ++i) ids.push_back(errors_.list[i].element);
        ProArray list = errors_.list;
        if (list) ProArrayFree(&list);
        return ids;
    }
    Model *top_ = nullptr, *shaft_ = nullptr, *key_ = nullptr;
    ProFeature feature_ = {};
    ProErrorlist errors_ = {};
};

// The key lies at (101, 52, 3) in the assembly, its y along z and its z against y: from
// (101, 22, 3) to (111, 52, 23). The shaft's x is the assembly's y, its y against the assembly's x.
TEST_F(MergesInParts, TheSourceComesToLieInTheTargetWhereItLiesInTheAssembly) {
    EXPECT_EQ(MergeKey(), PRO_TK_NO_ERROR);
    ASSERT_EQ(shaft_->partData.solids.size(), 2u);
    const Solid& merged = shaft_->partData.solids[1];
    EXPECT_EQ(merged.feature, feature_.id);
    EXPECT_EQ(shaft_->FindFeature(feature_.id)->name, WIDE("合并"));
    EXPECT_EQ(shaft_->FindFeature(feature_.id)->type, 1238);
    const Extents inTop = ExtentsIn(ShapeOf({merged}), top_->FindFeature(1)->placement);
    EXPECT_NEAR(inTop.low.x, 101, 1e-9);
    EXPECT_NEAR(inTop.low.y, 22, 1e-9);
    EXPECT_NEAR(inTop.low.z, 3, 1e-9);
    EXPECT_NEAR(inTop.high.x, 111, 1e-9);
    EXPECT_NEAR(inTop.high.y, 52, 1e-9);
    EXPECT_NEAR(inTop.high.z, 23, 1e-9);
    const Extents inShaft = ExtentsIn(ShapeOf({merged}), {});
    EXPECT_NEAR(inShaft.low.x, 22, 1e-9);
    EXPECT_NEAR(inShaft.high.x, 52, 1e-9);
    EXPECT_NEAR(inShaft.low.y, -11, 1e-9);
    EXPECT_NEAR(inShaft.high.y, -1, 1e-9);
}

TEST_F(MergesInParts, FollowTheirSourceAtRegeneration) {
    MergeKey();
    key_->partData.solids[0].size.x = 17;
    EXPECT_EQ(shaft_->partData.solids[1].size.x, 10);
    EXPECT_EQ(ProSolidRegenerate(static_cast<ProSolid>(shaft_->handle), 0), PRO_TK_NO_ERROR);
    EXPECT_EQ(shaft_->partData.solids[1].size.x, 17);
    EXPECT_EQ(shaft_->partData.solids[1].id, 20);
}

TEST_F(MergesInParts, KeepTheirLastShapeWhereTheSourceIsGone) {
    MergeKey();
    host().session.Erase(*key_);
    EXPECT_EQ(ProSolidRegenerate(static_cast<ProSolid>(shaft_->handle), 0), PRO_TK_NO_ERROR);
    EXPECT_EQ(shaft_->partData.solids.size(), 2u);
    EXPECT_EQ(shaft_->FindFeature(feature_.id)->status, PRO_FEAT_UNREGENERATED);
}

TEST_F(MergesInParts, AreWholeInTheFileOfTheirPart) {
    MergeKey();
    Model& again = MakeModels("again");
    again.partData.solids.clear();
    ReadModelText(ModelText(*shaft_), "again.prt", &again);
    ExpectSameSolids(again, *shaft_);
    EXPECT_EQ(ModelText(again), ModelText(*shaft_));
}

TEST_F(MergesInParts, TheSourceComesIntoMemoryWithItsTarget) {
    MergeKey();
    host().session.Save(*key_);
    host().session.Save(*shaft_);
    Model* key = key_;
    host().session.Erase(*shaft_);
    host().session.Erase(*key);
    Model* shaft = host().session.Retrieve("shaft.prt");
    ASSERT_NE(shaft, nullptr);
    EXPECT_EQ(shaft->FindFeature(feature_.id)->merge->source, host().session.FindByFile("key.prt"));
    host().session.Rename(*host().session.FindByFile("key.prt"), WIDE("feather"));
    EXPECT_EQ(shaft->FindFeature(feature_.id)->merge->file, "feather.prt");
}

TEST_F(MergesInParts, CirclesAndEmptySourcesAreRefusedWithoutATrace) {
    MergeKey();
    const std::string before = ModelText(*key_);
    ProIdTable shaft = {1}, key = {2, 1};
    EXPECT_EQ(Merge(*key_, *shaft_, shaft, 1), PRO_TK_BAD_INPUTS) << "the shaft is made of it";
    EXPECT_EQ(Merge(*key_, *key_, key, 2), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Merge(*top_, *key_, key, 2), PRO_TK_BAD_INPUTS) << "an assembly";
    key_->readOnly = true;
    Model& plate = MakeModels("plate");
    Use(*top_, plate);
    ProIdTable last = {3};
    EXPECT_EQ(Merge(*key_, plate, last, 1), PRO_TK_NO_PERMISSION);
    key_->readOnly = false;
    plate.partData.solids.clear();
    EXPECT_EQ(Merge(*key_, plate, last, 1), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ModelText(*key_), before);
}

TEST_F(MergesInParts, AMissingElementIsNamedAndNothingIsMade) {
    ProIdTable way = {2, 1};
    std::vector<Row> rows(std::begin(kRows), std::end(kRows));
    rows.pop_back();
    rows[2].kind = 0;
    rows[3].number = 1;
    EXPECT_EQ(Merge(*shaft_, *key_, way, 2, rows), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Faulty(), (std::vector<int>{1964, 3386, 607}));
    EXPECT_EQ(shaft_->partData.solids.size(), 1u);
    EXPECT_EQ(MergeKey(), PRO_TK_NO_ERROR);
    EXPECT_EQ(errors_.list, nullptr);
}

TEST_F(MergesInParts, ATreeThatNobodyCanMeanIsAComplaintThatNamesTheElement) {
    ProIdTable way = {2, 1};
    const auto complaint = [&](int at, const Row& row) {
        std::vector<Row> rows(std::begin(kRows), std::end(kRows));
        rows[std::size_t(at)] = row;
        EXPECT_EQ(Merge(*shaft_, *key_, way, 2, rows), PRO_TK_BAD_INPUTS);
        const std::vector<std::string> all = Complaints();
        return all.size() == 1 ? all[0] : std::to_string(all.size()) + " complaints";
    };
    EXPECT_EQ(complaint(10, {607, 605, 1, 13}),
              "ProFeatureCreate: the element 607 is below 605 instead of 606");
    EXPECT_EQ(complaint(3, {3386, 386, 5, 0}),
              "ProFeatureCreate: the element 3386 has a value of the kind 5 instead of 1");
    EXPECT_EQ(complaint(3, {1964, 386, 5, 0}), "ProFeatureCreate: the element 1964 is there twice");
    EXPECT_EQ(complaint(3, {5000, 386, 1, 0}), "ProFeatureCreate: a merge has no element 5000");
    std::vector<Row> rows(std::begin(kRows), std::end(kRows));
    std::swap(rows[2], rows[3]);
    EXPECT_EQ(Merge(*shaft_, *key_, way, 2, rows), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints(),
              std::vector<std::string>{"ProFeatureCreate: the element 1964 was added after 3386"});
}

}  // namespace
