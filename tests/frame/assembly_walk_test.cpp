// The walk over an assembly: what is found, in which order, what is passed over, and what a failing
// host leaves of it.
#include <algorithm>
#include <utility>

#include "simhost/core/operation.h"
#include "tests/frame/walk_bench.h"

namespace {

using namespace simhost;
using workbench::Joined;
using workbench::Names;
using workbench::WalkBench;

constexpr ProFeatureVisitAction kAllVisitors[] = {VisitAllComponents, VisitPartComponents,
                                                  VisitAsmComponents, VisitSheetMetalComponents};

class AssemblyWalk : public WalkBench {};

// --- What is found -----------------------------------------------------------------------------

TEST_F(AssemblyWalk, AllComponentsAreFoundASubAssemblyBeforeItsOwnAndTheTopNever) {
    EXPECT_EQ(Walk(top_, VisitAllComponents), everything_);
}

TEST_F(AssemblyWalk, OnlyPartsAreFoundAtEveryLevel) {
    EXPECT_EQ(Walk(top_, VisitPartComponents),
              (Names{"top.asm#1", "sub.asm#1", "subsub.asm#1", "sub.asm#3", "top.asm#3"}));
}

TEST_F(AssemblyWalk, OnlySubAssembliesAreFoundOuterOnesFirst) {
    EXPECT_EQ(Walk(top_, VisitAsmComponents), (Names{"top.asm#2", "sub.asm#2"}));
}

TEST_F(AssemblyWalk, OnlySheetMetalIsFound) {
    EXPECT_EQ(Walk(top_, VisitSheetMetalComponents), Names{"sub.asm#1"});
}

TEST_F(AssemblyWalk, WhateverHasTheSubtypeOfSheetMetalCountsAndComesBeforeWhatLiesBelowIt) {
    sub_.subtype = PROMDLSTYPE_PART_SHEETMETAL;
    EXPECT_EQ(Walk(top_, VisitSheetMetalComponents), (Names{"top.asm#2", "sub.asm#1"}));
}

TEST_F(AssemblyWalk, OtherSubtypesAreNotSheetMetal) {
    sheet_.subtype = ProMdlsubtype(5);
    EXPECT_EQ(Walk(top_, VisitSheetMetalComponents), Names{});
}

TEST_F(AssemblyWalk, AnAssemblyOfPartsOnlyHasNoSubAssemblies) {
    EXPECT_EQ(Walk(subsub_, VisitAsmComponents), Names{});
}

TEST_F(AssemblyWalk, ASubAssemblyThatIsUsedTwiceIsWalkedTwice) {
    UseAll(top_, {&sub_});
    Names twice = everything_;
    for (const char* again : {"top.asm#4", "sub.asm#1", "sub.asm#2", "subsub.asm#1", "sub.asm#3"}) {
        twice.emplace_back(again);
    }
    EXPECT_EQ(Walk(top_, VisitAllComponents), twice);
}

TEST_F(AssemblyWalk, APartHasNoComponents) {
    for (const int type : {917, 900}) {
        Feature feature;
        feature.type = type;
        pin_.AddFeature(feature);
    }
    for (const auto visitor : kAllVisitors) EXPECT_EQ(Walk(pin_, visitor), Names{});
}

TEST_F(AssemblyWalk, WithoutATopModelNothingIsVisited) {
    Record();
    EXPECT_EQ(Found(ComponentCollector(nullptr, VisitAllComponents)), Names{});
    EXPECT_EQ(Recorded(), (Names{"ProArrayAlloc", "ProArraySizeGet", "ProArrayFree"}));
}

// --- What is passed over -----------------------------------------------------------------------

TEST_F(AssemblyWalk, ASuppressedSubAssemblyIsLeftOutWithAllThatLiesBelowIt) {
    for (const ProFeatStatus status :
         {PRO_FEAT_STAT_INVALID, PRO_FEAT_INACTIVE, PRO_FEAT_FAMTAB_SUPPRESSED,
          PRO_FEAT_SIMPREP_SUPPRESSED, PRO_FEAT_PROG_SUPPRESSED, PRO_FEAT_SUPPRESSED,
          PRO_FEAT_UNREGENERATED}) {
        FeatureOf(top_, 2).status = status;
        SCOPED_TRACE(int(status));
        EXPECT_EQ(Walk(top_, VisitAllComponents), (Names{"top.asm#1", "top.asm#3"}));
        EXPECT_EQ(Walk(top_, VisitPartComponents), (Names{"top.asm#1", "top.asm#3"}));
        EXPECT_EQ(Walk(top_, VisitAsmComponents), Names{});
        EXPECT_EQ(Walk(top_, VisitSheetMetalComponents), Names{});
    }
}

TEST_F(AssemblyWalk, AnInvisibleSubAssemblyIsLeftOutWithAllThatLiesBelowIt) {
    FeatureOf(top_, 2).visible = false;
    EXPECT_EQ(Walk(top_, VisitAllComponents), (Names{"top.asm#1", "top.asm#3"}));
    EXPECT_EQ(Walk(top_, VisitPartComponents), (Names{"top.asm#1", "top.asm#3"}));
    EXPECT_EQ(Walk(top_, VisitAsmComponents), Names{});
    EXPECT_EQ(Walk(top_, VisitSheetMetalComponents), Names{});
}

TEST_F(AssemblyWalk, ASuppressedComponentDeepDownIsLeftOut) {
    FeatureOf(subsub_, 1).status = PRO_FEAT_SUPPRESSED;
    FeatureOf(sub_, 1).visible = false;
    EXPECT_EQ(Walk(top_, VisitAllComponents),
              (Names{"top.asm#1", "top.asm#2", "sub.asm#2", "sub.asm#3", "top.asm#3"}));
}

TEST_F(AssemblyWalk, AComponentThatTheUserHasHiddenIsWalked) {
    FeatureOf(top_, 2).hidden = true;
    FeatureOf(sub_, 1).hidden = true;
    EXPECT_EQ(Walk(top_, VisitAllComponents), everything_);
}

TEST_F(AssemblyWalk, StatusFlagsOfExactly130AreSkippedAndNoOthers) {
    FeatureOf(top_, 2).flags = 130;
    EXPECT_EQ(Walk(top_, VisitAllComponents), (Names{"top.asm#1", "top.asm#3"}));
    for (const int flags : {0, 1, 2, 128, 129, 131, 130 + 256, -126}) {
        FeatureOf(top_, 2).flags = flags;
        SCOPED_TRACE(flags);
        EXPECT_EQ(Walk(top_, VisitAllComponents), everything_);
    }
}

TEST_F(AssemblyWalk, TheWideFilterToosPassesOverStatusFlags130) {
    FeatureOf(top_, 2).flags = 130;
    EXPECT_EQ(Walk(top_, VisitAllComponents, ComponentFilterWide),
              (Names{"top.asm#1", "top.asm#3"}));
}

TEST_F(AssemblyWalk, FeaturesOfOtherTypesAreNoComponents) {
    for (const int type : {1, 917, 999, 1001, 1103, 1104, 1105, 1231, 1232, 1233}) {
        FeatureOf(top_, 2).type = type;
        SCOPED_TRACE(type);
        EXPECT_EQ(Walk(top_, VisitAllComponents), (Names{"top.asm#1", "top.asm#3"}));
    }
}

TEST_F(AssemblyWalk, TheWideFilterTakesTwoFurtherTypesAtTheTopLevelOnly) {
    for (const int type : {1104, 1232}) {
        SCOPED_TRACE(type);
        FeatureOf(top_, 2).type = type;
        FeatureOf(sub_, 1).type = PRO_FEAT_COMPONENT;
        EXPECT_EQ(Walk(top_, VisitAllComponents, ComponentFilterWide), everything_);
        // One level deeper the same type is passed over.
        FeatureOf(sub_, 1).type = type;
        EXPECT_EQ(Walk(top_, VisitAllComponents, ComponentFilterWide),
                  (Names{"top.asm#1", "top.asm#2", "sub.asm#2", "subsub.asm#1", "sub.asm#3",
                         "top.asm#3"}));
    }
    for (const int type : {917, 999, 1001, 1103, 1105, 1231, 1233}) {
        FeatureOf(top_, 2).type = type;
        SCOPED_TRACE(type);
        EXPECT_EQ(Walk(top_, VisitAllComponents, ComponentFilterWide),
                  (Names{"top.asm#1", "top.asm#3"}));
    }
}

TEST_F(AssemblyWalk, TheFiltersAnswerZeroForATakenFeatureAndGoOnForAnother) {
    ProFeature feature{PRO_FEATURE, 1, top_.handle};
    EXPECT_EQ(ComponentFilter(&feature, nullptr), PRO_TK_NO_ERROR);
    EXPECT_EQ(ComponentFilterWide(&feature, nullptr), PRO_TK_NO_ERROR);
    FeatureOf(top_, 1).type = 1232;
    EXPECT_EQ(ComponentFilter(&feature, nullptr), PRO_TK_CONTINUE);
    EXPECT_EQ(ComponentFilterWide(&feature, nullptr), PRO_TK_NO_ERROR);
    FeatureOf(top_, 1).flags = 130;
    EXPECT_EQ(ComponentFilter(&feature, nullptr), PRO_TK_CONTINUE);
    EXPECT_EQ(ComponentFilterWide(&feature, nullptr), PRO_TK_CONTINUE);
}

// --- Components without a model ----------------------------------------------------------------

TEST_F(AssemblyWalk, AComponentWhoseModelIsMissingStaysAmongAllAndTheWalkGoesOn) {
    const int missing = UseMissing(sub_, "lost.asm");
    ASSERT_EQ(missing, 4);
    EXPECT_EQ(Walk(top_, VisitAllComponents),
              (Names{"top.asm#1", "top.asm#2", "sub.asm#1", "sub.asm#2", "subsub.asm#1",
                     "sub.asm#3", "sub.asm#4", "top.asm#3"}));
}

TEST_F(AssemblyWalk, AComponentWhoseModelIsMissingIsDroppedByTheOtherVisitors) {
    UseMissing(sub_, "lost.asm");
    UseMissing(sub_, "lost.prt");
    EXPECT_EQ(Walk(top_, VisitPartComponents),
              (Names{"top.asm#1", "sub.asm#1", "subsub.asm#1", "sub.asm#3", "top.asm#3"}));
    EXPECT_EQ(Walk(top_, VisitAsmComponents), (Names{"top.asm#2", "sub.asm#2"}));
    EXPECT_EQ(Walk(top_, VisitSheetMetalComponents), Names{"sub.asm#1"});
}

// --- What the visitors answer ------------------------------------------------------------------

TEST_F(AssemblyWalk, AVisitorGoesOnAfterAModelThatIsMissingAndAnswersZeroOtherwise) {
    const int missing = UseMissing(top_, "lost.prt");
    FeatureOf(top_, 3).status = PRO_FEAT_SUPPRESSED;
    for (const auto visitor : kAllVisitors) {
        ComponentArray components;
        ASSERT_EQ(components.Allocate(), PRO_TK_NO_ERROR);
        for (const int id : {1, 2, 3}) {
            ProFeature feature{PRO_FEATURE, id, top_.handle};
            EXPECT_EQ(visitor(&feature, PRO_TK_NO_ERROR, components.Place()), PRO_TK_NO_ERROR);
        }
        ProFeature lost{PRO_FEATURE, missing, top_.handle};
        EXPECT_EQ(visitor(&lost, PRO_TK_NO_ERROR, components.Place()), PRO_TK_CONTINUE);
    }
}

TEST_F(AssemblyWalk, AnEmptySubAssemblyDoesNotEndTheWalk) {
    Model& empty = Assembly("empty");
    Model& outer = Assembly("outer");
    UseAll(outer, {&empty, &plate_});
    EXPECT_EQ(Walk(outer, VisitAllComponents), (Names{"outer.asm#1", "outer.asm#2"}));
    EXPECT_EQ(Walk(outer, VisitPartComponents), Names{"outer.asm#2"});
    EXPECT_EQ(Walk(outer, VisitAsmComponents), Names{"outer.asm#1"});
}

// --- Order of the calls ------------------------------------------------------------------------

const Names kFilterCalls = {"ProFeatureStatusflagsGet", "ProFeatureTypeGet"};
const Names kStateCalls = {"ProFeatureStatusGet", "ProFeatureVisibilityGet"};

TEST_F(AssemblyWalk, EachVisitorAppendsAtItsOwnMoment) {
    Model& outer = Assembly("outer");
    Model& inner = Assembly("inner");
    UseAll(outer, {&inner});
    UseAll(inner, {&sheet_});
    // What is asked about the sub-assembly and, inside its visit, about the sheet metal part.
    const struct {
        ProFeatureVisitAction visitor;
        Names assembly, part;
    } rows[] = {
        {VisitAllComponents,
         {"ProArrayObjectAdd", "ProAsmcompMdlGet", "ProMdlTypeGet"},
         {"ProArrayObjectAdd", "ProAsmcompMdlGet", "ProMdlTypeGet"}},
        {VisitPartComponents,
         {"ProAsmcompMdlGet", "ProMdlTypeGet"},
         {"ProAsmcompMdlGet", "ProMdlTypeGet", "ProArrayObjectAdd"}},
        {VisitAsmComponents,
         {"ProAsmcompMdlGet", "ProMdlTypeGet", "ProArrayObjectAdd"},
         {"ProAsmcompMdlGet", "ProMdlTypeGet"}},
        {VisitSheetMetalComponents,
         {"ProAsmcompMdlGet", "ProMdlSubtypeGet", "ProMdlTypeGet"},
         {"ProAsmcompMdlGet", "ProMdlSubtypeGet", "ProArrayObjectAdd", "ProMdlTypeGet"}},
    };
    for (const auto& row : rows) {
        Record();
        const ComponentArray components = ComponentCollector(outer.handle, row.visitor);
        EXPECT_EQ(Recorded(), Joined({{"ProArrayAlloc", "ProSolidFeatVisit"},
                                      kFilterCalls,
                                      kStateCalls,
                                      row.assembly,
                                      {"ProSolidFeatVisit"},
                                      kFilterCalls,
                                      kStateCalls,
                                      row.part}));
    }
}

TEST_F(AssemblyWalk, OnlyWhatMustBeKnownIsAskedOfAFeatureThatIsPassedOver) {
    Model& outer = Assembly("outer");
    UseAll(outer, {&plate_, &plate_});
    FeatureOf(outer, 1).flags = 130;
    FeatureOf(outer, 2).status = PRO_FEAT_SUPPRESSED;
    Record();
    const ComponentArray components = ComponentCollector(outer.handle, VisitAllComponents);
    EXPECT_EQ(Recorded(),
              Joined({{"ProArrayAlloc", "ProSolidFeatVisit", "ProFeatureStatusflagsGet"},
                      kFilterCalls,
                      kStateCalls}));
}

TEST_F(AssemblyWalk, TheArrayBeginsEmptyAndGrowsByOneComponent) {
    Record();
    Walk(subsub_, VisitAllComponents);
    Recorded();
    const auto& lines = host().journal.lines();
    // A component is two 32-bit numbers and a pointer.
    EXPECT_EQ(lines.front(), "ProArrayAlloc(objects=0, objectSize=16, step=1) = 0");
    const auto added = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return line.find("ProArrayObjectAdd") != std::string::npos;
    });
    ASSERT_NE(added, lines.end());
    EXPECT_EQ(added->substr(added->find('P')), "ProArrayObjectAdd(index=-1, count=1) = 0");
    EXPECT_EQ(lines.back(), "ProArrayFree() = 0");
}

