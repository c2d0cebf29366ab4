// The simulated host's drawings: projections, how views follow each other, files.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/drawing.h"
#include "simhost/model/model_file.h"
#include "simhost/model/projection.h"
#include "simhost/model/screen_view.h"

namespace {

using namespace simhost;

class DrawingTest : public ::testing::Test {
protected:
    void SetUp() override { RestartHost(); }
    void TearDown() override { EXPECT_TRUE(TheHost().complaints.empty()); }

    Model& BoxPart(const char* name, Vec3 size, Vec3 at = {}) {
        Model& part = TheHost().session.Create(Wide(name), PRO_MDL_PART);
        AddBox(part, 10, size, at);
        return part;
    }
    static void AddBox(Model& part, int id, Vec3 size, Vec3 at) {
        Solid box;
        box.id = id;
        box.shape = Shape::Box;
        box.size = size;
        box.at = at;
        part.partData.solids.push_back(box);
    }
    Model& NewDrawing() {
        Model& drawing = TheHost().session.Create(WIDE("SHEET"), PRO_MDL_DRAWING);
        drawing.drawingData.sheets = {WIDE("A3")};
        return drawing;
    }
};

using Line = std::tuple<long, long, long, long, bool>;

// The lines as whole numbers, each from its lower left end, sorted, each once.
std::vector<Line> Sorted(const std::vector<DrawnLine>& lines) {
    std::vector<Line> result;
    for (const DrawnLine& line : lines) {
        std::pair a{std::lround(line.x0), std::lround(line.y0)};
        std::pair b{std::lround(line.x1), std::lround(line.y1)};
        if (b < a) std::swap(a, b);
        result.emplace_back(a.first, a.second, b.first, b.second, line.hidden);
    }
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

// --- Projection ---

TEST_F(DrawingTest, ABoxSeenStraightShowsItsFourNearEdges) {
    const Model& box = BoxPart("BOX", {30, 20, 10});
    const std::vector<Line> expected = {
        {0, 0, 0, 20, false}, {0, 0, 30, 0, false}, {0, 20, 30, 20, false}, {30, 0, 30, 20, false}};
    EXPECT_EQ(Sorted(ProjectedLines(box, Placement(), /*withHidden=*/false)), expected);
}

TEST_F(DrawingTest, ABoxSeenFromACornerHidesThreeEdgesOfTwelve) {
    const Model& box = BoxPart("BOX", {30, 20, 10});
    Placement frame;  // turned by -45 and 35 degrees, as isometric views are
    frame = Turned(Turned(frame, 1, -45), 0, 35);
    const auto lines = ProjectedLines(box, frame, /*withHidden=*/true);
    const auto hidden = std::count_if(lines.begin(), lines.end(),
                                      [](const DrawnLine& line) { return line.hidden; });
    EXPECT_EQ(lines.size(), 12u);
    EXPECT_EQ(hidden, 3);
    EXPECT_EQ(ProjectedLines(box, frame, /*withHidden=*/false).size(), 9u);
}

TEST_F(DrawingTest, ABoxInFrontHidesThePiecesBehindIt) {
    // A bar from x = 0 to 100 and a post before it from x = 40 to 60, both seen against z.
    Model& part = BoxPart("BAR", {100, 10, 5});
    AddBox(part, 20, {20, 30, 5}, {40, -10, 20});
    const auto lines = Sorted(ProjectedLines(part, Placement(), /*withHidden=*/true));
    const auto has = [&](Line line) {
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    };
    EXPECT_TRUE(has({0, 0, 40, 0, false}));
    EXPECT_TRUE(has({40, 0, 60, 0, true}));
    EXPECT_TRUE(has({60, 0, 100, 0, false}));
    EXPECT_TRUE(has({40, -10, 40, 20, false}));
    EXPECT_FALSE(has({0, 0, 100, 0, false}));
    const auto shown = Sorted(ProjectedLines(part, Placement(), /*withHidden=*/false));
    EXPECT_TRUE(std::none_of(shown.begin(), shown.end(),
                             [](const Line& line) { return std::get<4>(line); }));
}

TEST_F(DrawingTest, ACylinderSeenFromItsSideShowsItsBordersOnly) {
    Model& part = TheHost().session.Create(WIDE("ROD"), PRO_MDL_PART);
    Solid rod;
    rod.id = 10;
    rod.shape = Shape::Cylinder;
    rod.diameter = 20;
    rod.length = 50;
    part.partData.solids.push_back(rod);
    // z of the rod to the right, x up.
    Placement frame;
    frame.axes = {Vec3{0, 1, 0}, Vec3{0, 0, 1}, Vec3{1, 0, 0}};
    for (const DrawnLine& line : ProjectedLines(part, frame, /*withHidden=*/false)) {
        const bool end = std::fabs(line.x0 - line.x1) < 1e-6;  // an end, seen on edge
        const bool border = std::fabs(std::fabs(line.y0) - 10) < 0.1;
        EXPECT_TRUE(end || border) << line.x0 << ' ' << line.y0 << ' ' << line.x1;
    }
    const Extents box = ExtentsIn(part, frame, Sight::Views);
    EXPECT_NEAR(box.low.x, 0, 1e-9);
    EXPECT_NEAR(box.high.x, 50, 1e-9);
    EXPECT_NEAR(box.high.y, 10, 1e-9);
}

TEST_F(DrawingTest, WhatIsSuppressedOrInvisibleIsNotDrawnAndWhatIsHiddenIs) {
    Model& part = BoxPart("A", {10, 10, 10});
    Model& top = TheHost().session.Create(WIDE("TOP"), PRO_MDL_ASSEMBLY);
    for (int i = 0; i < 5; ++i) {
        Feature feature;
        feature.type = PRO_FEAT_COMPONENT;
        feature.file = part.FileName();
        feature.model = &part;
        feature.placement.origin = {20.0 * i, 0, 0};
        top.AddFeature(feature);
    }
    top.MutableFeatures()[2].hidden = true;
    top.MutableFeatures()[3].status = PRO_FEAT_SUPPRESSED;
    top.MutableFeatures()[4].visible = false;
    EXPECT_EQ(ShownParts(top, Sight::Views).size(), 3u);
    EXPECT_EQ(ShownParts(top, Sight::Screen).size(), 2u);
    EXPECT_NEAR(ExtentsIn(top, Placement(), Sight::Views).high.x, 50, 1e-9);
}

TEST_F(DrawingTest, AnEmptyModelHasNoExtentsAndNoLines) {
    const Model& part = TheHost().session.Create(WIDE("EMPTY"), PRO_MDL_PART);
    EXPECT_TRUE(ExtentsIn(part, Placement(), Sight::Views).empty);
    EXPECT_TRUE(ProjectedLines(part, Placement(), /*withHidden=*/true).empty());
}

// --- Views ---

TEST_F(DrawingTest, ThirdAngleShowsEachSideOnItsSide) {
    Model& box = BoxPart("BOX", {30, 20, 10});
    Drawing& drawing = DrawingOf(NewDrawing());
    drawing.rule = ProjectionRule::ThirdAngle;
    DrawingView& main = drawing.AddGeneral(box, 1, {100, 100, 0}, 1, Placement());
    // The view above shows the top: y comes towards the viewer. The one on the right shows the
    // right side: x does.
    const DrawingView* above = drawing.AddProjected(main, {100, 160, 0});
    const DrawingView* right = drawing.AddProjected(main, {160, 100, 0});
    ASSERT_TRUE(above && right);
    EXPECT_NEAR(drawing.OrientationOf(*above).axes[1].z, 1, 1e-12);
    EXPECT_NEAR(drawing.OrientationOf(*right).axes[0].z, 1, 1e-12);
    drawing.rule = ProjectionRule::FirstAngle;
    EXPECT_NEAR(drawing.OrientationOf(*above).axes[1].z, -1, 1e-12);
    EXPECT_NEAR(drawing.OrientationOf(*right).axes[0].z, -1, 1e-12);
}

TEST_F(DrawingTest, AProjectionStaysInLineWithItsParent) {
    Model& box = BoxPart("BOX", {30, 20, 10});
    Drawing& drawing = DrawingOf(NewDrawing());
    DrawingView& main = drawing.AddGeneral(box, 1, {100, 100, 0}, 1, Placement());
    DrawingView* below = drawing.AddProjected(main, {107, 40, 0});
    ASSERT_TRUE(below);
    EXPECT_EQ(below->at.x, 100);
    drawing.Move(*below, {13, -5, 0});
    EXPECT_EQ(below->at.x, 100);
    EXPECT_EQ(below->at.y, 35);
    EXPECT_EQ(drawing.AddProjected(main, {100, 100, 0}), nullptr);
}

TEST_F(DrawingTest, AMovedViewTakesItsProjectionsAlongWhenRegenerated) {
    Model& box = BoxPart("BOX", {30, 20, 10});
    Drawing& drawing = DrawingOf(NewDrawing());
    DrawingView& main = drawing.AddGeneral(box, 1, {100, 100, 0}, 1, Placement());
    DrawingView* right = drawing.AddProjected(main, {160, 100, 0});
    DrawingView* rear = drawing.AddProjected(*right, {220, 100, 0});
    ASSERT_TRUE(right && rear);
    drawing.Move(main, {1, 2, 0});
    EXPECT_EQ(rear->at.x, 221);
    EXPECT_EQ(rear->at.y, 102);
    EXPECT_NEAR(drawing.OutlineOf(*rear).low.x, 205, 1e-9);  // as before: 220 - 15
    drawing.Regenerate(main);
    EXPECT_NEAR(drawing.OutlineOf(*rear).low.x, 206, 1e-9);
}

TEST_F(DrawingTest, TheScaleEnlargesAboutTheMiddle) {
    Model& box = BoxPart("BOX", {30, 20, 10}, {1000, 0, 0});
    Drawing& drawing = DrawingOf(NewDrawing());
    DrawingView& main = drawing.AddGeneral(box, 1, {100, 100, 0}, 2, Placement());
    EXPECT_NEAR(drawing.OutlineOf(main).low.x, 70, 1e-9);
    EXPECT_NEAR(drawing.OutlineOf(main).high.y, 120, 1e-9);
}

TEST_F(DrawingTest, AViewsHandleDanglesWhenItsDrawingIsErased) {
    Model& box = BoxPart("BOX", {30, 20, 10});
    Model& sheet = NewDrawing();
    const ProView handle =
        DrawingOf(sheet).AddGeneral(box, 1, {100, 100, 0}, 1, Placement()).handle;
    EXPECT_NE(FindView(handle), nullptr);
    TheHost().session.Erase(sheet);
    EXPECT_EQ(FindView(handle), nullptr);
    EXPECT_EQ(DescribeView(handle), "dangling view");
}

// --- Files ---

TEST_F(DrawingTest, ADrawingIsReadAsItWasWritten) {
    Model& box = BoxPart("BOX", {30, 20, 10});
    Model& sheet = NewDrawing();
    Drawing& drawing = DrawingOf(sheet);
    drawing.rule = ProjectionRule::ThirdAngle;
    DrawingView& main =
        drawing.AddGeneral(box, 1, {100.5, 100, 0}, 0.5, PlacementFrom({}, {0, 0, 90}));
    main.display.style = PRO_DISPSTYLE_HIDDEN_LINE;
    main.display.tangent_edge_display = ProTanedgeDisplay(15);
    drawing.AddProjected(main, {160, 100, 0});
    const std::string text = ModelText(sheet);
    Model copy;
    copy.session = &TheHost().session;
    ReadModelText(text, "sheet.drw.1", &copy);
    EXPECT_EQ(ModelText(copy), text);
    const auto& views = DrawingOf(copy).views();
    ASSERT_EQ(views.size(), 2u);
    EXPECT_EQ(views[0]->file, "box.prt");
    EXPECT_EQ(views[0]->scale, 0.5);
    EXPECT_EQ(views[1]->parent, views[0].get());
    EXPECT_EQ(views[1]->side, Side::Right);
    // Regenerated at the first question: 30 along y and 20 along x, at half size.
    EXPECT_NEAR(DrawingOf(copy).OutlineOf(*views[0]).low.x, 95.5, 1e-9);
    EXPECT_NEAR(DrawingOf(copy).OutlineOf(*views[0]).high.y, 107.5, 1e-9);
}

struct Mistake {
    const char* text;
    const char* says;
};

TEST_F(DrawingTest, MistakesInADrawingsFileAreTold) {
    const std::string head = "[model]\ntype = \"drawing\"\n[sheets]\nsizes = [\"A3\"]\n";
    const Mistake mistakes[] = {
        {"[drawing]\nprojection = \"second-angle\"\n", "\"projection\" must be one of"},
        {"[drawing]\nscale = 1\n", "unknown key \"scale\""},
        {"[[view]]\nid = 1\nat = [1, 2]\n", "\"model\" is missing"},
        {"[[view]]\nid = 1\nmodel = \"a.prt\"\nsheet = 2\nat = [1, 2]\n", "there is no sheet 2"},
        {"[[view]]\nid = 1\nmodel = \"a.prt\"\nat = [1]\n", "\"at\" must be a list of 2 numbers"},
        {"[[view]]\nid = 1\nmodel = \"a.prt\"\nat = [1, 2]\nscale = 0\n", "must be more than 0"},
        {"[[view]]\nid = 1\nparent = 7\nside = \"left\"\nat = [1, 2]\n", "no view before this one"},
        {"[[view]]\nid = 1\nmodel = \"a.prt\"\nat = [1, 2]\n[[view]]\nid = 2\nparent = 1\n"
         "side = \"under\"\nat = [1, 2]\n",
         "\"side\" must be"},
        {"[[view]]\nid = 1\nmodel = \"a.prt\"\nat = [1, 2]\n[[view]]\nid = 1\nmodel = \"a.prt\"\n"
         "at = [1, 2]\n",
         "the id is there twice"},
        {"[[view]]\nid = 1\nmodel = \"a.prt\"\nat = [1, 2]\nstyle = \"thin\"\n",
         "\"style\" must be one of"},
    };
    for (const Mistake& mistake : mistakes) {
        Model model;
        try {
            ReadModelText(head + mistake.text, "x.drw.1", &model);
            ADD_FAILURE() << "read: " << mistake.text;
        } catch (const ModelFileError& error) {
            EXPECT_NE(std::string(error.what()).find(mistake.says), std::string::npos)
                << error.what();
        }
    }
    Model part;
    EXPECT_THROW(
        ReadModelText("[model]\ntype = \"part\"\n[drawing]\nprojection = \"first-angle\"\n",
                      "x.prt.1", &part),
        ModelFileError);
}

// --- The screen ---

TEST_F(DrawingTest, OnlyRotationsWithOneScaleAreViews) {
    Placement frame;
    double scale = 0;
    ProMatrix matrix = {{0, 2, 0, 0}, {-2, 0, 0, 0}, {0, 0, 2, 0}, {5, 6, 7, 1}};
    EXPECT_TRUE(FrameOf(matrix, &frame, &scale));
    EXPECT_EQ(scale, 2);
    EXPECT_EQ(frame.axes[0].y, 1);
    ProMatrix mirror = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, -1, 0}, {0, 0, 0, 1}};
    EXPECT_FALSE(FrameOf(mirror, &frame, &scale));
    ProMatrix stretched = {{1, 0, 0, 0}, {0, 2, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    EXPECT_FALSE(FrameOf(stretched, &frame, &scale));
    ProMatrix skew = {{1, 0, 0, 0}, {0.6, 0.8, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    EXPECT_FALSE(FrameOf(skew, &frame, &scale));
    ProMatrix zeros = {};
    EXPECT_FALSE(FrameOf(zeros, &frame, &scale));
}

}  // namespace
