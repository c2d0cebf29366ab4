// Numbers from one unit into another, and which numbers of a solid those are.
#include <gtest/gtest.h>

#include <cmath>

#include "simhost/model/imported_body.h"
#include "simhost/model/units.h"

namespace {

using namespace simhost;

constexpr double kInch = 25.4;

// --- Arithmetic ---

TEST(Conversion, OfTheSameUnitGivesTheVeryNumberBack) {
    for (const double number : {0.1 + 0.2, 1.0 / 3, -7e-300, 39.99999999999999}) {
        EXPECT_EQ(Converted(number, kInch, kInch), number);
    }
}

TEST(Conversion, OfAnInchIsExact) {
    EXPECT_EQ(Converted(25.4, 1, kInch), 1);
    EXPECT_EQ(Converted(1, kInch, 1), 25.4);
    EXPECT_EQ(Converted(1, 304.8, kInch), 12);
    EXPECT_EQ(Converted(0, kInch, 1), 0);
    EXPECT_EQ(Converted(-50.8, 1, kInch), -2);
    EXPECT_EQ(Converted(2.5, 1000, 1), 2500);
}

TEST(Conversion, ThereAndBackLeavesNoTail) {
    const double units[] = {0.001, 1, 10, 1000, kInch, 304.8};
    for (int i = 1; i <= 4000; ++i) {
        const double number = i / 8.0;
        for (const double from : units) {
            for (const double to : units) {
                ASSERT_EQ(Converted(Converted(number, from, to), to, from), number)
                    << number << " of " << from << " by " << to;
            }
        }
    }
}

TEST(Conversion, AChainThroughAllUnitsEndsWhereItBegan) {
    const double chain[] = {1, kInch, 304.8, 1000, 10, 0.001, 1};
    for (const double number : {40.0, 1.0 / 3, 12.345678901234567, 1e-7, 99999.5}) {
        double at = number;
        for (std::size_t i = 1; i < std::size(chain); ++i) {
            at = Converted(at, chain[i - 1], chain[i]);
        }
        EXPECT_NEAR(at, number, 1e-12 * number);
    }
    double forty = 40;
    for (std::size_t i = 1; i < std::size(chain); ++i) {
        forty = Converted(forty, chain[i - 1], chain[i]);
    }
    EXPECT_EQ(forty, 40);
}

TEST(Conversion, DoesNotRoundWhatIsNoShortNumber) {
    // A third differs from its first twelve digits by far more than a rounding.
    EXPECT_EQ(Converted(1.0 / 3, 1, 10), 1.0 / 3 / 10);
    EXPECT_EQ(Converted(10, 1, kInch), 10 / kInch);
    EXPECT_TRUE(std::isnan(Converted(NAN, 1, kInch)));
}

// --- Which numbers of a solid are lengths: all that its corners follow ---

Solid Made(Shape shape) {
    Solid solid;
    solid.id = 10;
    solid.shape = shape;
    solid.at = {3, -4, 5};
    solid.turn = {10, 20, 30};
    switch (shape) {
        case Shape::Box: solid.size = {10, 20, 30}; break;
        case Shape::Cylinder:
            solid.diameter = 8;
            solid.length = 30;
            break;
        case Shape::Tube:
            solid.outer = 20;
            solid.inner = 12;
            solid.length = 7;
            break;
        case Shape::Cone:
            solid.diameter = 9;
            solid.top = 4;
            solid.length = 11;
            break;
        case Shape::Gear:
            solid.teeth = 21;
            solid.module = 2.5;
            solid.width = 18;
            solid.bore = 20;
            break;
        case Shape::Prism:
            solid.outline = {{0, 0}, {40, 0}, {40, 6}, {6, 6}, {6, 30}, {0, 30}};
            solid.height = 15;
            break;
        case Shape::Imported: {
            ImportedBody body;
            body.points = {{0, 0, 0}, {40, 0, 0}, {0, 30, 10}};
            body.faces.emplace_back().triangles = {{0, 1, 2}};
            solid.body = std::make_shared<ImportedBody>(std::move(body));
            solid.scale = 0.5;
            break;
        }
    }
    return solid;
}

TEST(LengthsOfASolid, AreAllThatItsCornersFollow) {
    for (const Shape shape : {Shape::Box, Shape::Cylinder, Shape::Tube, Shape::Cone, Shape::Gear,
                              Shape::Prism, Shape::Imported}) {
        SCOPED_TRACE(ShapeName(shape));
        const Solid before = Made(shape);
        Solid after = before;
        ConvertLengths(&after, kInch, 1);
        EXPECT_EQ(after.turn, before.turn);
        EXPECT_EQ(after.teeth, before.teeth);
        const auto small = Faces(before), large = Faces(after);
        ASSERT_EQ(small.size(), large.size());
        for (std::size_t face = 0; face < small.size(); ++face) {
            for (std::size_t f = 0; f < small[face].facets.size(); ++f) {
                const auto& corners = small[face].facets[f].corners;
                for (std::size_t i = 0; i < corners.size(); ++i) {
                    const Vec3 p = kInch * corners[i], q = large[face].facets[f].corners[i];
                    ASSERT_NEAR(p.x, q.x, 1e-9);
                    ASSERT_NEAR(p.y, q.y, 1e-9);
                    ASSERT_NEAR(p.z, q.z, 1e-9);
                }
            }
        }
    }
}

}  // namespace
