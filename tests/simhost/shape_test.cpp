// The record of a part's shape: what faces, edges and vertices each solid has, that ids stay while
// other solids come and go, and that boxes and volumes are those of the true shape.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numbers>
#include <set>
#include <stdexcept>

#include "simhost/model/session.h"
#include "simhost/model/shape.h"
#include "tests/support/solids.h"

using namespace simhost;
using std::numbers::pi;
using workbench::BoxSolid;
using workbench::ConeSolid;
using workbench::CylinderSolid;
using workbench::ExpectBox;
using workbench::GearSolid;
using workbench::PrismSolid;
using workbench::TubeSolid;

namespace {

// An angle: not convex, so that its lids are of several facets.
Solid Angle(int id) {
    return PrismSolid({{0, 0}, {30, 0}, {30, 10}, {10, 10}, {10, 20}, {0, 20}}, 5, id);
}

int Count(const PartShape& shape, EdgeKind kind) {
    int count = 0;
    for (const ShapeEdge& edge : shape.edges) count += edge.kind == kind ? 1 : 0;
    return count;
}

int Count(const PartShape& shape, FaceKind kind) {
    int count = 0;
    for (const ShapeFace& face : shape.faces) count += face.kind == kind ? 1 : 0;
    return count;
}

const ShapeEdge& EdgeOf(const PartShape& shape, int id) {
    for (const ShapeEdge& edge : shape.edges) {
        if (edge.id == id) return edge;
    }
    throw std::out_of_range("no edge " + std::to_string(id));
}

TEST(PartShape, ABoxHasSixPlanesTwelveLinesAndEightVertices) {
    const PartShape shape = ShapeOf({BoxSolid({2, 3, 4}, 10)});
    EXPECT_EQ(Count(shape, FaceKind::Plane), 6);
    EXPECT_EQ(Count(shape, EdgeKind::Line), 12);
    EXPECT_EQ(shape.edges.size(), 12u);
    EXPECT_EQ(shape.vertices.size(), 8u);
    EXPECT_DOUBLE_EQ(shape.volume, 24);
    std::map<int, int> edgesOfFace;
    std::map<double, int> lengths;
    for (const ShapeEdge& edge : shape.edges) {
        for (const int face : edge.faces) ++edgesOfFace[face];
        const Vec3 way = edge.to - edge.from;
        ++lengths[std::sqrt(Dot(way, way))];
        EXPECT_EQ(shape.vertices[edge.vertices[0]], edge.from);
        EXPECT_EQ(shape.vertices[edge.vertices[1]], edge.to);
    }
    EXPECT_EQ(edgesOfFace,
              (std::map<int, int>{{11, 4}, {12, 4}, {13, 4}, {14, 4}, {15, 4}, {16, 4}}));
    EXPECT_EQ(lengths, (std::map<double, int>{{2, 4}, {3, 4}, {4, 4}}));
}

TEST(PartShape, TheFacesOfABoxLookOutOfItAlongItsAxes) {
    Solid turned = BoxSolid({2, 3, 4}, 10);
    turned.at = {100, 200, 300};
    turned.turn = {0, 0, 90};
    const PartShape shape = ShapeOf({turned});
    ASSERT_EQ(shape.faces.size(), 6u);
    // The box's x runs along y now, and its y against x.
    EXPECT_EQ(shape.faces[0].axis, (Vec3{0, -1, 0}));
    EXPECT_EQ(shape.faces[1].axis, (Vec3{0, 1, 0}));
    EXPECT_EQ(shape.faces[2].axis, (Vec3{1, 0, 0}));
    EXPECT_EQ(shape.faces[3].axis, (Vec3{-1, 0, 0}));
    ExpectBox(shape.faces[1].box, {97, 202, 300}, {100, 202, 304});
    ExpectBox(shape.faces[5].box, {97, 200, 304}, {100, 202, 304});
}

TEST(PartShape, ACylinderHasTwoCirclesAndOneRoundFace) {
    Solid rod = CylinderSolid(10, 30, 20);
    rod.at = {1, 2, 3};
    const PartShape shape = ShapeOf({rod});
    ASSERT_EQ(shape.faces.size(), 3u);
    EXPECT_EQ(shape.faces[0].kind, FaceKind::Cylinder);
    EXPECT_EQ(shape.faces[0].radius, 5);
    EXPECT_FALSE(shape.faces[0].hollow);
    EXPECT_EQ(shape.faces[0].origin, (Vec3{1, 2, 3}));
    EXPECT_EQ(shape.faces[0].axis, (Vec3{0, 0, 1}));
    EXPECT_EQ(shape.faces[1].axis, (Vec3{0, 0, -1}));
    EXPECT_EQ(Count(shape, EdgeKind::Circle), 2);
    EXPECT_EQ(shape.edges.size(), 2u);
    const ShapeEdge& top = EdgeOf(shape, 231);
    EXPECT_EQ(top.faces[0], 21);
    EXPECT_EQ(top.faces[1], 23);
    EXPECT_EQ(top.frame.origin, (Vec3{1, 2, 33}));
    EXPECT_EQ(top.radius, 5);
    EXPECT_EQ(top.from, (Vec3{6, 2, 33}));
    EXPECT_EQ(top.to, top.from);
    EXPECT_NEAR(shape.volume, 750 * pi, 1e-9);
}

TEST(PartShape, AConeTapersToItsTipWhichIsAVertexWithoutAnEdge) {
    const PartShape shape = ShapeOf({ConeSolid(12, 0, 10, 40)});
    ASSERT_EQ(shape.faces.size(), 2u);
    EXPECT_EQ(shape.faces[0].kind, FaceKind::Cone);
    EXPECT_EQ(shape.faces[0].radius, 6);
    EXPECT_DOUBLE_EQ(shape.faces[0].slope, -0.6);
    ExpectBox(shape.faces[0].box, {-6, -6, 0}, {6, 6, 10});
    EXPECT_EQ(shape.edges.size(), 1u);
    ASSERT_EQ(shape.vertices.size(), 2u);
    EXPECT_EQ(shape.vertices[1], (Vec3{0, 0, 10}));
    EXPECT_NEAR(shape.volume, 120 * pi, 1e-9);

    const PartShape hanging = ShapeOf({ConeSolid(0, 12, 10, 40)});
    ASSERT_EQ(hanging.edges.size(), 1u);
    EXPECT_EQ(hanging.edges[0].faces[1], 42);
    EXPECT_EQ(hanging.edges[0].frame.origin, (Vec3{0, 0, 10}));
    EXPECT_EQ(hanging.faces[0].radius, 0);
    ExpectBox(ExtentsIn(hanging, {}), {-6, -6, 0}, {6, 6, 10});
}

TEST(PartShape, AConeOfTwoLidsHasACircleAtEach) {
    const PartShape shape = ShapeOf({ConeSolid(12, 6, 10, 40)});
    ASSERT_EQ(shape.edges.size(), 2u);
    EXPECT_EQ(shape.edges[0].radius, 6);
    EXPECT_EQ(shape.edges[0].faces[1], 42);
    EXPECT_EQ(shape.edges[1].radius, 3);
    EXPECT_EQ(shape.edges[1].faces[1], 43);
    // A frustum: pi / 3 * 10 * (36 + 18 + 9).
    EXPECT_NEAR(shape.volume, 210 * pi, 1e-9);
}

TEST(PartShape, ATubeHasAHollowWallAndFourCircles) {
    const PartShape shape = ShapeOf({TubeSolid(20, 12, 5, 30)});
    ASSERT_EQ(shape.faces.size(), 4u);
    EXPECT_FALSE(shape.faces[0].hollow);
    EXPECT_TRUE(shape.faces[1].hollow);
    EXPECT_EQ(shape.faces[1].radius, 6);
    std::multiset<std::pair<int, int>> meetings;
    for (const ShapeEdge& edge : shape.edges) {
        EXPECT_EQ(edge.kind, EdgeKind::Circle);
        EXPECT_EQ(edge.radius, edge.faces[0] == 31 ? 10 : 6);
        meetings.insert({edge.faces[0], edge.faces[1]});
    }
    EXPECT_EQ(meetings,
              (std::multiset<std::pair<int, int>>{{31, 33}, {32, 33}, {31, 34}, {32, 34}}));
    EXPECT_NEAR(shape.volume, 320 * pi, 1e-9);
}

TEST(PartShape, TheLidOfAnAngleIsOneFaceWhatFacetsItIsCutInto) {
    const PartShape shape = ShapeOf({Angle(300)});
    EXPECT_EQ(shape.faces.size(), 8u);
    EXPECT_EQ(shape.edges.size(), 18u);
    EXPECT_EQ(shape.vertices.size(), 12u);
    EXPECT_DOUBLE_EQ(shape.volume, (300 + 100) * 5);
}

TEST(PartShape, AGearHasStraightEdgesAtItsTeethAndCirclesAtItsBore) {
    const PartShape shape = ShapeOf({GearSolid(2, 20, 10, 16, 200)});
    EXPECT_EQ(shape.faces.size(), 83u);
    EXPECT_EQ(Count(shape, FaceKind::Cylinder), 1);
    EXPECT_TRUE(shape.faces[2].hollow);
    EXPECT_EQ(Count(shape, EdgeKind::Circle), 2);
    // 80 on each lid, and 80 from lid to lid.
    EXPECT_EQ(Count(shape, EdgeKind::Line), 240);
    EXPECT_NEAR(ShapeOf({GearSolid(2, 20, 10, 0, 200)}).volume - shape.volume, 640 * pi, 1e-9);
}

// The volume that the facets of a gear enclose, by the sum of tetrahedra from the origin.
TEST(PartShape, TheVolumeOfAGearIsWhatItsFacetsEnclose) {
    const Solid gear = GearSolid(2, 20, 10, 0, 200);
    double sum = 0;
    for (const SolidFace& face : Faces(gear)) {
        for (const Facet& facet : face.facets) {
            for (std::size_t i = 1; i + 1 < facet.corners.size(); ++i) {
                sum += Dot(facet.corners[0], Cross(facet.corners[i], facet.corners[i + 1])) / 6;
            }
        }
    }
    EXPECT_NEAR(VolumeOf(gear), sum, 1e-6 * sum);
}

TEST(PartShape, EveryEdgeHasAnIdOfItsOwnThatOtherSolidsDoNotMove) {
    const PartShape alone = ShapeOf({GearSolid(2, 20, 10, 16, 200)});
    const PartShape last =
        ShapeOf({BoxSolid({1, 1, 1}, 10), TubeSolid(20, 12, 5, 30), GearSolid(2, 20, 10, 16, 200)});
    std::set<int> ids;
    for (const ShapeEdge& edge : last.edges) EXPECT_TRUE(ids.insert(edge.id).second) << edge.id;
    ASSERT_EQ(last.edges.size(), 12 + 4 + alone.edges.size());
    for (std::size_t i = 0; i < alone.edges.size(); ++i) {
        EXPECT_EQ(last.edges[16 + i].id, alone.edges[i].id);
    }
    ASSERT_EQ(last.bodies.size(), 3u);
    EXPECT_EQ(last.bodies[1].firstFace, 6u);
    EXPECT_EQ(last.bodies[1].faceCount, 4u);
    EXPECT_EQ(last.bodies[1].widest, 20);
}

// A disc leaning by 30 degrees about y: its rim reaches 10 cos 30 along x, 10 along y, 10 sin 30
// along z.
TEST(PartShape, TheBoxAroundALeaningRodIsThatOfItsTrueCircles) {
    Solid rod = CylinderSolid(20, 40, 20);
    rod.turn = {0, 30, 0};
    const PartShape shape = ShapeOf({rod});
    const double across = 10 * std::sqrt(3.0) / 2, along = 40 * std::sqrt(3.0) / 2;
    ExpectBox(shape.faces[1].box, {-across, -10, -5}, {across, 10, 5});
    ExpectBox(shape.faces[0].box, {-across, -10, -5}, {20 + across, 10, along + 5});
    // Turned back by the frame it is looked at from, it is upright again.
    ExpectBox(ExtentsIn(shape, PlacementFrom({7, 0, 0}, {0, -30, 0})), {-3, -10, 0}, {17, 10, 40});
}

TEST(PartShape, VolumesOfSeveralSolidsAddUp) {
    EXPECT_NEAR(ShapeOf({BoxSolid({2, 3, 4}, 10), CylinderSolid(2, 1, 20)}).volume, 24 + pi, 1e-12);
}

// --- Models ask the record ---

class PartWithShape : public ::testing::Test {
protected:
    Session session_;
    Model& part_ = session_.Create(WIDE("A"), PRO_MDL_PART);
};

TEST_F(PartWithShape, TheShapeIsMadeOnceAndAnewAfterASolidChanged) {
    part_.partData.solids = {BoxSolid({2, 3, 4}, 10)};
    const PartShape* first = &part_.shape();
    EXPECT_EQ(&part_.shape(), first);
    part_.partData.solids[0].size.x = 5;
    EXPECT_DOUBLE_EQ(part_.shape().volume, 60);
}

TEST_F(PartWithShape, SurfacesThatStayKeepTheirHandlesAndGetTheirNewBox) {
    part_.partData.solids = {BoxSolid({2, 3, 4}, 10), BoxSolid({1, 1, 1}, 20)};
    const ProSurface stays = part_.Surfaces()[7]->handle;  // the second box's x side
    const ProSurface goes = part_.Surfaces()[0]->handle;
    part_.partData.solids = {BoxSolid({9, 1, 1}, 20), CylinderSolid(2, 2, 30)};
    ASSERT_EQ(part_.Surfaces().size(), 9u);
    EXPECT_EQ(part_.Surfaces()[1]->handle, stays);
    ASSERT_EQ(session_.FindSurface(stays), part_.Surfaces()[1].get());
    EXPECT_EQ(session_.FindSurface(stays)->box.xyz_max[0], 9);
    EXPECT_EQ(session_.FindSurface(goes), nullptr);
    EXPECT_TRUE(part_.HasSurface(33));
    EXPECT_FALSE(part_.HasSurface(11));
}

}  // namespace
