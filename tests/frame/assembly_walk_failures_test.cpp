// The walk over an assembly when operations of the host fail, and the reduction of its result to a
// list of models.
#include <algorithm>
#include <cstdint>
#include <utility>

#include "simhost/core/operation.h"
#include "tests/frame/walk_bench.h"

namespace {

using namespace simhost;
using workbench::ByHandle;
using workbench::Names;
using workbench::WalkBench;

// The features of the bench are visited in this order, from the 1st to the 7th:
// top#1, top#2, sub#1, sub#2, subsub#1, sub#3, top#3.
class FailingWalk : public WalkBench {
protected:
    // A walk during which the n-th call (0: every call) of the operation fails.
    Names WalkWith(const char* operation, unsigned n,
                   ProFeatureVisitAction visitor = VisitAllComponents) {
        Fail(operation, {.n = n == 0 ? 1 : n, .forGood = n == 0});
        ComponentArray components = ComponentCollector(top_.handle, visitor);
        EXPECT_GT(Operation::FiredFaults(), 0u) << operation << ' ' << n;
        Operation::ForgetFaults();
        return Found(std::move(components));
    }
};

TEST_F(FailingWalk, AFeatureWhoseFlagsOrTypeCannotBeReadIsPassedOverWithAllBelowIt) {
    for (const char* operation : {"ProFeatureStatusflagsGet", "ProFeatureTypeGet"}) {
        SCOPED_TRACE(operation);
        // The second feature is the sub-assembly in the top.
        EXPECT_EQ(WalkWith(operation, 2), (Names{"top.asm#1", "top.asm#3"}));
        EXPECT_EQ(WalkWith(operation, 4),
                  (Names{"top.asm#1", "top.asm#2", "sub.asm#1", "sub.asm#3", "top.asm#3"}));
        EXPECT_EQ(WalkWith(operation, 0), Names{});
    }
}

TEST_F(FailingWalk, AVisibilityThatCannotBeReadCountsAsInvisible) {
    EXPECT_EQ(WalkWith("ProFeatureVisibilityGet", 2), (Names{"top.asm#1", "top.asm#3"}));
    EXPECT_EQ(WalkWith("ProFeatureVisibilityGet", 0), Names{});
}

TEST_F(FailingWalk, AStatusThatCannotBeReadCountsAsActiveNotAsThatOfTheFeatureBefore) {
    FeatureOf(top_, 1).status = PRO_FEAT_SUPPRESSED;
    EXPECT_EQ(WalkWith("ProFeatureStatusGet", 2),
              Names(everything_.begin() + 1, everything_.end()));
    EXPECT_EQ(WalkWith("ProFeatureStatusGet", 0), everything_);
}

TEST_F(FailingWalk, AModelThatCannotBeFetchedStaysAmongAllButNothingBelowItIsFound) {
    const Names found = {"top.asm#1", "top.asm#2", "top.asm#3"};
    EXPECT_EQ(WalkWith("ProAsmcompMdlGet", 2), found);
    EXPECT_EQ(WalkWith("ProAsmcompMdlGet", 0), found);
    EXPECT_EQ(WalkWith("ProAsmcompMdlGet", 2, VisitPartComponents),
              (Names{"top.asm#1", "top.asm#3"}));
    EXPECT_EQ(WalkWith("ProAsmcompMdlGet", 2, VisitAsmComponents), Names{});
    EXPECT_EQ(WalkWith("ProAsmcompMdlGet", 2, VisitSheetMetalComponents), Names{});
}

TEST_F(FailingWalk, AModelWhoseTypeCannotBeReadIsNeitherPartNorAssembly) {
    EXPECT_EQ(WalkWith("ProMdlTypeGet", 2), (Names{"top.asm#1", "top.asm#2", "top.asm#3"}));
    EXPECT_EQ(WalkWith("ProMdlTypeGet", 1, VisitPartComponents),
              (Names{"sub.asm#1", "subsub.asm#1", "sub.asm#3", "top.asm#3"}));
    EXPECT_EQ(WalkWith("ProMdlTypeGet", 0, VisitAsmComponents), Names{});
}

TEST_F(FailingWalk, AModelWhoseSubtypeCannotBeReadIsNoSheetMetalButIsDescendedInto) {
    UseAll(subsub_, {&sheet_});
    // Asked of: plate, sub, sheet, subsub, pin, sheet, plate, plate.
    EXPECT_EQ(WalkWith("ProMdlSubtypeGet", 2, VisitSheetMetalComponents),
              (Names{"sub.asm#1", "subsub.asm#2"}));
    EXPECT_EQ(WalkWith("ProMdlSubtypeGet", 3, VisitSheetMetalComponents), Names{"subsub.asm#2"});
    EXPECT_EQ(WalkWith("ProMdlSubtypeGet", 0, VisitSheetMetalComponents), Names{});
}

TEST_F(FailingWalk, AVisitThatFailsLeavesOutItsLevelOnly) {
    EXPECT_EQ(WalkWith("ProSolidFeatVisit", 1), Names{});
    EXPECT_EQ(WalkWith("ProSolidFeatVisit", 2), (Names{"top.asm#1", "top.asm#2", "top.asm#3"}));
    EXPECT_EQ(WalkWith("ProSolidFeatVisit", 3), (Names{"top.asm#1", "top.asm#2", "sub.asm#1",
                                                       "sub.asm#2", "sub.asm#3", "top.asm#3"}));
}

TEST_F(FailingWalk, TheAnswerOfAVisitBelowIsDroppedByEveryVisitor) {
    for (const auto visitor :
         {VisitAllComponents, VisitPartComponents, VisitAsmComponents, VisitSheetMetalComponents}) {
        ComponentArray components;
        ASSERT_EQ(components.Allocate(), PRO_TK_NO_ERROR);
        ProFeature feature{PRO_FEATURE, 2, top_.handle};
        Fail("ProSolidFeatVisit");
        EXPECT_EQ(visitor(&feature, PRO_TK_NO_ERROR, components.Place()), PRO_TK_NO_ERROR);
        EXPECT_EQ(Operation::FiredFaults(), 1u);
        Operation::ForgetFaults();
    }
}

TEST_F(FailingWalk, WithoutAnArrayNothingIsVisitedAndTheResultIsEmpty) {
    Fail("ProArrayAlloc", {.status = PRO_TK_OUT_OF_MEMORY});
    Record();
    ComponentArray components = ComponentCollector(top_.handle, VisitAllComponents);
    EXPECT_FALSE(components);
    EXPECT_EQ(components.Size(), 0);
    EXPECT_EQ(ReduceToModelList(std::move(components), 0), ModelList{});
    EXPECT_EQ(Recorded(), Names{"ProArrayAlloc"});
}

TEST_F(FailingWalk, AComponentThatCannotBeAppendedIsMissingAloneAtWhateverLevel) {
    for (unsigned n = 1; n <= everything_.size(); ++n) {
        Names others = everything_;
        others.erase(others.begin() + (n - 1));
        EXPECT_EQ(WalkWith("ProArrayObjectAdd", n), others) << n;
    }
    EXPECT_EQ(WalkWith("ProArrayObjectAdd", 0), Names{});
    EXPECT_EQ(WalkWith("ProArrayObjectAdd", 1, VisitAsmComponents), Names{"sub.asm#2"});
    EXPECT_EQ(WalkWith("ProArrayObjectAdd", 1, VisitSheetMetalComponents), Names{});
}

TEST_F(FailingWalk, ASizeThatCannotBeReadIsZero) {
    const ComponentArray components = ComponentCollector(top_.handle, VisitAllComponents);
    Fail("ProArraySizeGet");
    EXPECT_EQ(components.Size(), 0);
    EXPECT_EQ(components.Size(), 7);
}

// --- The list of models ------------------------------------------------------------------------

class ModelLists : public FailingWalk {
protected:
    ModelList Reduced(Model& top, const ModelList& list = {},
                      ProFeatureVisitAction visitor = VisitAllComponents) {
        ComponentArray components = ComponentCollector(top.handle, visitor);
        const int size = components.Size();
        return ReduceToModelList(std::move(components), size, list);
    }
};

TEST_F(ModelLists, APartThatIsUsedFourTimesIsThereOnce) {
    Model& outer = Assembly("outer");
    UseAll(outer, {&plate_, &plate_, &plate_, &plate_});
    EXPECT_EQ(Walk(outer, VisitAllComponents).size(), 4u);
    EXPECT_EQ(FileNames(Reduced(outer)), Names{"plate.prt"});
}

TEST_F(ModelLists, EachModelOfTheAssemblyIsThereOnceAndTheTopIsNot) {
    EXPECT_EQ(FileNames(Reduced(top_)), ByHandle({&plate_, &sub_, &sheet_, &subsub_, &pin_}));
}

TEST_F(ModelLists, TheTopModelTakesItsPlaceByItsHandleWhereTheScopeCallsForIt) {
    EXPECT_EQ(FileNames(Reduced(top_, {top_.handle}, VisitAsmComponents)),
              ByHandle({&top_, &sub_, &subsub_}));
}

TEST_F(ModelLists, TheOrderIsThatOfTheHandlesNotOfTheCreation) {
    Model& outer = Assembly("outer");
    std::vector<Model*> created;
    for (int i = 0; i < 40; ++i) {
        created.push_back(&Part("part" + std::to_string(i)));
        UseAll(outer, {created.back()});
    }
    const ModelList list = Reduced(outer);
    EXPECT_EQ(FileNames(list), ByHandle(created));
    EXPECT_FALSE(
        std::equal(list.begin(), list.end(), created.begin(), created.end(),
                   [](ProMdl handle, const Model* model) { return handle == model->handle; }));
}

TEST_F(ModelLists, HandlesAreComparedAsUnsignedNumbers) {
    const auto handle = [](std::uintptr_t value) { return reinterpret_cast<ProMdl>(value); };
    const std::uintptr_t highest = ~std::uintptr_t{0};
    const ModelList list = {handle(highest), handle(16), handle(highest / 2 + 1), handle(16),
                            handle(highest / 2)};
    EXPECT_EQ(
        ReduceToModelList({}, 0, list),
        (ModelList{handle(16), handle(highest / 2), handle(highest / 2 + 1), handle(highest)}));
}

TEST_F(ModelLists, AComponentWhoseModelIsMissingIsDropped) {
    Model& outer = Assembly("outer");
    UseMissing(outer, "lost.prt");
    EXPECT_EQ(Reduced(outer), ModelList{});
    UseAll(outer, {&plate_});
    UseMissing(outer, "gone.prt");
    EXPECT_EQ(FileNames(Reduced(outer)), Names{"plate.prt"});
}

TEST_F(ModelLists, AModelThatCannotBeFetchedForTheListIsDroppedNotGuessed) {
    Model& outer = Assembly("outer");
    UseAll(outer, {&plate_, &pin_});
    for (const auto& [n, left] : {std::pair{1u, &pin_}, std::pair{2u, &plate_}}) {
        ComponentArray components = ComponentCollector(outer.handle, VisitAllComponents);
        Fail("ProAsmcompMdlGet", {.n = n});
        EXPECT_EQ(FileNames(ReduceToModelList(std::move(components), 2)), Names{left->FileName()});
        Operation::ForgetFaults();
    }
}

TEST_F(ModelLists, TheArrayIsFreedOnceTheModelsAreKnown) {
    ComponentArray components = ComponentCollector(subsub_.handle, VisitAllComponents);
    EXPECT_EQ(host().arrays.Held().size(), 1u);
    Record();
    EXPECT_EQ(FileNames(ReduceToModelList(std::move(components), 1)), Names{"pin.prt"});
    EXPECT_EQ(Recorded(), (Names{"ProAsmcompMdlGet", "ProArrayFree"}));
    EXPECT_EQ(host().arrays.Held(), Names{});
}

}  // namespace
