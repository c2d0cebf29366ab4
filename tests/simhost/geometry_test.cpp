// The shapes of parts: their skins must be closed and look outwards, their volumes must be those
// of the textbook, and placements must turn as they are told.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <set>
#include <tuple>

#include "simhost/model/geometry.h"
#include "tests/support/solids.h"

using namespace simhost;
using std::numbers::pi;
using workbench::BoxSolid;
using workbench::ConeSolid;
using workbench::CylinderSolid;
using workbench::GearSolid;
using workbench::Outline;
using workbench::PrismSolid;
using workbench::TubeSolid;

namespace {

const Outline kTriangle{{0, 0}, {10, 0}, {0, 6}};
const Outline kAngle{{0, 0}, {30, 0}, {30, 5}, {5, 5}, {5, 20}, {0, 20}};
// A comb whose teeth have points on straight lines: hard on an ear clipper.
const Outline kComb{{0, 0},  {10, 0},  {20, 0},  {30, 0}, {30, 20}, {25, 20}, {25, 5}, {20, 5},
                    {15, 5}, {15, 20}, {10, 20}, {10, 5}, {5, 5},   {5, 20},  {0, 20}};

std::vector<Solid> OneOfEach() {
    return {BoxSolid({10, 20, 30}),     CylinderSolid(20, 50),    TubeSolid(40, 30, 12),
            ConeSolid(20, 10, 15),      ConeSolid(20, 0, 15),     ConeSolid(0, 20, 15),
            GearSolid(2, 25, 20, 14),   GearSolid(3, 17, 10, 0),  GearSolid(2, 6, 10, 3),
            GearSolid(1.5, 80, 12, 30), PrismSolid(kTriangle, 4), PrismSolid(kAngle, 8),
            PrismSolid(kComb, 3)};
}

double Length(Vec3 v) {
    return std::sqrt(Dot(v, v));
}

// Twice the area of a flat polygon, as a vector along its normal.
Vec3 Area2(const Facet& facet) {
    Vec3 sum;
    for (std::size_t i = 2; i < facet.corners.size(); ++i) {
        const Vec3 a = facet.corners[0];
        sum = sum + Cross(facet.corners[i - 1] - a, facet.corners[i] - a);
    }
    return sum;
}

// The volume inside a closed skin, by the divergence theorem.
double Volume(const std::vector<SolidFace>& faces) {
    double sum = 0;
    for (const SolidFace& face : faces) {
        for (const Facet& facet : face.facets) {
            for (std::size_t i = 2; i < facet.corners.size(); ++i) {
                sum += Dot(facet.corners[0], Cross(facet.corners[i - 1], facet.corners[i]));
            }
        }
    }
    return sum / 6;
}

using Key = std::tuple<long long, long long, long long>;
Key Rounded(Vec3 p) {
    return {std::llround(p.x * 1e6), std::llround(p.y * 1e6), std::llround(p.z * 1e6)};
}

// Edges that are not used exactly once in each direction.
int OpenEdges(const std::vector<SolidFace>& faces) {
    std::map<std::pair<Key, Key>, int> uses;
    for (const SolidFace& face : faces) {
        for (const Facet& facet : face.facets) {
            for (std::size_t i = 0; i < facet.corners.size(); ++i) {
                const Vec3 next = facet.corners[(i + 1) % facet.corners.size()];
                ++uses[{Rounded(facet.corners[i]), Rounded(next)}];
            }
        }
    }
    int open = 0;
    for (const auto& [edge, count] : uses) {
        const auto back = uses.find({edge.second, edge.first});
        if (count != 1 || back == uses.end() || back->second != 1) ++open;
    }
    return open;
}

void ExpectNear(Vec3 a, Vec3 b, double within) {
    EXPECT_NEAR(a.x, b.x, within);
    EXPECT_NEAR(a.y, b.y, within);
    EXPECT_NEAR(a.z, b.z, within);
}

// The area of a regular polygon with its corners on a circle.
double PolygonArea(double diameter, int corners) {
    return corners * diameter * diameter / 8 * std::sin(2 * pi / corners);
}

}  // namespace

TEST(Geometry, EverySkinIsClosed) {
    for (const Solid& solid : OneOfEach()) {
        for (const int fineness : {3, 16, 32, 50}) {
            EXPECT_EQ(OpenEdges(Faces(solid, fineness)), 0)
                << ShapeName(solid.shape) << " of " << SurfaceCount(solid) << " surfaces";
        }
    }
}

