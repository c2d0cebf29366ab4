// Datum planes, axes and points of parts in the views of drawings: what can be picked of them, what
// dimensions measure to them, and what is refused.
#include <fmt/format.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "simhost/model/datums.h"
#include "simhost/model/dimension_measure.h"
#include "simhost/model/model_file.h"
#include "simhost/model/picking.h"
#include "simhost/model/units.h"
#include "tests/drawing/single_dim_bench.h"

namespace {

using namespace simhost;

// On the sheet the block's lower left corner is at 80 90 in view 1, its x axis to the right.
class Datums : public workbench::SingleDim {
protected:
    // Their numbers as items are one more.
    static constexpr int kPlane = 100, kFacing = 102, kAxisFeature = 104, kPointFeature = 106;

    void SetUp() override {
        SingleDim::SetUp();
        // A plane at x 10, and one at z 4 whose face view 1 shows; an axis at y 5 along x; a
        // point.
        AddDatum(*block_, kPlane, kDatumPlaneFeature, PlacementFrom({10, 7, 3}, {0, 90, 0}));
        AddDatum(*block_, kFacing, kDatumPlaneFeature, PlacementFrom({0, 0, 4}, {}));
        AddDatum(*block_, kAxisFeature, kDatumAxisFeature, PlacementFrom({3, 5, 0}, {0, 90, 0}));
        AddDatum(*block_, kPointFeature, kDatumPointFeature, PlacementFrom({25, 16, 2}, {}));
    }
    static void AddDatum(Model& part, int id, int type, const Placement& placement) {
        Feature feature;
        feature.id = id;
        feature.type = type;
        feature.placement = placement;
        feature.placed = true;
        part.AddFeature(feature);
    }
    std::optional<SeenItem> See(ProType type, int id, int view = 1) {
        return SeenIn(*DrawingOf(*drawing_).FindView(view), {{}, type, id});
    }
    Vec3 OnSheet(Vec3 seen) { return OntoSheet(*DrawingOf(*drawing_).FindView(1), seen); }
    std::optional<DimensionKind> Kind(const std::vector<Attachment>& to, ProError* status,
                                      int hint = 0) {
        return KindOf(*DrawingOf(*drawing_).FindView(1), to, hint, status);
    }
    std::string LeftEdge() { return PickBlockEdge({0, 0, 10}, {0, 20, 10}); }
    std::string LowerEdge() { return PickBlockEdge({0, 0, 10}, {40, 0, 10}); }
};

void ExpectAt(Vec3 point, double x, double y) {
    EXPECT_NEAR(point.x, x, 1e-9);
    EXPECT_NEAR(point.y, y, 1e-9);
}

// --- What is seen ---

TEST_F(Datums, APlaneSeenOnEdgeIsALineAsLongAsThePart) {
    const auto seen = See(kDatumPlane, kPlane + 1);
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->kind, SeenItem::Kind::Line);
    const bool up = seen->from.y < seen->to.y;
    ExpectAt(OnSheet(up ? seen->from : seen->to), 90, 90);
    ExpectAt(OnSheet(up ? seen->to : seen->from), 90, 110);
    EXPECT_FALSE(See(kDatumPlane, kFacing + 1)) << "its face is seen";
}

TEST_F(Datums, AnAxisIsALineAndSeenFromItsEndAPoint) {
    const auto seen = See(kAxis, kAxisFeature + 1);
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->kind, SeenItem::Kind::Line);
    const bool ahead = seen->from.x < seen->to.x;
    ExpectAt(OnSheet(ahead ? seen->from : seen->to), 80, 95);
    ExpectAt(OnSheet(ahead ? seen->to : seen->from), 120, 95);
    AddDatum(*block_, 110, kDatumAxisFeature, PlacementFrom({30, 15, 0}, {}));
    const auto end = See(kAxis, 111);
    ASSERT_TRUE(end);
    EXPECT_EQ(end->kind, SeenItem::Kind::Point);
    ExpectAt(OnSheet(end->from), 110, 105);
}

TEST_F(Datums, APointIsWhereItIs) {
    const auto seen = See(kPoint, kPointFeature + 1);
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->kind, SeenItem::Kind::Point);
    ExpectAt(OnSheet(seen->from), 105, 106);
    EXPECT_FALSE(See(kPoint, kAxisFeature + 1)) << "that is an axis";
    EXPECT_FALSE(See(kPoint, 999));
}

