// The triangles and edges of parts, and when a part has others.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <vector>

#include "simhost/model/model.h"
#include "simhost/model/shape.h"
#include "simhost/web/mesh.h"

namespace {

using namespace simhost;

constexpr double kPi = 3.14159265358979323846;

Solid Box(int id, Vec3 size) {
    Solid box;
    box.id = id;
    box.size = size;
    return box;
}

Mesh MeshOfSolid(const Solid& solid) {
    return MeshOf(ShapeOf({solid}));
}

Vec3 At(const std::vector<float>& numbers, std::size_t i) {
    return {numbers[3 * i], numbers[3 * i + 1], numbers[3 * i + 2]};
}

double Length(Vec3 v) {
    return std::sqrt(Dot(v, v));
}

// A block with five sides, which turn by so many degrees, the rest of 90, and three times 90.
Solid BentBlock(double degrees) {
    const double angle = degrees / 180 * kPi;
    const double right = 10 + 10 * std::cos(angle);
    Solid block;
    block.shape = Shape::Prism;
    block.outline = {{0, 0}, {10, 0}, {right, 10 * std::sin(angle)}, {right, 20}, {0, 20}};
    block.height = 5;
    return block;
}

TEST(TheMesh, ShowsNoEdgeWhereFlatFacesBendByLessThan25Degrees) {
    // Five edges around the bottom, five around the top, five upright; six numbers each.
    EXPECT_EQ(MeshOfSolid(BentBlock(30)).edges.size(), 15u * 6);
    EXPECT_EQ(MeshOfSolid(BentBlock(26)).edges.size(), 15u * 6);
    EXPECT_EQ(MeshOfSolid(BentBlock(24)).edges.size(), 14u * 6);
    EXPECT_EQ(MeshOfSolid(BentBlock(10)).edges.size(), 14u * 6);
}

TEST(TheMesh, ABoxHasFourEdgesOfEachLength) {
    const Mesh mesh = MeshOfSolid(Box(100, {10, 20, 30}));
    std::map<double, int> counts;
    for (std::size_t i = 0; i < mesh.edges.size() / 6; ++i) {
        ++counts[Length(At(mesh.edges, 2 * i + 1) - At(mesh.edges, 2 * i))];
    }
    EXPECT_EQ(counts, (std::map<double, int>{{10, 4}, {20, 4}, {30, 4}}));
}

TEST(TheMesh, FlatFacesHaveTheirOwnNormalsAlthoughTheyRunIntoEachOther) {
    // Two ends of five corners and five sides of four: nothing is shared between them.
    const Mesh mesh = MeshOfSolid(BentBlock(10));
    EXPECT_EQ(mesh.surfaces.size(), 7u);
    EXPECT_EQ(mesh.points.size(), 3u * (2 * 5 + 5 * 4));
    // A polygon of n corners is n - 2 triangles.
    EXPECT_EQ(mesh.triangles.size(), 3u * (2 * 3 + 5 * 2));
}

TEST(TheMesh, ACirclesEdgeIsAClosedRunOf32EqualPieces) {
    Solid pin;
    pin.shape = Shape::Cylinder;
    pin.at = {1, 0, 3};
    pin.diameter = 8;
    pin.length = 30;
    const Mesh mesh = MeshOfSolid(pin);
    ASSERT_EQ(mesh.edges.size(), 2u * 32 * 6);
    for (std::size_t circle = 0; circle < 2; ++circle) {
        const double z = At(mesh.edges, circle * 64).z;
        EXPECT_TRUE(z == 3 || z == 33) << z;
        Vec3 turned;
        for (std::size_t i = 0; i < 32; ++i) {
            const std::size_t first = 2 * (circle * 32 + i);
            const std::size_t next = 2 * (circle * 32 + (i + 1) % 32);
            const Vec3 from = At(mesh.edges, first), to = At(mesh.edges, first + 1);
            EXPECT_EQ(to, At(mesh.edges, next)) << "each begins where the last one ended";
            const Vec3 centre{1, 0, z};
            EXPECT_NEAR(Length(from - centre), 4, 1e-5);
            // The chord of a 32nd of the circle.
            EXPECT_NEAR(Length(to - from), 2 * 4 * std::sin(kPi / 32), 1e-5);
            turned = turned + Cross(from - centre, to - centre);
        }
        // Twice the area of 32 triangles: each has two sides of 4 and a 32nd of the circle between.
        EXPECT_NEAR(std::fabs(turned.z), 32 * 4 * 4 * std::sin(2 * kPi / 32), 1e-3);
    }
    EXPECT_NE(At(mesh.edges, 0).z, At(mesh.edges, 64).z) << "one at each end";
}

TEST(TheMesh, ATipIsRoundedByTheFacetsThatMeetThere) {
    Solid cone;
    cone.shape = Shape::Cone;
    cone.diameter = 8;
    cone.top = 0;
    cone.length = 4;
    const Mesh mesh = MeshOfSolid(cone);
    ASSERT_EQ(mesh.normals.size(), mesh.points.size());
    // As wide as twice its height: a facet leans by its height to the distance of its middle from
    // the axis. A point of the rim lies between two facets, a 64th of a circle from each.
    const double facet = 1 / std::cos(kPi / 32);
    // At the tip those count whose normals are within 25 degrees. They are as the normals of a cone
    // of 45 degrees: (cos a + 1) / 2 > 0.906 for a below 35.7 degrees, which are three to each
    // side.
    const double step = 2 * kPi / 32;
    const double tip =
        facet * (1 + 2 * std::cos(step) + 2 * std::cos(2 * step) + 2 * std::cos(3 * step)) / 7;
    int atTip = 0, atRim = 0;
    for (std::size_t i = 0; i < mesh.points.size() / 3; ++i) {
        const Vec3 point = At(mesh.points, i), normal = At(mesh.normals, i);
        EXPECT_NEAR(Length(normal), 1, 1e-5);
        if (normal.z < 0) continue;  // the bottom
        const double outward = std::hypot(normal.x, normal.y);
        if (point.z > 3.9) {
            ++atTip;
            EXPECT_NEAR(outward / normal.z, tip, 1e-4);
        } else {
            ++atRim;
            EXPECT_NEAR(outward / normal.z, 1, 1e-4);
            EXPECT_NEAR(normal.x * point.x + normal.y * point.y, 4 * outward, 1e-4);
        }
    }
    EXPECT_EQ(atTip, 32) << "each facet has a normal of its own there";
    EXPECT_EQ(atRim, 32) << "where two facets share one";
}

class ThePartsMeshes : public ::testing::Test {
protected:
    ThePartsMeshes() {
        part_.partData.solids = {Box(100, {10, 20, 30}), Box(200, {1, 2, 3})};
        other_.partData.solids = {Box(100, {10, 20, 30})};
    }
    std::uint32_t NumberOf(const Model& part) { return meshes_.Of(part).number; }
    Model part_, other_;
    Meshes meshes_;
};

TEST_F(ThePartsMeshes, HaveANumberEach) {
    const std::uint32_t number = NumberOf(part_);
    EXPECT_NE(number, 0u);
    EXPECT_NE(NumberOf(other_), number) << "although they look the same";
    EXPECT_EQ(NumberOf(part_), number);
    EXPECT_EQ(meshes_.Of(part_).surfaces.size(), 12u) << "of two boxes";
}

TEST_F(ThePartsMeshes, AreOthersOnceAfterASolidHasChanged) {
    const std::uint32_t first = NumberOf(part_);
    part_.partData.solids[1].size.x = 5;
    const std::uint32_t changed = NumberOf(part_);
    EXPECT_NE(changed, first);
    EXPECT_EQ(NumberOf(part_), changed) << "what did not change since is not sent again";
    part_.partData.solids.pop_back();
    const std::uint32_t fewer = NumberOf(part_);
    EXPECT_NE(fewer, changed);
    EXPECT_EQ(meshes_.Of(part_).surfaces.size(), 6u);
    EXPECT_EQ(NumberOf(part_), fewer);
    part_.partData.solids.push_back(Box(200, {1, 2, 3}));
    EXPECT_NE(NumberOf(part_), fewer);
    EXPECT_EQ(meshes_.Of(part_).surfaces.size(), 12u);
}

TEST_F(ThePartsMeshes, StayWhileEachPictureShowsThem) {
    const std::uint32_t number = NumberOf(part_);
    for (int picture = 0; picture < 3; ++picture) {
        meshes_.Forget();
        EXPECT_EQ(NumberOf(part_), number);
    }
}

TEST_F(ThePartsMeshes, GoWhenAPictureDoesNotShowThem) {
    const std::uint32_t number = NumberOf(part_), other = NumberOf(other_);
    meshes_.Forget();
    EXPECT_EQ(NumberOf(other_), other);
    meshes_.Forget();
    EXPECT_NE(NumberOf(part_), number) << "made anew";
    EXPECT_EQ(NumberOf(other_), other) << "this one was shown";
}

}  // namespace