TEST(Geometry, EveryFacetIsFlatAndConvexAndHasAnArea) {
    for (const Solid& solid : OneOfEach()) {
        for (const SolidFace& face : Faces(solid)) {
            ASSERT_FALSE(face.facets.empty());
            for (const Facet& facet : face.facets) {
                ASSERT_GE(facet.corners.size(), 3u);
                const Vec3 area = Area2(facet);
                ASSERT_GT(Length(area), 1e-6);
                const Vec3 normal = 1 / Length(area) * area;
                const std::size_t n = facet.corners.size();
                for (std::size_t i = 0; i < n; ++i) {
                    const Vec3 a = facet.corners[i], b = facet.corners[(i + 1) % n];
                    const Vec3 c = facet.corners[(i + 2) % n];
                    EXPECT_NEAR(Dot(normal, a - facet.corners[0]), 0, 1e-9);
                    EXPECT_GE(Dot(normal, Cross(b - a, c - b)), -1e-9);
                }
            }
        }
    }
}

TEST(Geometry, SurfacesAreNumberedOnFromTheSolidAndCountedRightly) {
    for (const Solid& solid : OneOfEach()) {
        const auto faces = Faces(solid);
        ASSERT_EQ(int(faces.size()), SurfaceCount(solid)) << ShapeName(solid.shape);
        for (std::size_t i = 0; i < faces.size(); ++i) {
            EXPECT_EQ(faces[i].surface, solid.id + int(i) + 1);
        }
    }
    EXPECT_EQ(SurfaceCount(BoxSolid({1, 1, 1})), 6);
    EXPECT_EQ(SurfaceCount(CylinderSolid(1, 1)), 3);
    EXPECT_EQ(SurfaceCount(TubeSolid(2, 1, 1)), 4);
    EXPECT_EQ(SurfaceCount(ConeSolid(2, 1, 1)), 3);
    EXPECT_EQ(SurfaceCount(ConeSolid(2, 0, 1)), 2);
    EXPECT_EQ(SurfaceCount(GearSolid(2, 25, 20, 14)), 103);
    EXPECT_EQ(SurfaceCount(GearSolid(2, 25, 20, 0)), 102);
    EXPECT_EQ(SurfaceCount(PrismSolid(kAngle, 8)), 8);
}

TEST(Geometry, VolumesAreThoseOfTheTextbook) {
    EXPECT_NEAR(Volume(Faces(BoxSolid({10, 20, 30}))), 6000, 1e-9);
    EXPECT_NEAR(Volume(Faces(PrismSolid(kTriangle, 4))), 120, 1e-9);
    EXPECT_NEAR(Volume(Faces(PrismSolid(kAngle, 8))), (30 * 5 + 5 * 15) * 8, 1e-9);
    EXPECT_NEAR(Volume(Faces(PrismSolid(kComb, 3))), (30 * 5 + 3 * 5 * 15) * 3, 1e-9);
    for (const int n : {8, 32, 61}) {
        EXPECT_NEAR(Volume(Faces(CylinderSolid(20, 50), n)), PolygonArea(20, n) * 50, 1e-8);
        EXPECT_NEAR(Volume(Faces(TubeSolid(40, 30, 12), n)),
                    (PolygonArea(40, n) - PolygonArea(30, n)) * 12, 1e-8);
        // A frustum of similar ends: h/3 (A + B + sqrt(AB)).
        const double a = PolygonArea(20, n), b = PolygonArea(10, n);
        EXPECT_NEAR(Volume(Faces(ConeSolid(20, 10, 15), n)), 5 * (a + b + std::sqrt(a * b)), 1e-8);
        EXPECT_NEAR(Volume(Faces(ConeSolid(20, 0, 15), n)), 5 * a, 1e-8);
        EXPECT_NEAR(Volume(Faces(ConeSolid(0, 20, 15), n)), 5 * a, 1e-8);
    }
    EXPECT_NEAR(Volume(Faces(CylinderSolid(20, 50), 720)), pi * 100 * 50, 0.5);
}

TEST(Geometry, VolumesStayWhenASolidIsMovedAndTurned) {
    for (Solid solid : OneOfEach()) {
        const double before = Volume(Faces(solid));
        solid.at = {100, -40, 7};
        solid.turn = {20, -75, 130};
        EXPECT_NEAR(Volume(Faces(solid)), before, 1e-6) << ShapeName(solid.shape);
        EXPECT_GT(before, 0);
    }
}

