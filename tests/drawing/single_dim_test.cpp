// VxSingleDim: what comes of one pick and of two, and of where the user clicks.
#include <fmt/format.h>

#include <algorithm>

#include "tests/drawing/single_dim_bench.h"

namespace {

using namespace simhost;
using workbench::SingleDim;
using Names = std::vector<std::string>;

// --- Ends ---

TEST_F(SingleDim, EndingTheFirstPickMakesNothing) {
    Record(kCommand + kEnd + "@ expect message \"请选择要标注的图元：\"\n");
    EXPECT_TRUE(LinesOf("ProDrawingDimCreate").empty());
    EXPECT_TRUE(LinesOf("ProMousePickGet").empty());
    EXPECT_EQ(LinesOf("ProSelect").size(), 1u);
    Play(kCommand + kNoSecond);
    EXPECT_EQ(AnnotationsOf(*drawing_).dimensions().size(), 0u);
}

TEST_F(SingleDim, TheFilterAndTheSinglePickAreAsTold) {
    Record(kCommand + kEnd);
    EXPECT_NE(LinesOf("ProSelect")[0].find(
                  "\"edge_end,point,dtl_axis,datum,csys,edge,curve,sldedge,qltedge,silhedge\", "
                  "most=1, initial=null, functions=null, environment=null"),
              std::string::npos)
        << LinesOf("ProSelect")[0];
}

TEST_F(SingleDim, WithoutAModelNothingIsAsked) {
    Fail("ProMdlCurrentGet");
    Record(kCommand);
    EXPECT_TRUE(LinesOf("ProSelect").empty());
    EXPECT_TRUE(LinesOf("ProArrayAlloc").empty());
}

TEST_F(SingleDim, LeavingTheClickEndsTheCommand) {
    Play(kCommand + PickBlockEdge({0, 0, 10}, {40, 0, 10}) + kNoSecond + "@ quit\n");
    EXPECT_EQ(AnnotationsOf(*drawing_).dimensions().size(), 0u);
    Play(kCommand + PickCorner({0, 0, 10}) + PickCorner({40, 0, 10}) + "@ quit\n");
    EXPECT_EQ(AnnotationsOf(*drawing_).dimensions().size(), 0u);
}

// --- One pick ---

TEST_F(SingleDim, AStraightEdgeGivesItsLengthWithoutAHint) {
    Record(kCommand + PickBlockEdge({0, 0, 10}, {40, 0, 10}) + kNoSecond + Click(100, 75) + kEnd);
    EXPECT_EQ(Says(1), "40");
    EXPECT_EQ(LastHint(), 0);
    EXPECT_EQ(DimensionOf(1).at, (Vec3{0, -25, 0})) << "from the place of the view, 100 100";
    EXPECT_EQ(DimensionOf(1).view, 1);
    EXPECT_TRUE(DimensionOf(1).shown);
    Play("@ expect dimension 1 40\n@ expect dimensions 1\n");
}

TEST_F(SingleDim, AnAbortedSecondPickCountsAsOnePick) {
    Play(kCommand + PickBlockEdge({0, 0, 10}, {0, 20, 10}) + "@ quit\n" + Click(70, 100) + kEnd);
    EXPECT_EQ(Says(1), "20");
}

TEST_F(SingleDim, ARoundEdgeGivesItsRadiusWithHintTwo) {
    Record(kCommand + PickRim(2, {0, 0, 60}, 10) + kNoSecond + Click(230, 130) + kEnd);
    EXPECT_EQ(LastHint(), 2);
    EXPECT_EQ(Says(1), "R10");
    EXPECT_EQ(DimensionOf(1).kind, DimensionKind::Radius);
}

TEST_F(SingleDim, CurvesOfBothNumbersAreRound) {
    for (const ProEnttype type : {PRO_ENT_ARC, PRO_ENT_CIRCLE}) {
        circlesAre = type;
        Record(kCommand + PickRim(2, {0, 0, 60}, 10) + kNoSecond + Click(230, 130) + kEnd);
        EXPECT_EQ(LastHint(), 2) << type;
    }
    circlesAre = ProEnttype(4);
    Record(kCommand + PickRim(2, {0, 0, 60}, 10) + kNoSecond + Click(230, 130) + kEnd);
    EXPECT_EQ(LastHint(), 0);
}

TEST_F(SingleDim, ARimSeenOnEdgeGivesItsDiameterAsALength) {
    Play(kCommand + PickRim(3, {0, 0, 60}, 10) + kNoSecond + Click(380, 100) + kEnd);
    EXPECT_EQ(Says(1), "20");
    EXPECT_EQ(DimensionOf(1).kind, DimensionKind::Slanted);
}

TEST_F(SingleDim, ASilhouetteIsMeasuredAlongItself) {
    // The face of the larger cylinder has the id 11, so that its silhouettes are 111 and 112.
    Record(kCommand + "@ pick edge 3/silhouette#111\n" + kNoSecond + Click(270, 150) + kEnd);
    EXPECT_EQ(Says(1), "30");
    EXPECT_EQ(LastHint(), 0);
    EXPECT_TRUE(LinesOf("ProEdgeTypeGet").empty()) << "it is no edge";
}

TEST_F(SingleDim, APointAloneGivesNoDimensionAndTheNextPassBegins) {
    Record(kCommand + PickCorner({0, 0, 10}) + kNoSecond + Click(70, 70) +
           PickBlockEdge({0, 0, 10}, {40, 0, 10}) + kNoSecond + Click(100, 75) + kEnd);
    EXPECT_EQ(AnnotationsOf(*drawing_).dimensions().size(), 1u);
    EXPECT_EQ(LinesOf("ProAnnotationShow").size(), 1u);
    EXPECT_TRUE(LinesOf("ProMacroLoad").empty()) << "one pick loads no macro";
}

TEST_F(SingleDim, OnePickMakesItsCallsInThisOrder) {
    Record(kCommand + PickBlockEdge({0, 0, 10}, {40, 0, 10}) + kNoSecond + Click(100, 75) + kEnd);
    EXPECT_EQ(NamesOfCalls(), (Names{"ProModeCurrentGet", "ProMdlCurrentGet",
                                     "ProArrayAlloc",     "ProArrayAlloc",
                                     "ProMessageDisplay", "ProSelect",
                                     "ProSelectionCopy",  "ProMessageDisplay",
                                     "ProSelect",         "ProSelectionModelitemGet",
                                     "ProGeomitemToEdge", "ProEdgeTypeGet",
                                     "ProArrayAlloc",     "ProArrayAlloc",
                                     "ProSelectionCopy",  "ProSelectionViewGet",
                                     "ProMousePickGet",   "ProDrawingDimCreate",
                                     "ProAnnotationShow", "ProArrayFree",
                                     "ProMdlCurrentGet",  "ProArrayAlloc",
                                     "ProArrayAlloc",     "ProMessageDisplay",
                                     "ProSelect"}));
    EXPECT_NE(LinesOf("ProMousePickGet")[0].find("expected=8191"), std::string::npos)
        << LinesOf("ProMousePickGet")[0];
    EXPECT_NE(LinesOf("ProAnnotationShow")[0].find("path=null, view=view 1 of sheet.drw"),
              std::string::npos)
        << LinesOf("ProAnnotationShow")[0];
    EXPECT_NE(LinesOf("ProDrawingDimCreate")[0].find("reference=0"), std::string::npos)
        << LinesOf("ProDrawingDimCreate")[0];
}

TEST_F(SingleDim, WithoutRoomForOnePickTheNextPassBegins) {
    const std::string edge = PickBlockEdge({0, 0, 10}, {40, 0, 10}) + kNoSecond;
    std::size_t made = 0;
    for (const unsigned which : {3U, 4U}) {  // after the two arrays of the pass
        Fail("ProArrayAlloc", {.n = which});
        Record(kCommand + edge + edge + Click(100, 75) + kEnd);
        EXPECT_EQ(LinesOf("ProMousePickGet").size(), 1u);
        EXPECT_EQ(AnnotationsOf(*drawing_).dimensions().size(), ++made);
    }
    // Without the first array of the pick the second one is not asked for: nobody would free it.
    Fail("ProArrayAlloc", {.n = 3});
    Record(kCommand + edge + kEnd);
    EXPECT_EQ(LinesOf("ProArrayAlloc").size(), 5u);
}

TEST_F(SingleDim, WithoutRoomForTheArraysOfAPassTheCommandEnds) {
    for (const unsigned which : {1U, 2U}) {
        Fail("ProArrayAlloc", {.n = which});
        Record(kCommand);
        EXPECT_TRUE(LinesOf("ProMessageDisplay").empty()) << which;
        EXPECT_TRUE(LinesOf("ProSelect").empty()) << which;
    }
}

TEST_F(SingleDim, APickThatCannotBeCopiedLeavesTheOther) {
    const std::string picks =
        PickBlockEdge({0, 0, 10}, {40, 0, 10}) + PickBlockEdge({0, 0, 10}, {0, 20, 10});
    Fail("ProSelectionCopy");
    Play(kCommand + picks + Click(70, 100) + kEnd);
    EXPECT_EQ(Says(1), "20") << "the second edge";
    Fail("ProSelectionCopy", {.n = 2});
    Play(kCommand + picks + Click(100, 75) + kEnd);
    EXPECT_EQ(Says(2), "40") << "the first edge";
    Fail("ProSelectionCopy", {.n = 1, .forGood = true});
    Record(kCommand + picks);
    EXPECT_EQ(LinesOf("ProSelect").size(), 2u) << "without either the command ends";
    EXPECT_TRUE(LinesOf("ProMousePickGet").empty());
}

// --- Two points ---

TEST_F(SingleDim, TheClickSaysWhichWayTwoPointsAreMeasured) {
    struct Case {
        double x, y;
        int hint;
        const char* says;
    };
    // Between 80 90 and 120 110: the distance across is 40, upwards 20, straight 44.72.
    constexpr Case kCases[] = {
        {100, 130, 2, "40"},        {100, 70, 2, "40"},     // above, below
        {140, 100, 1, "20"},        {60, 100, 1, "20"},     // to the right, to the left
        {140, 130, 2, "40"},                                // both: above comes first
        {100, 100, 3, "44.72"},     {81, 109, 3, "44.72"},  // between
        {100, 110.005, 0, "44.72"},                         // on the border of both
        {120.005, 100, 0, "44.72"}, {80.005, 100, 0, "44.72"}, {119.985, 109.985, 3, "44.72"},
        {100, 110.02, 2, "40"},     {120.02, 100, 1, "20"},    {100, 89.98, 2, "40"},
        {79.98, 100, 1, "20"},
    };
    int id = 0;
    for (const Case& each : kCases) {
        Record(TwoPicks(PickCorner({0, 0, 10}), PickCorner({40, 20, 10}), Click(each.x, each.y)));
        EXPECT_EQ(LastHint(), each.hint) << each.x << ' ' << each.y;
        EXPECT_EQ(Says(++id), each.says) << each.x << ' ' << each.y;
        // The other way round nothing changes.
        Record(TwoPicks(PickCorner({40, 20, 10}), PickCorner({0, 0, 10}), Click(each.x, each.y)));
        EXPECT_EQ(LastHint(), each.hint) << each.x << ' ' << each.y;
        EXPECT_EQ(Says(++id), each.says) << each.x << ' ' << each.y;
    }
}

TEST_F(SingleDim, PointsAtNegativeCoordinatesLeaveTheHintAtZero) {
    DrawingOf(*drawing_).Move(*DrawingOf(*drawing_).FindView(1), {-300, -300, 0});
    for (const auto& [x, y] : {std::pair{-200.0, -100.0}, {-100.0, -200.0}, {-200.0, -200.0}}) {
        // The corners at the back lie below the middle of the block, towards the viewer too.
        Record(TwoPicks(PickCorner({0, 0, 0}), PickCorner({40, 20, 0}), Click(x, y)));
        EXPECT_EQ(LastHint(), 0) << x << ' ' << y;
    }
    Record(TwoPicks(PickCorner({0, 0, 10}), PickCorner({40, 20, 0}), Click(-200, -100)));
    EXPECT_EQ(LastHint(), 2) << "the first point has a third coordinate of 5";
    Record(TwoPicks(PickCorner({40, 20, 0}), PickCorner({0, 0, 10}), Click(-200, -100)));
    EXPECT_EQ(LastHint(), 2) << "and the second one";
}

// The upper right corner lies at 0.0005 or at 0.001 to the right of the sheet's left border.
TEST_F(SingleDim, OneCoordinateOfAThousandthIsEnough) {
    DrawingView& view = *DrawingOf(*drawing_).FindView(1);
    DrawingOf(*drawing_).Move(view, {-120 + 0.0005, -300, 0});
    Record(TwoPicks(PickCorner({0, 0, 0}), PickCorner({40, 20, 0}), Click(-20, 0)));
    EXPECT_EQ(LastHint(), 0);
    DrawingOf(*drawing_).Move(view, {0.0006, 0, 0});
    Record(TwoPicks(PickCorner({0, 0, 0}), PickCorner({40, 20, 0}), Click(-20, 0)));
    EXPECT_EQ(LastHint(), 2);
}

TEST_F(SingleDim, AFurtherPickOfAViewScaledByTwoMeasuresTheModel) {
    const int rim = RimOf(*shaft_, {0, 0, 60}, 10);
    Play(TwoPicks(fmt::format("@ pick edge 3/start#{}\n", rim),
                  fmt::format("@ pick edge 3/start#{}\n", RimOf(*shaft_, {0, 0, 0}, 20)),
                  Click(300, 160)));
    EXPECT_EQ(Says(1), "60") << "120 on the sheet";
}

TEST_F(SingleDim, BothEndsOfAnEdgeArePoints) {
    const int edge = EdgeOf(*block_, {0, 0, 10}, {40, 0, 10});
    Record(TwoPicks(fmt::format("@ pick edge 1/start#{}\n", edge),
                    fmt::format("@ pick edge 1/end#{}\n", edge), Click(60, 90)));
    EXPECT_EQ(LinesOf("ProSelectionPoint3dGet").size(), 2u);
    EXPECT_EQ(LastHint(), 1) << "to the left of both";
}

TEST_F(SingleDim, TheFirstPickGivesTheViewAndIsReadFirst) {
    Record(TwoPicks(PickCorner({0, 0, 10}), PickRim(3, {0, 0, 60}, 10), Click(300, 160)));
    EXPECT_NE(LinesOf("ProSelectionViewGet").at(0).find("view=view 1 of sheet.drw) = 0"),
              std::string::npos);
    const Names items = LinesOf("ProSelectionModelitemGet");
    ASSERT_EQ(items.size(), 4u);
    EXPECT_NE(items[0].find("item=block.prt item "), std::string::npos) << items[0];
    EXPECT_NE(items[1].find("item=shaft.prt item "), std::string::npos) << items[1];
}

// --- Two edges ---

TEST_F(SingleDim, TwoParallelEdgesGiveTheirDistance) {
    Record(TwoPicks(PickBlockEdge({0, 0, 10}, {40, 0, 10}),
                    PickBlockEdge({0, 20, 10}, {40, 20, 10}), Click(140, 100)));
    EXPECT_EQ(Says(1), "20");
    EXPECT_EQ(LastHint(), 0) << "straight edges have no point";
    EXPECT_TRUE(LinesOf("ProGeomitemdataGet").empty());
}

TEST_F(SingleDim, TwoEdgesThatMeetGiveTheirAngle) {
    Play(TwoPicks(PickBlockEdge({0, 0, 10}, {40, 0, 10}), PickBlockEdge({0, 0, 10}, {0, 20, 10}),
                  Click(110, 105)));
    EXPECT_EQ(Says(1), "90°");
    EXPECT_EQ(DimensionOf(1).kind, DimensionKind::Angle);
}

TEST_F(SingleDim, AnEdgeAndACornerGiveTheirDistance) {
    Play(TwoPicks(PickBlockEdge({0, 0, 10}, {40, 0, 10}), PickCorner({40, 20, 10}),
                  Click(140, 100)));
    EXPECT_EQ(Says(1), "20");
}

// Seen from the side both rims are lines, which have no centre: the first attempt is refused.
TEST_F(SingleDim, RimsSeenOnEdgeAreMeasuredAtTheSecondAttempt) {
    Record(TwoPicks(PickRim(3, {0, 0, 0}, 20), PickRim(3, {0, 0, 60}, 10), Click(300, 160)));
    EXPECT_EQ(Says(1), "60");
    const Names calls = LinesOf("ProDrawingDimCreate");
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_NE(calls[0].find("[sense 1 value 3 angle [0, 0, 0] hint 2, sense 1 value 3 "),
              std::string::npos)
        << calls[0];
    EXPECT_NE(calls[1].find("[sense 0 value 3 angle [0, 0, 0] hint 2, sense 0 value 3 "),
              std::string::npos)
        << calls[1];
    EXPECT_EQ(LinesOf("ProAnnotationShow").size(), 1u);
    EXPECT_EQ(LinesOf("ProMousePickGet").size(), 1u);
}

TEST_F(SingleDim, ARoundEdgeWithoutReadableGeometryCountsAsAWhole) {
    Fail("ProGeomitemdataGet");
    Record(TwoPicks(PickRim(3, {0, 0, 0}, 20), PickRim(3, {0, 0, 60}, 10), Click(300, 160)));
    const Names calls = LinesOf("ProDrawingDimCreate");
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_NE(calls[0].find("[sense 0 value 0 angle [0, 0, 0] hint 2, sense 1 value 3 "),
              std::string::npos)
        << calls[0];
}

TEST_F(SingleDim, TwoSilhouettesArePointsOfTheClickAndGiveTheDiameter) {
    Record(TwoPicks("@ pick edge 3/silhouette#111\n", "@ pick edge 3/silhouette#112\n",
                    Click(230, 100)));
    EXPECT_EQ(Says(1), "40");
    EXPECT_EQ(LinesOf("ProSelectionPoint3dGet").size(), 2u) << "they are no items of a model";
}

TEST_F(SingleDim, AxesAndCoordinateSystemsHaveNoPoint) {
    Record(TwoPicks("@ pick edge 3/axis#11\n", PickRim(3, {0, 0, 0}, 20, " at 240 140"),
                    Click(230, 120)));
    EXPECT_EQ(LinesOf("ProSelectionPoint3dGet").size(), 1u);
}

TEST_F(SingleDim, TwoPicksMakeTheirCallsInThisOrder) {
    Record(TwoPicks(PickCorner({0, 0, 10}), PickCorner({40, 20, 10}), Click(100, 130)));
    const Names all = NamesOfCalls();
    const auto from = std::find(all.begin(), all.end(), "ProSelectionViewGet");
    const auto to = std::find(from, all.end(), "ProMdlCurrentGet");
    EXPECT_EQ(
        Names(from, to),
        (Names{"ProSelectionViewGet", "ProDrawingViewTransformGet", "ProSelectionModelitemGet",
               "ProSelectionModelitemGet", "ProSelectionModelitemGet", "ProSelectionPoint3dGet",
               "ProPntTrfEval", "ProSelectionModelitemGet", "ProSelectionPoint3dGet",
               "ProPntTrfEval", "ProMousePickGet", "ProDrawingDimCreate", "ProAnnotationShow",
               "ProSelbufferClear", "ProSelectionAlloc", "ProSelbufferSelectionAdd",
               "ProMacroLoad"}));
    EXPECT_NE(LinesOf("ProDrawingViewTransformGet")[0].find("toSheet=1"), std::string::npos);
}

TEST_F(SingleDim, TheNewDimensionIsAloneInTheBufferAndItsMacroIsQueued) {
    Record(TwoPicks(PickCorner({0, 0, 10}), PickCorner({40, 20, 10}), Click(100, 130)));
    ASSERT_EQ(Buffer().size(), 1u);
    EXPECT_EQ(Buffer()[0].item.type, PRO_DIMENSION);
    EXPECT_EQ(Buffer()[0].item.id, 1);
    ASSERT_EQ(LinesOf("ProMacroLoad").size(), 1u);
    EXPECT_NE(LinesOf("ProMacroLoad")[0].find(
                  "\"~ Command `ProCmdPmaOptDimOrient`  `ang_inside` ~ Command `VxDim`;\""),
              std::string::npos)
        << LinesOf("ProMacroLoad")[0];
}

TEST_F(SingleDim, BufferAndMacroFollowTwoFailedCreationsToo) {
    Fail("ProDrawingDimCreate", {.n = 1, .forGood = true});
    Record(TwoPicks(PickCorner({0, 0, 10}), PickCorner({40, 20, 10}), Click(100, 130)));
    EXPECT_EQ(LinesOf("ProDrawingDimCreate").size(), 2u);
    EXPECT_TRUE(LinesOf("ProAnnotationShow").empty());
    EXPECT_EQ(LinesOf("ProSelbufferClear").size(), 1u);
    EXPECT_EQ(LinesOf("ProSelectionAlloc").size(), 1u);
    EXPECT_EQ(LinesOf("ProSelbufferSelectionAdd").size(), 1u);
    EXPECT_EQ(LinesOf("ProMacroLoad").size(), 1u);
    // The place of the first pick was meant for the dimension, and still holds the pick.
    ASSERT_EQ(Buffer().size(), 1u);
    EXPECT_EQ(PickCorner({0, 0, 10}), fmt::format("@ pick edge 1/start#{}\n", Buffer()[0].item.id));
}

// --- Passes ---

TEST_F(SingleDim, EachPassHasFreshArraysAndLeavesThem) {
    Record(kCommand + PickRim(3, {0, 0, 0}, 20) + PickRim(3, {0, 0, 60}, 10) + Click(300, 160) +
           PickCorner({0, 0, 10}) + PickCorner({40, 20, 10}) + Click(100, 110.005) + kEnd);
    // The second pass does not see the hint of the first one.
    EXPECT_EQ(LastHint(), 0);
    EXPECT_TRUE(LinesOf("ProArrayFree").empty());
    EXPECT_EQ(LinesOf("ProArrayAlloc").size(), 6u);
}

TEST_F(SingleDim, TheElementsOfTheArraysHaveTheirSizes) {
    Record(kCommand + kEnd);
    const Names calls = LinesOf("ProArrayAlloc");
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_NE(calls[0].find("objects=2, objectSize=8, step=1"), std::string::npos) << calls[0];
    EXPECT_NE(calls[1].find("objects=2, objectSize=24, step=1"), std::string::npos) << calls[1];
}

TEST_F(SingleDim, ManyPassesRunAsALoop) {
    std::string lines = kCommand;
    for (int i = 0; i < 200; ++i) {
        lines += PickBlockEdge({0, 0, 10}, {40, 0, 10}) + kNoSecond + Click(100, 75);
    }
    Play(lines + kEnd);
    EXPECT_EQ(AnnotationsOf(*drawing_).dimensions().size(), 200u);
}

// --- By points on the sheet ---

TEST_F(SingleDim, AnEdgeIsPickedByAPointOfTheSheet) {
    Play(kCommand + "@ pick at 100 89\n" + kNoSecond + Click(100, 75) + kEnd);
    EXPECT_EQ(Says(1), "40");
    Play(kCommand + "@ pick at 80.5 90.5\n@ pick at 120.5 110.2\n" + Click(100, 130) + kEnd);
    EXPECT_EQ(Says(2), "40") << "corners come before the edges that end there";
}

TEST_F(SingleDim, IsGreyOutsideDrawings) {
    Play("@ expect available VxSingleDim\n");
    Open(*block_);
    Play("@ expect greyed VxSingleDim\n");
}

}  // namespace