TEST_F(AssemblyWalk, TheArrayMayMoveWhileItIsFilled) {
    ComponentArray components;
    ASSERT_EQ(components.Allocate(), PRO_TK_NO_ERROR);
    const ProAsmcomp* before = components.data();
    const auto solid = static_cast<ProSolid>(top_.handle);
    ASSERT_EQ(ProSolidFeatVisit(solid, VisitAllComponents, ComponentFilter, components.Place()),
              PRO_TK_NO_ERROR);
    EXPECT_NE(components.data(), before);
    EXPECT_EQ(Found(std::move(components)), everything_);
}

TEST_F(AssemblyWalk, AWideAndDeepAssemblyIsFoundWhole) {
    Model* inner = &subsub_;
    for (int level = 0; level < 30; ++level) {
        Model& outer = Assembly("level" + std::to_string(level));
        for (int i = 0; i < 7; ++i) UseAll(outer, {&pin_});
        UseAll(outer, {inner});
        inner = &outer;
    }
    // 30 levels of 7 pins and a sub-assembly each, and the pin of the innermost.
    EXPECT_EQ(Walk(*inner, VisitAllComponents).size(), 30u * 8 + 1);
    EXPECT_EQ(Walk(*inner, VisitPartComponents).size(), 30u * 7 + 1);
    EXPECT_EQ(Walk(*inner, VisitAsmComponents).size(), 30u);
}

}  // namespace