TEST(Geometry, AConvexSolidLooksOutwardsEverywhere) {
    for (const Solid& solid : {BoxSolid({10, 20, 30}), CylinderSolid(20, 50), ConeSolid(20, 10, 15),
                               ConeSolid(0, 20, 15), PrismSolid(kTriangle, 4)}) {
        const Extents box = ExtentsOf(solid);
        Vec3 inside = 0.5 * (box.low + box.high);
        if (solid.shape == Shape::Prism) inside = {3, 2, 2};
        for (const SolidFace& face : Faces(solid)) {
            for (const Facet& facet : face.facets) {
                EXPECT_GT(Dot(Area2(facet), facet.corners[0] - inside), 0);
            }
        }
    }
}

TEST(Geometry, FacesOfABoxComeInTheOrderOfTheirIds) {
    const Vec3 directions[] = {{-1, 0, 0}, {1, 0, 0}, {0, -1, 0}, {0, 1, 0}, {0, 0, -1}, {0, 0, 1}};
    const auto faces = Faces(BoxSolid({2, 3, 4}));
    ASSERT_EQ(faces.size(), 6u);
    for (std::size_t i = 0; i < 6; ++i) {
        ASSERT_EQ(faces[i].facets.size(), 1u);
        const Vec3 area = Area2(faces[i].facets[0]);
        EXPECT_NEAR(Dot(area, directions[i]), Length(area), 1e-12) << i;
    }
}

TEST(Geometry, RoundSolidsHaveTheirSideFirstAndThenTheirEnds) {
    const auto tube = Faces(TubeSolid(40, 30, 12), 24);
    ASSERT_EQ(tube.size(), 4u);
    EXPECT_EQ(tube[0].facets.size(), 24u);
    for (const Facet& facet : tube[0].facets) {
        EXPECT_NEAR(std::hypot(facet.corners[0].x, facet.corners[0].y), 20, 1e-12);
        EXPECT_GT(Dot(Area2(facet), facet.corners[0]), 0);  // away from the axis
    }
    for (const Facet& facet : tube[1].facets) {
        EXPECT_NEAR(std::hypot(facet.corners[0].x, facet.corners[0].y), 15, 1e-12);
        EXPECT_LT(Dot(Area2(facet), {facet.corners[0].x, facet.corners[0].y, 0}), 0);
    }
    EXPECT_LT(Area2(tube[2].facets[0]).z, 0);
    EXPECT_EQ(tube[2].facets[0].corners[0].z, 0);
    EXPECT_GT(Area2(tube[3].facets[0]).z, 0);
    EXPECT_EQ(tube[3].facets[0].corners[0].z, 12);
    const auto cylinder = Faces(CylinderSolid(20, 50), 24);
    EXPECT_EQ(cylinder[0].facets.size(), 24u);
    EXPECT_LT(Area2(cylinder[1].facets[0]).z, 0);
    EXPECT_GT(Area2(cylinder[2].facets[0]).z, 0);
}

TEST(Geometry, SidesOfAPrismFollowItsOutline) {
    const auto faces = Faces(PrismSolid(kAngle, 8));
    ASSERT_EQ(faces.size(), 2 + kAngle.size());
    EXPECT_LT(Area2(faces[0].facets[0]).z, 0);
    EXPECT_GT(Area2(faces[1].facets[0]).z, 0);
    EXPECT_EQ(faces[0].facets.size(), kAngle.size() - 2);  // triangles
    for (std::size_t i = 0; i < kAngle.size(); ++i) {
        const auto& corners = faces[2 + i].facets.at(0).corners;
        ExpectNear(corners[0], {kAngle[i][0], kAngle[i][1], 0}, 0);
        const auto& next = kAngle[(i + 1) % kAngle.size()];
        ExpectNear(corners[1], {next[0], next[1], 0}, 0);
    }
    EXPECT_EQ(Faces(PrismSolid(kTriangle, 4))[0].facets.size(), 1u);  // convex: in one piece
}

