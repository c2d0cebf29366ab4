// Dimensions as the simulated host holds them: what it refuses, what it measures when the model
// changes, what its files keep, what sheets show.
#include <fmt/format.h>

#include <cmath>

#include "simhost/model/dimension_measure.h"
#include "simhost/model/dimension_text.h"
#include "simhost/model/edge_handles.h"
#include "simhost/model/model_file.h"
#include "simhost/picture/dxf.h"
#include "simhost/picture/sheet.h"
#include "simhost/picture/sheet_dimensions.h"
#include "simhost/trail/interpreter.h"
#include "tests/drawing/dimension_bench.h"

namespace {

using namespace simhost;

class Dimensions : public workbench::DimensionBench {
protected:
    // A dimension of these attachments, as the door makes it; its status.
    ProError Make(const std::vector<Attachment>& to, int hint = 0, int view = 1) {
        ProError status = PRO_TK_NO_ERROR;
        const DrawingView& shown = *DrawingOf(*drawing_).FindView(view);
        const auto kind = KindOf(shown, to, hint, &status);
        if (!kind) return status;
        Dimension made;
        made.view = view;
        made.kind = *kind;
        made.to = to;
        made.at = {5, 40, 0};
        made.shown = true;
        Remeasure(*drawing_, &AnnotationsOf(*drawing_).Add(made));
        return PRO_TK_NO_ERROR;
    }
    Attachment Edge(Vec3 from, Vec3 to) { return {{{}, PRO_EDGE, EdgeOf(*block_, from, to)}}; }
    Attachment Corner(Vec3 from, Vec3 to, int sense) {
        Attachment corner = Edge(from, to);
        corner.senseType = 1;
        corner.sense = sense;
        return corner;
    }
    Attachment Rim(Vec3 middle, double radius, int senseType = 0, int sense = 0) {
        return {{{}, PRO_EDGE, RimOf(*shaft_, middle, radius)}, senseType, sense};
    }
    Attachment Item(ProType type, int id) { return {{{}, type, id}}; }
    DimensionKind KindMade() { return AnnotationsOf(*drawing_).dimensions().rbegin()->second.kind; }
    std::string SaysLast() { return Says(AnnotationsOf(*drawing_).dimensions().rbegin()->first); }
    std::string FileText() { return ModelText(*drawing_); }
};

const Vec3 kA{0, 0, 10}, kB{40, 0, 10}, kC{40, 20, 10}, kD{0, 20, 10}, kBelowA{0, 0, 0};

// --- What gives a dimension, and what is refused ---

TEST_F(Dimensions, OneAttachmentGivesALengthARadiusOrADiameter) {
    EXPECT_EQ(Make({Edge(kA, kB)}), PRO_TK_NO_ERROR);
    EXPECT_EQ(SaysLast(), "40");
    for (const int hint : {0, 1, 2}) {
        EXPECT_EQ(Make({Rim({0, 0, 60}, 10)}, hint, 2), PRO_TK_NO_ERROR);
        EXPECT_EQ(KindMade(), DimensionKind::Radius);
    }
    EXPECT_EQ(Make({Rim({0, 0, 60}, 10)}, 3, 2), PRO_TK_NO_ERROR);
    EXPECT_EQ(KindMade(), DimensionKind::Diameter);
    EXPECT_EQ(SaysLast(), "20");
}

TEST_F(Dimensions, WhatGivesNoDimensionIsRefused) {
    const ProError none = PRO_TK_GENERAL_ERROR, bad = PRO_TK_BAD_INPUTS;
    EXPECT_EQ(Make({}), bad);
    EXPECT_EQ(Make({Edge(kA, kB), Edge(kA, kB), Edge(kC, kD)}), bad);
    EXPECT_EQ(Make({Edge(kA, kB)}, 4), bad);
    EXPECT_EQ(Make({Edge(kA, kB)}, -1), bad);
    EXPECT_EQ(Make({Item(PRO_EDGE, 99999)}), bad) << "no such edge";
    EXPECT_EQ(Make({Item(kAxis, 99999)}), bad);
    EXPECT_EQ(Make({Item(PRO_CSYS, 99999)}), bad);
    EXPECT_EQ(Make({Edge(kA, kBelowA)}), none) << "seen along itself it is a point";
    EXPECT_EQ(Make({Corner(kA, kB, 1)}), none) << "a point alone";
    EXPECT_EQ(Make({Edge(kA, kB), Edge(kA, kB)}), none) << "the same item twice";
    EXPECT_EQ(Make({Corner(kA, kB, 1), Corner(kA, kBelowA, 1)}, 3), none)
        << "two points behind one another";
    EXPECT_EQ(Make({Corner(kA, kB, 1), Corner(kA, kB, 2)}, 1), none) << "no distance upwards";
    EXPECT_EQ(Make({Corner(kA, kB, 3)}), bad) << "a line has no centre";
    EXPECT_EQ(Make({Rim({0, 0, 60}, 10, 1, 1)}, 0, 2), bad) << "a circle has no ends";
    EXPECT_EQ(Make({Rim({0, 0, 60}, 10, 2, 3)}, 0, 2), bad) << "an unknown sense";
    EXPECT_EQ(Make({Rim({0, 0, 0}, 20, 1, 3), Rim({0, 0, 60}, 10, 1, 3)}, 2, 3), none)
        << "on edge they have no centres";
    EXPECT_EQ(Make({Rim({0, 0, 0}, 20, 1, 3), Rim({0, 0, 60}, 10, 1, 3)}, 3, 2), none)
        << "their centres lie behind one another";
    EXPECT_TRUE(AnnotationsOf(*drawing_).dimensions().empty());
}

TEST_F(Dimensions, TheEndsOfOneEdgeAreTwoPoints) {
    EXPECT_EQ(Make({Corner(kA, kB, 1), Corner(kA, kB, 2)}, 2), PRO_TK_NO_ERROR);
    EXPECT_EQ(KindMade(), DimensionKind::Horizontal);
    EXPECT_EQ(SaysLast(), "40");
}

TEST_F(Dimensions, AnAxisIsALineOrWhereItIsSeenAlongAPoint) {
    EXPECT_EQ(Make({Item(kAxis, 11), Item(kSilhouette, 111)}, 0, 3), PRO_TK_NO_ERROR);
    EXPECT_EQ(SaysLast(), "20") << "the radius of the thicker part";
    EXPECT_EQ(Make({Item(kAxis, 11)}, 0, 2), PRO_TK_GENERAL_ERROR);
    EXPECT_EQ(Make({Item(kSilhouette, 111)}, 0, 2), PRO_TK_BAD_INPUTS)
        << "nothing of it is seen from the end";
    EXPECT_EQ(Make({Item(kSilhouette, 113)}, 0, 3), PRO_TK_BAD_INPUTS) << "there are two sides";
}

TEST_F(Dimensions, AnAngleIsThatOfTheSectorInWhichTheTextLies) {
    Solid& solid = block_->partData.solids[0];
    solid.shape = Shape::Prism;
    solid.outline = {{0, 0}, {40, 0}, {40, 40}};
    solid.height = 10;
    Dimension made;
    made.view = 1;
    made.kind = DimensionKind::Angle;
    made.to = {Edge({0, 0, 10}, {40, 0, 10}), Edge({0, 0, 10}, {40, 40, 10})};
    // The middle of the block when the view was made, 20 10, is at 100 100 on the sheet.
    made.at = {5, 0, 0};
    EXPECT_NEAR(Measure(*drawing_, made)->value, 45, 1e-9);
    made.at = {-40, 20, 0};
    EXPECT_NEAR(Measure(*drawing_, made)->value, 135, 1e-9);
    made.at = {-40, -20, 0};
    EXPECT_NEAR(Measure(*drawing_, made)->value, 45, 1e-9);
}

TEST_F(Dimensions, AtTheDoorAttachmentsMustBePicksOfOneViewOfThisDrawing) {
    const auto create = [&](const Selection& one, const Selection& other) {
        Selections& selections = host().session.selections;
        ProArray picks = nullptr, senses = nullptr;
        ProArrayAlloc(2, sizeof(ProSelection), 1, &picks);
        ProArrayAlloc(2, sizeof(ProDimSense), 1, &senses);
        auto* slots = static_cast<ProSelection*>(picks);
        slots[0] = selections.Make(one);
        slots[1] = selections.Make(other);
        Pro3dPnt place = {100, 70, 0};
        ProDimension made = {};
        const ProError status =
            ProDrawingDimCreate(static_cast<ProDrawing>(drawing_->handle), slots,
                                static_cast<ProDimSense*>(senses), place, PRO_B_FALSE, &made);
        ProArrayFree(&picks);
        ProArrayFree(&senses);
        return status;
    };
    const auto pick = [&](int view, const Attachment& what) {
        return SelectionOf(*DrawingOf(*drawing_).FindView(view), what.way, {});
    };
    const Selection low = pick(1, Edge(kA, kB)), high = pick(1, Edge(kD, kC));
    EXPECT_EQ(create(low, high), PRO_TK_NO_ERROR);
    EXPECT_EQ(create(low, pick(2, Rim({0, 0, 60}, 10))), PRO_TK_BAD_INPUTS) << "of two views";
    Selection nowhere = high;
    nowhere.view = nullptr;
    EXPECT_EQ(create(low, nowhere), PRO_TK_BAD_INPUTS) << "of no view";
    Model& other = workbench::MakeModels("other.drw: A3");
    DrawingOf(other).AddGeneral(*block_, 1, {100, 100, 0}, 1, Placement());
    Selection elsewhere = high;
    elsewhere.view = DrawingOf(other).FindView(1)->handle;
    EXPECT_EQ(create(low, elsewhere), PRO_TK_BAD_INPUTS) << "of another drawing";
}

TEST_F(Dimensions, ItIsShownInItsOwnViewOnly) {
    Dimension& length = Length();
    length.shown = false;
    ProDimension item = {PRO_DIMENSION, 1, drawing_->handle};
    const auto view = [&](int id) { return DrawingOf(*drawing_).FindView(id)->handle; };
    EXPECT_EQ(ProAnnotationShow(&item, nullptr, view(2)), PRO_TK_BAD_CONTEXT);
    EXPECT_EQ(ProAnnotationShow(&item, nullptr, nullptr), PRO_TK_BAD_INPUTS);
    EXPECT_FALSE(length.shown);
    EXPECT_EQ(ProAnnotationShow(&item, nullptr, view(1)), PRO_TK_NO_ERROR);
    EXPECT_TRUE(length.shown);
}

TEST_F(Dimensions, CallsRefuseWhatIsNoDimension) {
    Length();
    AnnotationsOf(*drawing_).Add(SheetNote{0, 1, {}, {WIDE("A")}});
    for (ProDimension item : {ProDimension{}, ProDimension{PRO_DIMENSION, 7, drawing_->handle},
                              ProDimension{PRO_DIMENSION, 2, drawing_->handle},
                              ProDimension{ProType(32), 2, drawing_->handle},
                              ProDimension{PRO_DIMENSION, 1, block_->handle}}) {
        EXPECT_EQ(ProDimensionToltypeSet(&item, PRO_TOL_LIMITS), PRO_TK_BAD_INPUTS);
        EXPECT_EQ(ProDimensionToleranceSet(&item, 1, 1), PRO_TK_BAD_INPUTS);
    }
    ProDimension item = {PRO_DIMENSION, 1, drawing_->handle};
    EXPECT_EQ(ProDimensionToltypeSet(&item, ProToleranceType(3)), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDimensionToleranceSet(&item, std::nan(""), 0), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(ProDimensionTollabelSet(&item, ProToleranceTable(1), nullptr, 0), PRO_TK_E_NOT_FOUND);
}

// --- The model changes ---

TEST_F(Dimensions, TheValueIsThatOfTheModelAsItIsNow) {
    Length();
    Play("@ expect dimension 1 40\n");
    block_->partData.solids[0].size.x = 55.5;
    Play("@ expect dimension 1 55.5\n");
}

TEST_F(Dimensions, InAnInchModelItIsInInches) {
    Length();
    Model& inch = *block_;
    const UnitSystem* system = nullptr;
    for (const UnitSystem& each : inch.units.systems) {
        if (std::fabs(each.LengthInMm() - 25.4) < 1e-9) system = &each;
    }
    ASSERT_TRUE(system);
    SetPrincipalSystem(inch, *system, Conversion::SameDimensions, false);
    Play("@ expect dimension 1 40\n");
}

TEST_F(Dimensions, WithoutWhatItMeasuredItKeepsItsLastValueAndIsMarked) {
    Length();
    block_->partData.solids.clear();
    EXPECT_FALSE(Measure(*drawing_, DimensionOf(1)));
    Play("@ expect dimension 1 40\n");
    const auto drawn = AnnotationsOnSheet(*drawing_, 1);
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_TRUE(drawn[0].lost);
    EXPECT_TRUE(drawn[0].lines.empty());
    EXPECT_EQ(drawn[0].texts.size(), 1u);
}

TEST_F(Dimensions, ItMovesWithItsView) {
    Length();
    DrawingView& view = *DrawingOf(*drawing_).FindView(1);
    const Vec3 before = PlaceOf(view, DimensionOf(1));
    DrawingOf(*drawing_).Move(view, {7, -3, 0});
    EXPECT_EQ(PlaceOf(view, DimensionOf(1)), before + (Vec3{7, -3, 0}));
}

TEST_F(Dimensions, AnErasedOneIsGoneAndItsNumberIsNotGivenAgain) {
    Length();
    Length();
    Play("@ erase dimension 2\n@ expect dimension 2 none\n@ expect dimensions 1\n");
    Length();
    EXPECT_EQ(AnnotationsOf(*drawing_).FindDimension(3)->id, 3);
}

TEST_F(Dimensions, ARegeneratedSheetMeasuresOnlyItsOwn) {
    Length();
    drawing_->drawingData.sheets.emplace_back(WIDE("A3"));
    block_->partData.solids[0].size.x = 50;
    ProDwgSheetRegenerate(static_cast<ProDrawing>(drawing_->handle), 2);
    EXPECT_EQ(DimensionOf(1).value, 40);
    ProDwgSheetRegenerate(static_cast<ProDrawing>(drawing_->handle), 1);
    EXPECT_EQ(DimensionOf(1).value, 50);
    EXPECT_EQ(ProDwgSheetRegenerate(static_cast<ProDrawing>(drawing_->handle), 3),
              PRO_TK_BAD_INPUTS);
}

// --- Files ---

TEST_F(Dimensions, AFileKeepsAllOfThem) {
    Dimension& length = Length();
    length.text = {WideText{1, 'n', 2} + WideText(WIDE("@D")), WIDE("通孔")};
    length.tolerance = PRO_TOL_PLUS_MINUS_SYM;
    length.upper = length.lower = 0.3;
    Make({Rim({0, 0, 60}, 10, 1, 3), Item(kEdgeStart, RimOf(*shaft_, {0, 0, 0}, 20))}, 2, 2);
    length.shown = false;
    AnnotationsOf(*drawing_).Add(SheetNote{0, 1, {10, 20, 0}, {WIDE("未注倒角"), WIDE("C1")}});
    const std::string text = FileText();
    Model copy;
    copy.session = &host().session;
    ReadModelText(text, "sheet.drw.1", &copy);
    EXPECT_EQ(ModelText(copy), text);
    const Dimension* read = AnnotationsOf(copy).FindDimension(1);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->text, length.text);
    EXPECT_EQ(read->to, length.to);
    EXPECT_EQ(read->value, 40);
    EXPECT_FALSE(read->shown);
    EXPECT_EQ(AnnotationsOf(copy).FindDimension(2)->to[0].sense, 3);
    EXPECT_EQ(AnnotationsOf(copy).FindNote(3)->text.size(), 2u);
}

TEST_F(Dimensions, AFileThatSaysNonsenseIsRefusedWithItsPlace) {
    Length();
    const std::string text = FileText();
    const auto read = [&](const std::string& what, const std::string& by) {
        std::string changed = text;
        const std::size_t at = changed.find(what);
        EXPECT_NE(at, std::string::npos) << what;
        changed.replace(at, what.size(), by);
        Model copy;
        copy.session = &host().session;
        try {
            ReadModelText(changed, "sheet.drw.1", &copy);
        } catch (const ModelFileError& error) {
            return std::string(error.what());
        }
        return std::string("read");
    };
    EXPECT_EQ(read("slanted", "slanted"), "read");
    const std::string edge = fmt::format("edge#{}", DimensionOf(1).to[0].way.id);
    for (const auto& [what, by] : std::vector<std::pair<std::string, std::string>>{
             {"\"slanted\"", "\"long\""},
             {"[\"" + edge + "\"]", "[]"},
             {"[\"" + edge + "\"]", "[\"a\"]"},
             {edge, "wheel#3"},
             {edge, "edge#3 point 4"},
             {edge, "edge#3 point"},
             {"[\"" + edge + "\"]", "[\"edge#1\", \"edge#2\", \"edge#3\"]"},
             {"view = 1\nkind", "view = 9\nkind"},
             {"shown = true", "shown = true\ntolerance = \"wide\""},
         }) {
        EXPECT_EQ(read(what, by).substr(0, 12), "sheet.drw.1:") << by;
    }
    EXPECT_EQ(read("[[dimension]]", "[[note]]\nid = 1\nsheet = 1\nat = [0, 0]\n[[dimension]]")
                  .substr(0, 12),
              "sheet.drw.1:")
        << "an id for two";
}

TEST_F(Dimensions, ASavedDrawingComesBackWithThem) {
    Length();
    Play(
        "@ save block.prt\n@ save shaft.prt\n@ save\n@ erase sheet.drw\n@ open sheet.drw\n"
        "@ expect dimension 1 40\n");
}

// --- Picks ---

TEST_F(Dimensions, WhatTheFilterLeavesOutIsAskedForAgain) {
    Length();
    PlayDuring(
        [&] {
            ProSelection* picked = nullptr;
            int count = 0;
            char filter[] = "edge_end";
            EXPECT_EQ(ProSelect(filter, 1, nullptr, nullptr, nullptr, nullptr, &picked, &count),
                      PRO_TK_NO_ERROR);
            ProModelitem item = {};
            ProSelectionModelitemGet(picked[0], &item);
            EXPECT_EQ(int(item.type), 71);
        },
        "@ pick at 80 90\n");
}

TEST_F(Dimensions, WordsSayWhatIsWrong) {
    const auto fails = [&](const std::string& lines) {
        std::string told;
        for (const std::string& failure : RunScript(lines)) told += failure + "\n";
        return told;
    };
    const std::string start = "~ Command `VxSingleDim`\n", end = "@ quit\n";
    EXPECT_NE(fails("@ pick edge 1/2\n").find("no command waits for a pick"), std::string::npos);
    EXPECT_NE(fails("@ click 1 2\n").find("no command waits for a click"), std::string::npos);
    EXPECT_NE(fails(start + "@ pick edge 17\n" + end).find("is no VIEW/ID"), std::string::npos);
    EXPECT_NE(fails(start + "@ pick edge 9/1\n" + end).find("has no view 9"), std::string::npos);
    EXPECT_NE(fails(start + "@ pick edge 1/wheel#1\n" + end).find("is no VIEW/ID"),
              std::string::npos);
    EXPECT_NE(fails(start + "@ pick edge 1/1\n" + end).find("view 1 shows no edge#1"),
              std::string::npos);
    EXPECT_NE(fails(start + "@ pick at 1 1\n" + end).find("near 1 1"), std::string::npos);
    EXPECT_NE(fails(start + "@ pick at 1\n" + end).find("X Y"), std::string::npos);
    Length();
    EXPECT_NE(fails(start + "@ pick dimension#1\n" + end).find("dimension 1 cannot be picked now"),
              std::string::npos);
    EXPECT_NE(fails("@ select dimension#5\n").find("has no dimension 5"), std::string::npos);
    EXPECT_NE(fails("@ expect dimension 1 41\n").find("dimension 1 says 40"), std::string::npos);
    EXPECT_NE(fails("@ erase dimension 5\n").find("no dimension or note 5"), std::string::npos);
    EXPECT_NE(fails("@ show edges 9\n").find("has no view 9"), std::string::npos);
    Play("@ show edges 3\n@ show dimensions\n@ add note 10 20 A\n");
}

TEST_F(Dimensions, AClickCanHaveAnotherButton) {
    ProMouseButton pressed = {};
    Pro3dPnt place = {};
    PlayDuring([&] { ProMousePickGet(PRO_ANY_BUTTON, &pressed, place); }, "@ click 12 34 right\n");
    EXPECT_EQ(pressed, PRO_RIGHT_BUTTON);
    EXPECT_EQ(place[0], 12);
    EXPECT_EQ(place[1], 34);
    PlayDuring([&] { ProMousePickGet(PRO_MIDDLE_BUTTON, &pressed, place); },
               "@ click 1 2\n@ click 3 4 middle\n");
    EXPECT_EQ(pressed, PRO_MIDDLE_BUTTON);
    EXPECT_EQ(place[0], 3);
}

TEST_F(Dimensions, APickInAComponentKnowsItsPointThere) {
    Model& top = Assembly("TOP");
    Use(top, *block_).placement.origin = {100, 0, 0};
    DrawingOf(*drawing_).AddGeneral(top, 1, {200, 200, 0}, 1, Placement());
    const DrawingView& view = *DrawingOf(*drawing_).FindView(4);
    const int component = top.features()[0].id;
    const ItemWay way{{component}, kEdgeEnd, EdgeOf(*block_, kA, kB)};
    const auto seen = SeenIn(view, way);
    ASSERT_TRUE(seen);
    const Selection picked = SelectionOf(view, way, seen->from);
    EXPECT_EQ(picked.item.owner, block_->handle);
    ASSERT_TRUE(picked.point);
    const bool isEnd = *picked.point == kA || *picked.point == kB;
    EXPECT_TRUE(isEnd) << picked.point->x << ' ' << picked.point->y << ' ' << picked.point->z;
    Play(
        fmt::format("~ Command `VxSingleDim`\n@ pick edge 4/{}/edge#{}\n@ pick nothing\n"
                    "@ click 200 170\n@ quit\n@ expect dimension 1 40\n",
                    component, way.id));
}

TEST_F(Dimensions, AnEdgesHandleEndsWithItsModel) {
    const int id = EdgeOf(*block_, kA, kB);
    const ProEdge edge = EdgeHandle(*block_, id);
    EXPECT_EQ(edge, EdgeHandle(*block_, id)) << "always the same";
    EXPECT_EQ(DescribeEdge(host().session, edge), fmt::format("edge {} of block.prt", id));
    block_->partData.solids.clear();
    EXPECT_EQ(DescribeEdge(host().session, edge), "dangling edge");
    ProEnttype type = {};
    EXPECT_EQ(ProEdgeTypeGet(edge, &type), PRO_TK_BAD_INPUTS);
    EXPECT_EQ(Complaints().size(), 1u);
    EXPECT_EQ(ProEdgeTypeGet(nullptr, &type), PRO_TK_BAD_INPUTS);
}

// --- Texts ---

TEST_F(Dimensions, ATextSaysItsValueItsSignsAndItsTolerance) {
    Dimension dimension;
    const auto says = [&](std::vector<WideText> lines, double value) {
        dimension.text = std::move(lines);
        return PlainText(dimension, value);
    };
    EXPECT_EQ(says({WIDE("2-@D深@D")}, 12.345), "2-12.35深@D") << "the first @D alone";
    EXPECT_EQ(says({WIDE("M@D"), WIDE("6H")}, 8), "M8 / 6H");
    EXPECT_EQ(says({WideText{1, 'v', 2, 1, 'w', 2, 1, 'x', 2, 1, 'o', 2, 1, 'q', 2}}, 1), "⌴⌵↧□q");
    EXPECT_EQ(says({WideText{1, 'n'}}, 1), std::string("\x01n")) << "no whole symbol";
    EXPECT_EQ(says({}, 7), "7");
    dimension.tolerance = PRO_TOL_PLUS_MINUS;
    dimension.upper = 0.125;
    dimension.lower = -0.02;
    EXPECT_EQ(says({WIDE("@D")}, 10), "10 +0.125/+0.02");
    EXPECT_EQ(says({WIDE("R")}, 10), "R") << "without a value no tolerance";
    dimension.tolerance = PRO_TOL_LIMITS;
    dimension.lower = 0.02;
    EXPECT_EQ(says({WIDE("(@D)")}, 10), "( 10.125/9.98 )");
    dimension.tolerance = PRO_TOL_PLUS_MINUS_SYM;
    EXPECT_EQ(says({WIDE("@D")}, 10), "10±0.125");
}

// --- Sheets ---

TEST_F(Dimensions, ALengthIsDrawnBetweenExtensionLines) {
    Length();
    const auto drawn = AnnotationsOnSheet(*drawing_, 1);
    ASSERT_EQ(drawn.size(), 1u);
    // From the edge at y 90 past the line at 80 by 2; the line from 80 to 120.
    const auto has = [&](Vec3 from, Vec3 to) {
        for (const auto& [a, b] : drawn[0].lines) {
            const Vec3 d = a - from, e = b - to;
            if (Dot(d, d) + Dot(e, e) < 1e-12) return true;
        }
        return false;
    };
    EXPECT_TRUE(has({80, 90, 0}, {80, 78, 0}));
    EXPECT_TRUE(has({120, 90, 0}, {120, 78, 0}));
    EXPECT_TRUE(has({80, 80, 0}, {120, 80, 0}));
    ASSERT_EQ(drawn[0].arrows.size(), 2u);
    EXPECT_EQ(drawn[0].arrows[0].tip.x + drawn[0].arrows[1].tip.x, 200);
    EXPECT_EQ(drawn[0].arrows[0].way.x * drawn[0].arrows[1].way.x, -1) << "away from each other";
    ASSERT_EQ(drawn[0].texts.size(), 1u);
    EXPECT_EQ(drawn[0].texts[0].text, "40");
    EXPECT_GT(drawn[0].texts[0].at.y, 80) << "above its line";
    EXPECT_EQ(drawn[0].texts[0].turn, 0);
}

TEST_F(Dimensions, AShortLengthHasItsArrowsOutside) {
    Length();
    block_->partData.solids[0].size.x = 6;
    const auto drawn = AnnotationsOnSheet(*drawing_, 1);
    const auto& arrows = drawn[0].arrows;
    ASSERT_EQ(arrows.size(), 2u);
    const bool ahead = arrows[0].tip.x < arrows[1].tip.x;
    EXPECT_EQ((ahead ? arrows[0] : arrows[1]).way.x, 1) << "towards each other";
}

TEST_F(Dimensions, AnUprightLengthReadsFromTheRight) {
    Make({Edge(kA, kD)});
    const auto drawn = AnnotationsOnSheet(*drawing_, 1);
    EXPECT_NEAR(drawn[0].texts[0].turn, 90, 1e-9);
}

TEST_F(Dimensions, SheetsAndExchangeTextShowThem) {
    Length().text = {WideText{1, 'n', 2} + WideText(WIDE("@D"))};
    DimensionOf(1).tolerance = PRO_TOL_PLUS_MINUS_SYM;
    DimensionOf(1).upper = 0.5;
    AnnotationsOf(*drawing_).Add(SheetNote{0, 1, {10, 20, 0}, {WIDE("未注倒角")}});
    const std::string svg = SheetSvg(*drawing_, 1, 800);
    EXPECT_NE(svg.find("id=\"dimension1\""), std::string::npos);
    EXPECT_NE(svg.find(">40±0.5<"), std::string::npos);
    EXPECT_NE(svg.find(">未注倒角<"), std::string::npos);
    const std::string dxf = SheetDxf(*drawing_, 1);
    EXPECT_NE(dxf.find("40%%p0.5"), std::string::npos);
    EXPECT_NE(dxf.find("SOLID\r\n  8\r\nDIMENSION\r\n"), std::string::npos);
    DimensionOf(1).shown = false;
    EXPECT_EQ(SheetSvg(*drawing_, 1, 800).find("id=\"dimension1\""), std::string::npos);
    EXPECT_EQ(SheetDxf(*drawing_, 1).find("SOLID"), std::string::npos);
}

}  // namespace
