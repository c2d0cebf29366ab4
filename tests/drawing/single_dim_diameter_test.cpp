// VxSingleDim: a round edge that is picked twice gives its diameter, and then a further dimension.
#include <fmt/format.h>

#include <algorithm>

#include "tests/drawing/single_dim_bench.h"

namespace {

using namespace simhost;
using workbench::SingleDim;
using Names = std::vector<std::string>;

// --- The same round edge twice ---

TEST_F(SingleDim, ARoundEdgePickedTwiceGivesItsDiameterAndAsksForAFurtherClick) {
    InVersion("Creo 2.0");
    const std::string rim = PickRim(2, {0, 0, 60}, 10);
    Record(TwoPicks(rim, rim, Click(230, 130) + Click(240, 140)));
    EXPECT_EQ(Says(1), "⌀20");
    EXPECT_EQ(DimensionOf(1).kind, DimensionKind::Diameter);
    const Names calls = LinesOf("ProDrawingDimCreate");
    // The circle to itself is no dimension, be it by its centre or as a whole.
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_NE(calls[0].find("senses=[sense 0 value 0 angle [0, 0, 0] hint 3]"), std::string::npos)
        << calls[0];
    EXPECT_NE(calls[0].find("(230, 130, 0)"), std::string::npos) << calls[0];
    EXPECT_NE(calls[1].find("(240, 140, 0)"), std::string::npos) << calls[1];
    EXPECT_EQ(AnnotationsOf(*drawing_).dimensions().size(), 1u);
    const Names macros = LinesOf("ProMacroLoad");
    ASSERT_EQ(macros.size(), 2u);
    EXPECT_NE(
        macros[0].find("\"~ Command `ProCmdPmaOptDimOrient`  `diameter`; ~ Command `VxDim`;\""),
        std::string::npos)
        << macros[0];
    EXPECT_NE(macros[1].find("`ang_inside`"), std::string::npos) << macros[1];
    EXPECT_EQ(LinesOf("ProMousePickGet").size(), 2u);
}

TEST_F(SingleDim, AFailedDiameterLoadsNoMacroOfItsOwn) {
    const std::string rim = PickRim(2, {0, 0, 60}, 10);
    Fail("ProDrawingDimCreate");
    Record(TwoPicks(rim, rim, Click(230, 130) + Click(240, 140)));
    ASSERT_EQ(LinesOf("ProMacroLoad").size(), 1u);
    EXPECT_NE(LinesOf("ProMacroLoad")[0].find("`ang_inside`"), std::string::npos);
    EXPECT_EQ(LinesOf("ProSelbufferClear").size(), 1u);
}

TEST_F(SingleDim, CreoThreeTakesItsOwnWayToADiameter) {
    InVersion("Creo 3.0");
    const std::string rim = PickRim(2, {0, 0, 60}, 10);
    Record(TwoPicks(rim, rim, Click(230, 130) + Click(240, 140)));
    const Names calls = LinesOf("ProDrawingDimCreate");
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_NE(calls[0].find("senses=[sense 0 value 0 angle [0, 0, 0] hint 0, sense 0 value 0 "),
              std::string::npos)
        << calls[0];
    ASSERT_EQ(LinesOf("ProMacroLoad").size(), 1u);
    EXPECT_NE(LinesOf("ProMacroLoad")[0].find(
                  "\"~ Activate `dtl_attref_ui` `psh_ent_att`; ~ Select `main_dlg_cur` "
                  "`layGr_proe_win.dim_types_menu`; ~ Close `main_dlg_cur` "
                  "`layGr_proe_win.dim_types_menu`;~ Select `main_dlg_cur` `dim_types_rg` 1 "
                  "`diameter`; ~ Command `VxDim`;\""),
              std::string::npos)
        << LinesOf("ProMacroLoad")[0];
    EXPECT_TRUE(LinesOf("ProSelbufferClear").empty());
}

TEST_F(SingleDim, CreoThreeLoadsNoMacroForTwoPicks) {
    InVersion("Creo 3.0");
    Record(TwoPicks(PickCorner({0, 0, 10}), PickCorner({40, 20, 10}), Click(100, 130)));
    EXPECT_EQ(Says(1), "40");
    EXPECT_TRUE(LinesOf("ProMacroLoad").empty());
    EXPECT_TRUE(LinesOf("ProSelbufferClear").empty());
}

TEST_F(SingleDim, OnlyTheExactVersionTakesThatWay) {
    for (const char* version : {"Creo 3.0 M010", "creo 3.0", "Creo 3", "Creo 4.0", ""}) {
        InVersion(version);
        Record(TwoPicks(PickCorner({0, 0, 10}), PickCorner({40, 20, 10}), Click(100, 130)));
        EXPECT_EQ(LinesOf("ProMacroLoad").size(), 1u) << version;
    }
}

TEST_F(SingleDim, AStraightEdgePickedTwiceGoesStraightOn) {
    const std::string edge = PickBlockEdge({0, 0, 10}, {40, 0, 10});
    Record(TwoPicks(edge, edge, Click(100, 70)));
    EXPECT_EQ(LinesOf("ProMousePickGet").size(), 1u);
    EXPECT_EQ(LinesOf("ProGeomitemToEdge").size(), 4u) << "twice for the first, once for each";
    EXPECT_EQ(AnnotationsOf(*drawing_).dimensions().size(), 0u);
}

TEST_F(SingleDim, TwoRimsOfOneIdInTwoPartsCountAsTheSame) {
    // Items are compared by type and id only.
    Model& other = Part("OTHER");
    other.partData.solids = shaft_->partData.solids;
    DrawingOf(*drawing_).AddGeneral(other, 1, {200, 200, 0}, 1, Placement());
    const int rim = RimOf(*shaft_, {0, 0, 60}, 10);
    Record(TwoPicks(fmt::format("@ pick edge 2/{}\n", rim), fmt::format("@ pick edge 4/{}\n", rim),
                    Click(230, 130) + Click(240, 140)));
    EXPECT_EQ(LinesOf("ProMousePickGet").size(), 2u);
    EXPECT_EQ(Says(1), "⌀20");
}

TEST_F(SingleDim, ADiameterMakesItsCallsInThisOrder) {
    const std::string rim = PickRim(2, {0, 0, 60}, 10);
    Record(TwoPicks(rim, rim, Click(230, 130) + Click(240, 140)));
    const Names all = NamesOfCalls();
    const auto from = std::find(all.begin(), all.end(), "ProSelectionViewGet");
    const auto to = std::find(from, all.end(), "ProArrayFree");
    EXPECT_EQ(
        Names(from, to),
        (Names{"ProSelectionViewGet", "ProDrawingViewTransformGet", "ProSelectionModelitemGet",
               "ProSelectionModelitemGet", "ProGeomitemToEdge", "ProGeomitemToEdge",
               "ProEdgeTypeGet", "ProEdgeTypeGet",
               // The diameter itself.
               "ProArrayAlloc", "ProArrayAlloc", "ProSelectionCopy", "ProSelectionViewGet",
               "ProMousePickGet", "ProDrawingDimCreate", "ProAnnotationShow", "ProSelbufferClear",
               "ProSelectionAlloc", "ProSelbufferSelectionAdd", "ProMacroLoad"}));
    EXPECT_EQ(LinesOf("ProArrayFree").size(), 1u) << "the sense of the one pick";
}

TEST_F(SingleDim, InCreoThreeADiameterMakesItsCallsInThisOrder) {
    InVersion("Creo 3.0");
    const std::string rim = PickRim(2, {0, 0, 60}, 10);
    Record(TwoPicks(rim, rim, Click(230, 130) + Click(240, 140)));
    const Names all = NamesOfCalls();
    const auto from = std::find(all.begin(), all.end(), "ProMousePickGet");
    const auto to = std::find(from, all.end(), "ProSelectionModelitemGet");
    EXPECT_EQ(Names(from, to), (Names{"ProMousePickGet", "ProDrawingDimCreate", "ProMacroLoad"}));
}

TEST_F(SingleDim, LeavingTheClickOfADiameterEndsTheCommand) {
    const std::string rim = PickRim(2, {0, 0, 60}, 10);
    for (const char* version : {"Creo 2.0", "Creo 3.0"}) {
        InVersion(version);
        Record(kCommand + rim + rim + "@ quit\n");
        EXPECT_EQ(LinesOf("ProSelect").size(), 2u) << version;
        EXPECT_EQ(LinesOf("ProMousePickGet").size(), 1u) << version;
        EXPECT_TRUE(LinesOf("ProDrawingDimCreate").empty()) << version;
        EXPECT_TRUE(LinesOf("ProMacroLoad").empty()) << version;
    }
}

TEST_F(SingleDim, WithoutRoomForADiameterTheDimensionOfBothPicksFollows) {
    const std::string rim = PickRim(2, {0, 0, 60}, 10);
    for (const unsigned which : {3U, 4U}) {  // after the two arrays of the pass
        Fail("ProArrayAlloc", {.n = which});
        Record(TwoPicks(rim, rim, Click(240, 140)));
        EXPECT_EQ(LinesOf("ProDrawingDimCreate").size(), 2u) << "both attempts";
        ASSERT_EQ(LinesOf("ProMacroLoad").size(), 1u);
        EXPECT_NE(LinesOf("ProMacroLoad")[0].find("`ang_inside`"), std::string::npos);
    }
}

// One of them is asked for each pick, but both are of the first one.
TEST_F(SingleDim, BothTypesAreThoseOfTheFirstEdge) {
    const std::string rim = PickRim(2, {0, 0, 60}, 10);
    Fail("ProGeomitemToEdge", {.n = 2});
    Record(TwoPicks(rim, rim, Click(230, 130) + Click(240, 140)));
    EXPECT_EQ(Says(1), "⌀20");
    Fail("ProGeomitemToEdge", {.n = 1});
    Record(TwoPicks(rim, rim, Click(240, 140)));
    EXPECT_TRUE(LinesOf("ProArrayFree").empty()) << "no diameter";
    EXPECT_EQ(LinesOf("ProEdgeTypeGet").size(), 2u) << "of each pick in the end";
}

TEST_F(SingleDim, AnEdgeThatIsRoundOnlyOnceGivesNoDiameter) {
    const std::string rim = PickRim(2, {0, 0, 60}, 10);
    for (const unsigned which : {1U, 2U}) {
        Fail("ProEdgeTypeGet", {.n = which});
        Record(TwoPicks(rim, rim, Click(240, 140)));
        EXPECT_EQ(LinesOf("ProMousePickGet").size(), 1u) << which;
        EXPECT_EQ(AnnotationsOf(*drawing_).dimensions().size(), 0u) << which;
    }
}

// The place for the selection of the new dimension holds the pick until then.
TEST_F(SingleDim, WhereADiameterCannotBeSelectedThePickIs) {
    const int rim = RimOf(*shaft_, {0, 0, 60}, 10);
    Fail("ProSelectionAlloc");
    Record(TwoPicks(PickRim(2, {0, 0, 60}, 10), PickRim(2, {0, 0, 60}, 10),
                    Click(230, 130) + Click(240, 140)));
    EXPECT_NE(LinesOf("ProSelbufferSelectionAdd")
                  .at(0)
                  .find(fmt::format("shaft.prt item {} of type 6 at shaft.prt []) = 0", rim)),
              std::string::npos)
        << LinesOf("ProSelbufferSelectionAdd")[0];
}

}  // namespace