TEST(Geometry, AGearHasItsCirclesAndItsToothThickness) {
    constexpr double kModule = 2;
    constexpr int kTeeth = 25;
    const auto faces = Faces(GearSolid(kModule, kTeeth, 20, 14));
    std::set<long long> radii;
    for (std::size_t i = 3; i < faces.size(); ++i) {
        for (const Vec3& p : faces[i].facets.at(0).corners) {
            radii.insert(std::llround(std::hypot(p.x, p.y) * 1e6));
        }
    }
    // Root circle d - 2.5 m = 45, tip circle d + 2 m = 54.
    EXPECT_EQ(radii, (std::set<long long>{22500000, 27000000}));
    for (const Vec3& p : faces[2].facets.at(0).corners) {
        EXPECT_NEAR(std::hypot(p.x, p.y), 7, 1e-9);
    }
    // The first tooth lies on the x axis. Where its upper flank crosses the pitch circle, half the
    // tooth spans pi m / 4 of arc.
    const auto& flank = faces[5].facets.at(0).corners;
    const Vec3 tip = flank[0], root = flank[1];
    ASSERT_NEAR(std::hypot(tip.x, tip.y), 27, 1e-9);
    ASSERT_NEAR(std::hypot(root.x, root.y), 22.5, 1e-9);
    double low = 0, high = 1;  // the pitch radius, by halving
    for (int i = 0; i < 60; ++i) {
        const double middle = (low + high) / 2;
        const Vec3 p = root + middle * (tip - root);
        (std::hypot(p.x, p.y) < 25 ? low : high) = middle;
    }
    const Vec3 pitch = root + low * (tip - root);
    EXPECT_NEAR(std::atan2(pitch.y, pitch.x) * 25, pi * kModule / 4, 1e-9);
}

TEST(Geometry, TeethOfAnyNumberKeepGapsAndLands) {
    for (int teeth = 3; teeth <= 120; ++teeth) {
        const Solid gear = GearSolid(1, teeth, 1, 0);
        const auto faces = Faces(gear);
        const double tooth = 2 * pi / teeth;
        for (std::size_t i = 0; i < 4; ++i) {  // flank, tip, flank, root land of the first tooth
            const auto& corners = faces[2 + i].facets.at(0).corners;
            const double from = std::atan2(corners[0].y, corners[0].x);
            const double to = std::atan2(corners[1].y, corners[1].x);
            const bool land = i % 2 == 1;
            const double span = std::remainder(to - from, 2 * pi);
            if (land) {
                EXPECT_GT(span, 0.005 * tooth) << teeth << " teeth, side " << i;
            }
            EXPECT_LT(std::fabs(span), tooth) << teeth << " teeth, side " << i;
        }
        EXPECT_EQ(OpenEdges(faces), 0) << teeth;
        const double r = teeth / 2.0;
        EXPECT_GT(Volume(faces), pi * (r - 1.25) * (r - 1.25) * 0.3);
        EXPECT_LT(Volume(faces), pi * (r + 1) * (r + 1));
    }
}

TEST(Geometry, ExtentsOfRoundSolidsReachTheirDiameter) {
    Solid solid = CylinderSolid(20, 50);
    solid.at = {5, 6, 7};
    Extents box = ExtentsOf(solid);
    ExpectNear(box.low, {-5, -4, 7}, 1e-12);
    ExpectNear(box.high, {15, 16, 57}, 1e-12);
    solid.turn = {0, 90, 0};  // the axis now along x
    box = ExtentsOf(solid);
    ExpectNear(box.low, {5, -4, -3}, 1e-12);
    ExpectNear(box.high, {55, 16, 17}, 1e-12);

    const Extents plate = ExtentsOf(PrismSolid(kAngle, 8));
    ExpectNear(plate.low, {0, 0, 0}, 0);
    ExpectNear(plate.high, {30, 20, 8}, 0);
}

TEST(Geometry, ExtentsStartEmptyAndTakeTheFirstPointAsItIs) {
    Extents box;
    EXPECT_TRUE(box.empty);
    box.Add({5, 6, 7});
    EXPECT_FALSE(box.empty);
    ExpectNear(box.low, {5, 6, 7}, 0);
    box.Add({4, 8, 7});
    ExpectNear(box.low, {4, 6, 7}, 0);
    ExpectNear(box.high, {5, 8, 7}, 0);
}

TEST(Geometry, ShapesHaveTheirWords) {
    for (const Shape shape :
         {Shape::Box, Shape::Cylinder, Shape::Tube, Shape::Cone, Shape::Gear, Shape::Prism}) {
        Shape parsed = shape == Shape::Box ? Shape::Gear : Shape::Box;
        EXPECT_TRUE(ParseShape(ShapeName(shape), &parsed));
        EXPECT_EQ(parsed, shape);
    }
    Shape untouched = Shape::Cone;
    EXPECT_FALSE(ParseShape("sphere", &untouched));
    EXPECT_FALSE(ParseShape("", &untouched));
    EXPECT_EQ(untouched, Shape::Cone);
    EXPECT_STREQ(ShapeName(Shape::Tube), "tube");
}

