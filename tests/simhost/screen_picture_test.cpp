// The picture of the screen and boxes on it have one view; an assembly's look covers its parts'.
#include <gtest/gtest.h>

#include "simhost/model/picking.h"
#include "simhost/model/screen_view.h"
#include "simhost/picture/isometric.h"
#include "simhost/picture/svg_canvas.h"
#include "tests/simhost/picture_models.h"
#include "tests/simhost/picture_reader.h"

using namespace picture;
using namespace simhost;

namespace {

constexpr double kRuler = 40, kHeight = 800;

// Where a part is seen, in the coordinates of the ruler.
Range OnScreen(const std::string& svg, const std::string& part) {
    Range range;
    for (const Area& area : AreasOf(svg)) {
        if (area.part != part) continue;
        for (const Point& p : area.corners) range.Add(p.x - kRuler, kHeight + kRuler - p.y);
    }
    return range;
}

std::size_t InBox(Session& session, const ScreenBox& box) {
    Picking picking(session, "part", -1, /*byBox=*/true);
    picking.TakeBox(box);
    return picking.taken().size();
}

class ScreenPictures : public ::testing::Test {
protected:
    ScreenPictures() {
        Add(&top_, &NewPart(&session_, "left", Block({20, 10, 10})), {-60, 0, 0});
        Add(&top_, &NewPart(&session_, "right", Block({10, 30, 10})), {60, 0, 0});
        session_.Open(top_);
    }
    std::string Svg() { return SvgOf(ScreenPicture(top_)); }
    Session session_;
    Model& top_ = session_.Create(WIDE("top"), PRO_MDL_ASSEMBLY);
};

TEST_F(ScreenPictures, ABoxAroundWhatIsSeenOfAPartTakesItAndASmallerOneDoesNot) {
    const auto check = [&] {
        for (const char* part : {"LEFT", "RIGHT"}) {
            const Range seen = OnScreen(Svg(), part);
            ASSERT_LT(seen.left, seen.right) << part;
            const ScreenBox around{seen.left - 0.5, seen.low - 0.5, seen.right + 0.5,
                                   seen.high + 0.5};
            EXPECT_EQ(InBox(session_, around), 1u) << part;
            ScreenBox narrow = around;
            narrow.x1 -= 1;
            EXPECT_EQ(InBox(session_, narrow), 0u) << part;
            ScreenBox flat = around;
            flat.y0 += 1;
            EXPECT_EQ(InBox(session_, flat), 0u) << part;
        }
    };
    check();
    // From the front, twice as large, and moved.
    Placement front;
    front.axes = {Vec3{1, 0, 0}, Vec3{0, 0, -1}, Vec3{0, 1, 0}};
    SetMatrix(front, 2, {300, 250, 0}, ScreenOf(top_).matrix);
    check();
    EXPECT_NEAR(OnScreen(Svg(), "LEFT").left, 300 - 2 * 60, 0.1);
    EXPECT_NEAR(OnScreen(Svg(), "LEFT").high, 250 + 2 * 10, 0.1);
}

TEST_F(ScreenPictures, TheViewStaysWhenAPartIsHidden) {
    const Range before = OnScreen(Svg(), "RIGHT");
    top_.MutableFeatures()[0].hidden = true;
    const Range now = OnScreen(Svg(), "RIGHT");
    EXPECT_EQ(now.left, before.left);
    EXPECT_EQ(now.high, before.high);
    EXPECT_EQ(OnScreen(Svg(), "LEFT").right, -1e30);
}

TEST_F(ScreenPictures, TheRulerRunsFromZeroToTheScreensEnds) {
    const std::string svg = Svg();
    for (const char* number : {">0<", ">500<", ">800<", ">1000<"}) {
        EXPECT_NE(svg.find(number), std::string::npos) << number;
    }
    EXPECT_EQ(svg.find(">1050<"), std::string::npos);
}

TEST_F(ScreenPictures, AnAssemblysLookCoversThoseOfItsPartsAndTheirSurfaces) {
    ProdbSurfaceProps red = DefaultAppearance();
    red.colour[1] = red.colour[2] = 0;
    red.highlight = 0;
    Model& left = *top_.features()[0].model;
    left.appearance = DefaultAppearance();
    left.partData.surfaceAppearances[16] = DefaultAppearance();
    const auto grey = [&] {
        int count = 0;
        for (const Area& area : AreasOf(IsometricSvg(top_, 400))) {
            count += area.fill.substr(1, 2) == area.fill.substr(3, 2);
        }
        return count;
    };
    EXPECT_EQ(grey(), 6);
    top_.appearance = red;
    EXPECT_EQ(grey(), 0);
    EXPECT_EQ(AreasOf(IsometricSvg(top_, 400)).size(), 6u);
    // One looks into both: what is turned away is painted, too.
    top_.appearance->transparency = 0.618;
    EXPECT_EQ(AreasOf(IsometricSvg(top_, 400)).size(), 12u);
}

}  // namespace