TEST_F(Datums, WithoutMaterialALineGoesFiftyToBothSides) {
    block_->partData.solids.clear();
    const auto seen = See(kAxis, kAxisFeature + 1);
    ASSERT_TRUE(seen);
    EXPECT_NEAR(std::fabs(seen->to.x - seen->from.x), 100, 1e-9);
}

TEST_F(Datums, WhatHasNoPlaceOrIsSuppressedOrInvisibleIsNotSeen) {
    ASSERT_TRUE(See(kPoint, kPointFeature + 1));
    Feature& point = *block_->FindFeature(kPointFeature);
    point.placed = false;
    EXPECT_FALSE(See(kPoint, kPointFeature + 1));
    point.placed = true;
    point.visible = false;
    EXPECT_FALSE(See(kPoint, kPointFeature + 1));
    point.visible = true;
    point.status = PRO_FEAT_SUPPRESSED;
    EXPECT_FALSE(See(kPoint, kPointFeature + 1));
}

// --- Picks and dimensions by the command ---

TEST_F(Datums, APlaneIsMeasuredSquareToIt) {
    Record(TwoPicks("@ pick edge 1/datum#101\n", LeftEdge(), Click(85, 120)));
    EXPECT_EQ(Says(1), "10");
    EXPECT_NE(LinesOf("ProSelectionModelitemGet")[0].find("item 101 of type 5"), std::string::npos)
        << LinesOf("ProSelectionModelitemGet")[0];
}

TEST_F(Datums, APointIsMeasuredToAnEdgeAndToAPlane) {
    Play(TwoPicks("@ pick edge 1/point#107\n", LowerEdge(), Click(130, 100)));
    EXPECT_EQ(Says(1), "16");
    Play(TwoPicks("@ pick edge 1/point#107\n", "@ pick edge 1/datum#101\n", Click(95, 120)));
    EXPECT_EQ(Says(2), "15");
}

TEST_F(Datums, AnAxisIsMeasuredToAnEdgeAndMakesAnAngleWithAnother) {
    Play(TwoPicks("@ pick edge 1/axis#105\n", LowerEdge(), Click(70, 92)));
    EXPECT_EQ(Says(1), "5");
    Play(TwoPicks("@ pick edge 1/axis#105\n", "@ pick edge 1/datum#101\n", Click(100, 100)));
    EXPECT_EQ(DimensionOf(2).kind, DimensionKind::Angle);
    EXPECT_NEAR(DimensionOf(2).value, 90, 1e-9);
}

TEST_F(Datums, TheyCanBePickedByTheirPlaceOnTheSheet) {
    Play(kCommand + "@ pick at 105 106\n@ pick at 90 100\n" + Click(95, 120) + kEnd);
    EXPECT_EQ(Says(1), "15") << "the point and the plane";
}

TEST_F(Datums, FiltersTellThemApart) {
    const auto allows = [&](const char* filter) {
        const Picking picking(host().session, filter, 1, false);
        std::string allowed;
        for (const ProType type : {kDatumPlane, kAxis, kPoint, PRO_CSYS, PRO_EDGE, PRO_SURFACE}) {
            if (!picking.Allows(type)) continue;
            const char* word = ViewItemWord(type);
            allowed += word ? word : "surface";
            allowed += ' ';
        }
        return allowed;
    };
    EXPECT_EQ(allows("datum"), "datum ");
    EXPECT_EQ(allows("point"), "point ");
    EXPECT_EQ(allows("dtl_axis"), "axis ");
    EXPECT_EQ(allows("point,datum"), "datum point ");
    EXPECT_EQ(allows("surface"), "surface ");
}

TEST_F(Datums, AllThatCanBePickedAreListed) {
    const DrawingView& view = *DrawingOf(*drawing_).FindView(1);
    const auto ways = ItemsOfView(view, {kAxis, kDatumPlane, kPoint});
    std::vector<std::string> words;
    for (const ItemWay& way : ways) words.push_back(WordsOf(way));
    EXPECT_EQ(words, (std::vector<std::string>{"axis#105", "datum#101", "point#107"}));
    EXPECT_EQ(ParseWay("7/datum#101"), (ItemWay{{7}, kDatumPlane, 101}));
    EXPECT_EQ(ParseWay("point#107"), (ItemWay{{}, kPoint, 107}));
}