TEST(Placement, TurnsAboutTheFixedAxesInTheirOrder) {
    // x to y by the turn about z; y to z by the turn about x.
    ExpectNear(PlacementFrom({}, {0, 0, 90}).Direction({1, 0, 0}), {0, 1, 0}, 0);
    ExpectNear(PlacementFrom({}, {90, 0, 0}).Direction({0, 1, 0}), {0, 0, 1}, 0);
    ExpectNear(PlacementFrom({}, {0, 90, 0}).Direction({0, 0, 1}), {1, 0, 0}, 0);
    // First about x (y becomes z), then about the fixed y (z becomes x), then z (x becomes y).
    ExpectNear(PlacementFrom({}, {90, 90, 90}).Direction({0, 1, 0}), {0, 1, 0}, 0);
    ExpectNear(PlacementFrom({1, 2, 3}, {0, 0, 90}).Point({10, 0, 0}), {1, 12, 3}, 0);
    const Vec3 slanted = PlacementFrom({}, {0, 0, 30}).Direction({1, 0, 0});
    ExpectNear(slanted, {std::sqrt(0.75), 0.5, 0}, 1e-15);
    ExpectNear(PlacementFrom({}, {0, 0, -270}).Direction({1, 0, 0}), {0, 1, 0}, 0);
}

TEST(Placement, GivesItsAnglesBack) {
    for (double x = -180; x <= 180; x += 15) {
        for (double y = -90; y <= 90; y += 7.5) {
            for (double z = -180; z <= 180; z += 22.5) {
                const Placement placed = PlacementFrom({}, {x, y, z});
                const Vec3 turn = TurnOf(placed);
                const Placement again = PlacementFrom({}, turn);
                for (std::size_t i = 0; i < 3; ++i) {
                    ExpectNear(again.axes[i], placed.axes[i], 1e-14);
                }
                if (std::fabs(y) < 90) {
                    EXPECT_NEAR(std::remainder(turn.x - x, 360), 0, 1e-9);
                    EXPECT_NEAR(turn.y, y, 1e-9);
                    EXPECT_NEAR(std::remainder(turn.z - z, 360), 0, 1e-9);
                } else {
                    EXPECT_EQ(turn.z, 0);
                }
            }
        }
    }
}

TEST(Placement, KeepsTheRotationCloseToTheUprightPosition) {
    for (const double off : {1e-3, 1e-6, 1e-9, 1e-11, 1e-13}) {
        for (const double y : {90 - off, -90 + off}) {
            const Placement placed = PlacementFrom({}, {40, y, 25});
            const Placement again = PlacementFrom({}, TurnOf(placed));
            for (std::size_t i = 0; i < 3; ++i) ExpectNear(again.axes[i], placed.axes[i], 1e-11);
        }
    }
}

TEST(Placement, GivesOneFormForARotationThatHasTwo) {
    // Past the upright position the same rotation is (x + 180, 180 - y, z + 180).
    ExpectNear(TurnOf(PlacementFrom({}, {10, 120, 20})), {-170, 60, -160}, 1e-12);
    ExpectNear(TurnOf(PlacementFrom({}, {-180, 0, 0})), {180, 0, 0}, 0);
    ExpectNear(TurnOf(PlacementFrom({}, {0, 90, 30})), {-30, 90, 0}, 1e-12);
}

TEST(Placement, ComposesLikeDoingOneAfterTheOther) {
    const Placement outer = PlacementFrom({10, 20, 30}, {15, -40, 70});
    const Placement inner = PlacementFrom({-3, 5, 8}, {100, 33, -12});
    const Placement both = Compose(outer, inner);
    for (const Vec3 p : {Vec3{0, 0, 0}, Vec3{1, 0, 0}, Vec3{4, -7, 2}}) {
        ExpectNear(both.Point(p), outer.Point(inner.Point(p)), 1e-12);
        ExpectNear(both.Direction(p), outer.Direction(inner.Direction(p)), 1e-12);
    }
    const Placement same = Compose(outer, Placement());
    ExpectNear(same.origin, outer.origin, 0);
    ExpectNear(same.axes[1], outer.axes[1], 0);
}
