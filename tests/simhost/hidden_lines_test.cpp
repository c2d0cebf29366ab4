// Which pieces of edges are hidden by facets before them.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "simhost/model/hidden_lines.h"

namespace {

using namespace simhost;

// A level rectangle at this depth.
void AddPlate(HiddenLineScene* scene, double x0, double y0, double x1, double y1, double depth) {
    scene->AddCover({{x0, y0, depth}, {x1, y0, depth}, {x1, y1, depth}, {x0, y1, depth}},
                    {0, 0, 1});
}

double DrawnLength(const std::vector<DrawnLine>& lines, bool hidden) {
    double sum = 0;
    for (const DrawnLine& line : lines) {
        if (line.hidden == hidden) sum += std::hypot(line.x1 - line.x0, line.y1 - line.y0);
    }
    return sum;
}

TEST(HiddenLines, AnEdgeIsHiddenWhereAPlateLiesBeforeItAndSeenWhereItLiesBehind) {
    HiddenLineScene scene;
    AddPlate(&scene, 20, -10, 30, 10, 5);
    AddPlate(&scene, 60, -10, 80, 10, -5);
    scene.AddEdge({0, 0, 0}, {100, 0, 0});
    const auto lines = PiecesOf(scene, /*withHidden=*/true);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_NEAR(lines[1].x0, 20, 1e-3);
    EXPECT_NEAR(lines[1].x1, 30, 1e-3);
    EXPECT_TRUE(lines[1].hidden);
    EXPECT_EQ(PiecesOf(scene, /*withHidden=*/false).size(), 2u);
}

TEST(HiddenLines, AnEdgeOnAPlateIsSeenAndOneSeenFromItsEndIsNotDrawn) {
    HiddenLineScene scene;
    AddPlate(&scene, 0, 0, 10, 10, 3);
    scene.AddEdge({2, 2, 3}, {8, 8, 3});
    scene.AddEdge({5, 5, 9}, {5, 5, 20});
    const auto lines = PiecesOf(scene, /*withHidden=*/true);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_FALSE(lines[0].hidden);
}

// The plate rises from depth 0 at x = 0 to 100 at x = 100; the edge is at depth 40.
TEST(HiddenLines, AnEdgeThatGoesThroughASlantedFacetIsHiddenWhereThatIsBefore) {
    HiddenLineScene scene;
    scene.AddCover({{0, 0, 0}, {100, 0, 100}, {100, 50, 100}, {0, 50, 0}}, {-1, 0, 1});
    scene.AddEdge({0, 20, 40}, {100, 30, 40});
    const auto lines = PiecesOf(scene, /*withHidden=*/true);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NEAR(lines[0].x1, 40, 1e-2);
    EXPECT_NEAR(lines[0].y1, 24, 1e-2);
    EXPECT_TRUE(lines[1].hidden);
}

// A board of 40 by 40 plates of 8 in squares of 10, each row at a depth of its own, above slanted
// edges: what a grid of many cells finds is what the plates' sizes tell. Straight up and straight
// to the right an edge is under a plate for 8 of every 10.
TEST(HiddenLines, AmongManyPlatesEveryEdgeIsHiddenJustByThoseThatItGoesUnder) {
    HiddenLineScene scene;
    for (int row = 0; row < 40; ++row) {
        for (int column = 0; column < 40; ++column) {
            const double x = 10 * column, y = 10 * row;
            AddPlate(&scene, x + 1, y + 1, x + 9, y + 9, 10 + row);
        }
    }
    scene.AddEdge({0, 5, 0}, {400, 5, 0});
    scene.AddEdge({205, 400, 0}, {205, 0, 0});
    scene.AddEdge({0, 0, 0}, {400, 400, 0});      // on the diagonals of plates
    scene.AddEdge({0, 5, 30.5}, {0, 395, 30.5});  // beside all plates
    scene.AddEdge({5, 0, 30.5}, {5, 400, 30.5});  // before the rows 0 to 20, behind the others
    const double diagonal = std::sqrt(2.0);
    const auto lines = PiecesOf(scene, /*withHidden=*/true);
    EXPECT_NEAR(DrawnLength(lines, /*hidden=*/true), 320 + 320 + 320 * diagonal + 19 * 8, 0.5);
    EXPECT_NEAR(DrawnLength(lines, /*hidden=*/false), 80 + 80 + 80 * diagonal + 390 + 400 - 19 * 8,
                0.5);
}

// One plate as large as the sheet before thousands of small ones, and one edge below them all.
TEST(HiddenLines, ALargePlateAmongSmallOnesHidesWhatIsBelowIt) {
    HiddenLineScene scene;
    for (int i = 0; i < 3000; ++i) AddPlate(&scene, i, 0, i + 0.5, 0.5, -1);
    AddPlate(&scene, 0, -1000, 3000, 1000, 10);
    scene.AddEdge({-100, -900, 0}, {3100, 900, 0});
    const auto lines = PiecesOf(scene, /*withHidden=*/true);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_NEAR(lines[1].x0, 0, 0.1);
    EXPECT_NEAR(lines[1].x1, 3000, 0.1);
    EXPECT_TRUE(lines[1].hidden);
}

TEST(HiddenLines, WithoutFacetsAllIsSeenAndWithoutEdgesThereIsNothing) {
    HiddenLineScene scene;
    EXPECT_TRUE(PiecesOf(scene, /*withHidden=*/true).empty());
    scene.AddEdge({0, 0, 0}, {0, 10, 0});
    EXPECT_EQ(PiecesOf(scene, /*withHidden=*/true).size(), 1u);
}

}  // namespace