TEST_F(Datums, ThoseOfAComponentAreWhereItIs) {
    Model& top = Assembly("TOP");
    Use(top, *block_).placement = PlacementFrom({100, 0, 0}, {0, 0, 90});
    DrawingOf(*drawing_).AddGeneral(top, 1, {200, 200, 0}, 1, Placement());
    const int component = top.features()[0].id;
    // Turned to the left, the block's lower edge is the right one, and x runs upwards.
    const int edge = EdgeOf(*block_, {0, 0, 10}, {40, 0, 10});
    Play(TwoPicks(fmt::format("@ pick edge 4/{}/point#107\n", component),
                  fmt::format("@ pick edge 4/{}/edge#{}\n", component, edge), Click(200, 240)));
    EXPECT_EQ(Says(1), "16");
    const auto seen = SeenIn(*DrawingOf(*drawing_).FindView(4), {{component}, kPoint, 107});
    const auto plane = SeenIn(*DrawingOf(*drawing_).FindView(4), {{component}, kDatumPlane, 101});
    ASSERT_TRUE(seen && plane);
    EXPECT_NEAR(seen->from.y - plane->from.y, 15, 1e-9);
    EXPECT_NEAR(plane->from.y, plane->to.y, 1e-9) << "it lies level";
}

// --- What gives no dimension ---

TEST_F(Datums, ALineThatEndsNowhereGivesNoLengthAndHasNoEnds) {
    const Attachment plane{{{}, kDatumPlane, kPlane + 1}}, axis{{{}, kAxis, kAxisFeature + 1}};
    const Attachment point{{{}, kPoint, kPointFeature + 1}};
    for (const Attachment& alone : {plane, axis, point}) {
        ProError status = PRO_TK_NO_ERROR;
        EXPECT_FALSE(Kind({alone}, &status)) << WordsOf(alone.way);
        EXPECT_EQ(status, PRO_TK_GENERAL_ERROR);
    }
    for (Attachment end : {plane, axis}) {
        end.senseType = end.sense = 1;
        ProError status = PRO_TK_NO_ERROR;
        EXPECT_FALSE(Kind({end, point}, &status)) << WordsOf(end.way);
        EXPECT_EQ(status, PRO_TK_BAD_INPUTS);
    }
    ProError status = PRO_TK_NO_ERROR;
    EXPECT_FALSE(Kind({{{{}, kDatumPlane, kFacing + 1}}, point}, &status)) << "its face is seen";
    EXPECT_EQ(status, PRO_TK_BAD_INPUTS);
}

TEST_F(Datums, TheAxisOfARoundFaceGivesNoLengthEither) {
    ProError status = PRO_TK_NO_ERROR;
    const DrawingView& side = *DrawingOf(*drawing_).FindView(3);
    EXPECT_FALSE(KindOf(side, {{{{}, kAxis, 11}}}, 0, &status));
    EXPECT_EQ(status, PRO_TK_GENERAL_ERROR);
}

// --- The model changes; files ---

TEST_F(Datums, ADimensionFollowsItsDatum) {
    Play(TwoPicks("@ pick edge 1/datum#101\n", LeftEdge(), Click(85, 120)));
    block_->FindFeature(kPlane)->placement.origin.x = 12.5;
    Play("@ expect dimension 1 12.5\n");
    block_->RemoveFeature(kPlane);
    EXPECT_FALSE(Measure(*drawing_, DimensionOf(1)));
    Play("@ expect dimension 1 12.5\n");
}

TEST_F(Datums, InAnInchModelItIsInInches) {
    Play(TwoPicks("@ pick edge 1/point#107\n", LowerEdge(), Click(130, 100)));
    const UnitSystem* system = nullptr;
    for (const UnitSystem& each : block_->units.systems) {
        if (std::fabs(each.LengthInMm() - 25.4) < 1e-9) system = &each;
    }
    ASSERT_TRUE(system);
    SetPrincipalSystem(*block_, *system, Conversion::SameDimensions, false);
    Play("@ expect dimension 1 16\n");
}

TEST_F(Datums, SavedFilesBringThemBackWithTheirDimensions) {
    Play(TwoPicks("@ pick edge 1/datum#101\n", "@ pick edge 1/point#107\n", Click(95, 120)));
    EXPECT_EQ(Says(1), "15");
    Play(
        "@ save block.prt\n@ save shaft.prt\n@ save\n@ erase sheet.drw\n@ open sheet.drw\n"
        "@ expect dimension 1 15\n");
    const Model* again = host().session.FindByFile("sheet.drw");
    ASSERT_TRUE(again);
    const std::string text = ModelText(*again);
    EXPECT_NE(text.find("\"datum#101\""), std::string::npos) << text;
    EXPECT_NE(text.find("\"point#107\""), std::string::npos);
}

}  // namespace
