// The picture: what is shown and in which colours, what is left out, and that the text is sound
// XML.
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "simhost/picture/isometric.h"
#include "tests/simhost/picture_models.h"
#include "tests/simhost/picture_reader.h"

using namespace picture;
using namespace simhost;

namespace {

// Every tag closed by its own kind, and no stray sign in between.
bool IsSoundXml(const std::string& text) {
    std::vector<std::string> open;
    std::size_t at = text.rfind("<?xml", 0) == 0 ? text.find("?>") + 2 : std::string::npos;
    while (at < text.size()) {
        if (text[at] == '&') {
            const std::string entity = text.substr(at, text.find(';', at) - at + 1);
            if (entity != "&amp;" && entity != "&lt;" && entity != "&gt;" && entity != "&quot;") {
                return false;
            }
        }
        if (text[at] == '>') return false;
        if (text[at] != '<') {
            ++at;
            continue;
        }
        const std::size_t end = text.find('>', at);
        if (end == std::string::npos || text.find('<', at + 1) < end) return false;
        const std::string tag = text.substr(at + 1, end - at - 1);
        const std::string name = tag.substr(0, tag.find_first_of(" /", 1));
        if (tag[0] == '/') {
            if (open.empty() || open.back() != tag.substr(1)) return false;
            open.pop_back();
        } else if (tag.back() != '/') {
            open.push_back(name);
        }
        if (Count(tag, "\"") % 2 != 0) return false;
        at = end + 1;
    }
    return open.empty() && at != std::string::npos;
}

}  // namespace

TEST(Picture, LeavesOutWhatIsNotShown) {
    Session session;
    Model& top = session.Create(WIDE("top"), PRO_MDL_ASSEMBLY);
    int number = 0;
    const auto add = [&]() -> Feature& {
        const std::string name = "part" + std::to_string(number++);
        return Add(&top, &NewPart(&session, name.c_str(), Block({5, 5, 5})), {number * 10.0, 0, 0});
    };
    add();
    add().status = PRO_FEAT_SUPPRESSED;
    add().status = PRO_FEAT_INACTIVE;
    add().status = PRO_FEAT_SIMPREP_SUPPRESSED;
    add().hidden = true;
    add().visible = false;
    Feature absent;
    absent.type = PRO_FEAT_COMPONENT;
    absent.file = "nowhere.prt";
    top.AddFeature(absent);
    Feature datum;
    datum.type = 979;
    top.AddFeature(datum);
    session.Create(WIDE("bare"), PRO_MDL_PART);
    Add(&top, session.FindByFile("bare.prt"));
    add();

    const std::string svg = IsometricSvg(top, 600);
    std::set<std::string> shown;
    for (const Area& area : AreasOf(svg)) shown.insert(area.part);
    EXPECT_EQ(shown, (std::set<std::string>{"PART0", "PART6"}));
    EXPECT_NE(svg.find(">2 个零件，比例 "), std::string::npos);
}

TEST(Picture, PlacesPartsThroughSubAssembliesAndFindsThemByFile) {
    Session session;
    Model& top = session.Create(WIDE("top"), PRO_MDL_ASSEMBLY);
    Model& unit = session.Create(WIDE("unit"), PRO_MDL_ASSEMBLY);
    Model& cube = NewPart(&session, "cube", Block({10, 10, 10}));
    Add(&unit, &cube, {20, 0, 0}).model = nullptr;  // only its file name is known
    Add(&top, &unit, {0, 0, 50}, {0, 0, 90});
    Add(&top, &cube);

    const auto areas = AreasOf(IsometricSvg(top, 900));
    // A cube has three sides to look at. The upper one's frame is at (0, 20, 50), turned by 90
    // degrees: it spans -10..0, 20..30, 50..60.
    ASSERT_EQ(areas.size(), 6u);
    Range picture, view;
    for (const Area& area : areas) {
        for (const Point& p : area.corners) picture.Add(p.x, p.y);
    }
    for (const double x : {0.0, 10.0}) {
        for (const double y : {0.0, 10.0}) {
            for (const double z : {0.0, 10.0}) {
                const Vec3 a = Seen({x, y, z}), b = Seen({x - 10, y + 20, z + 50});
                view.Add(a.x, a.y);
                view.Add(b.x, b.y);
            }
        }
    }
    EXPECT_NEAR((picture.right - picture.left) / (picture.high - picture.low),
                (view.right - view.left) / (view.high - view.low), 1e-3);
}

TEST(Picture, ShowsThePartItselfAndAManufacturingModelsAssembly) {
    Session session;
    Model& cube = NewPart(&session, "cube", Block({10, 10, 10}));
    const std::string part = IsometricSvg(cube, 400);
    EXPECT_EQ(AreasOf(part).size(), 3u);
    EXPECT_NE(part.find(">1 个零件，比例 "), std::string::npos);

    Model& top = session.Create(WIDE("top"), PRO_MDL_ASSEMBLY);
    Add(&top, &cube);
    Model& work = session.Create(WIDE("work"), PRO_MDL_MFG);
    work.manufactured = &top;
    EXPECT_EQ(AreasOf(IsometricSvg(work, 400)).size(), 3u);
}

TEST(Picture, SaysSoWhenThereIsNothingToShow) {
    Session session;
    Model& top = session.Create(WIDE("empty"), PRO_MDL_ASSEMBLY);
    const std::string svg = IsometricSvg(top, 400);
    EXPECT_NE(svg.find("没有可显示的零件"), std::string::npos);
    EXPECT_EQ(svg.find("比例"), std::string::npos);
    EXPECT_TRUE(IsSoundXml(svg)) << svg;
}

TEST(Picture, AnAssemblyThatContainsItselfComesToAnEnd) {
    Session session;
    Model& top = session.Create(WIDE("loop"), PRO_MDL_ASSEMBLY);
    Add(&top, &top, {100, 0, 0});
    Add(&top, &NewPart(&session, "cube", Block({10, 10, 10})));
    EXPECT_EQ(AreasOf(IsometricSvg(top, 400)).size(), 3u);
}

TEST(Picture, ASurfacesOwnColourComesBeforeThePartsAndThatBeforeTheUsualOne) {
    Session session;
    Model& cube = NewPart(&session, "cube", Block({10, 10, 10}));
    const auto channels = [&] {
        // What dominates in the three sides: +x is surface 12, -y is 13, +z is 16.
        std::multiset<char> result;
        for (const Area& area : AreasOf(IsometricSvg(cube, 400))) {
            const int red = std::stoi(area.fill.substr(1, 2), nullptr, 16);
            const int green = std::stoi(area.fill.substr(3, 2), nullptr, 16);
            const int blue = std::stoi(area.fill.substr(5, 2), nullptr, 16);
            result.insert(red == green && green == blue ? 'w' : red > blue ? 'r' : 'b');
        }
        return result;
    };
    EXPECT_EQ(channels(), (std::multiset<char>{'w', 'w', 'w'}));
    ProdbSurfaceProps red = DefaultAppearance();
    red.colour[0] = 1;
    red.colour[1] = red.colour[2] = 0;
    red.highlight = 0;
    cube.appearance = red;
    EXPECT_EQ(channels(), (std::multiset<char>{'r', 'r', 'r'}));
    ProdbSurfaceProps blue = red;
    blue.colour[0] = 0;
    blue.colour[2] = 1;
    cube.surfaceAppearances[16] = blue;
    cube.surfaceAppearances[11] = blue;  // turned away
    EXPECT_EQ(channels(), (std::multiset<char>{'r', 'r', 'b'}));
}

TEST(Picture, LightComesFromTheUpperLeft) {
    Session session;
    Model& cube = NewPart(&session, "cube", Block({10, 10, 10}));
    int left = 0, right = 0, upper = 0;
    for (const Area& area : AreasOf(IsometricSvg(cube, 400))) {
        double x = 0;  // of the middle
        for (const Point& p : area.corners) x += p.x / 4;
        const int light = std::stoi(area.fill.substr(1, 2), nullptr, 16);
        if (std::fabs(x - 200) < 1) {
            upper = light;
        } else {
            (x < 200 ? left : right) = light;
        }
    }
    EXPECT_GT(upper, left);
    EXPECT_GT(left, right);
    EXPECT_GT(right, 0);
}

TEST(Picture, OneLooksThroughATransparentPart) {
    Session session;
    Model& glass = NewPart(&session, "glass", Block({40, 40, 40}));
    Model& core = NewPart(&session, "core", Block({10, 10, 10}, {15, 15, 15}));
    Model& top = session.Create(WIDE("top"), PRO_MDL_ASSEMBLY);
    Add(&top, &glass);
    Add(&top, &core);
    EXPECT_EQ(AreasOf(IsometricSvg(top, 400)).size(), 3u);  // the core is hidden

    glass.appearance = DefaultAppearance();
    glass.appearance->transparency = 0.6;
    const std::string svg = IsometricSvg(top, 400);
    const auto areas = AreasOf(svg);
    ASSERT_EQ(areas.size(), 9u);  // the far sides, the core, the near sides
    for (std::size_t i = 0; i < areas.size(); ++i) {
        EXPECT_EQ(areas[i].part, i / 3 == 1 ? "CORE" : "GLASS") << i;
    }
    EXPECT_EQ(Count(svg, "fill-opacity=\".4\""), 6);

    glass.appearance->transparency = 1;  // nothing left of it
    EXPECT_EQ(AreasOf(IsometricSvg(top, 400)).size(), 3u);
}

TEST(Picture, NamesAreTooltipsAndSafeInXml) {
    Session session;
    Model& part = NewPart(&session, "A&B", Block({10, 10, 10}));
    part.title = "箱体 <\"1\"> \x02 & more";
    const std::string svg = IsometricSvg(part, 400);
    EXPECT_NE(svg.find("<title>A&amp;B – 箱体 &lt;&quot;1&quot;&gt;   &amp; more</title>"),
              std::string::npos);
    EXPECT_TRUE(IsSoundXml(svg)) << svg;
}

TEST(Picture, IsSoundXmlWithShortNumbersAndAlwaysTheSame) {
    Session session;
    Model& top = session.Create(WIDE("stage"), PRO_MDL_ASSEMBLY);
    Add(&top, &NewPart(&session, "wheel", Gear(2.5, 21, 7, 9)), {1, 2, 3}, {10, 20, 30});
    Add(&top, &NewPart(&session, "plate", Block({71, 33, 3.3})), {-30, 0, 0}, {0, 17, 0});
    const std::string svg = IsometricSvg(top, 777);
    EXPECT_TRUE(IsSoundXml(svg));
    for (std::size_t at = svg.find('.'); at != std::string::npos; at = svg.find('.', at + 1)) {
        EXPECT_LE(svg.find_first_not_of("0123456789", at + 1), at + 3) << svg.substr(at - 9, 20);
    }
    EXPECT_EQ(svg.find("nan"), std::string::npos);
    EXPECT_NE(svg.find("width=\"777\""), std::string::npos);
    EXPECT_EQ(IsometricSvg(top, 777), svg);
}

TEST(Picture, TheScaleIsTrueAndTheModelFillsTheWidth) {
    for (const double size : {0.02, 3.0, 40.0, 1234.5, 90000.0}) {
        Session session;
        Model& cube = NewPart(&session, "cube", Block({size, size, size}));
        const std::string svg = IsometricSvg(cube, 800);
        Range picture;
        for (const Area& area : AreasOf(svg)) {
            for (const Point& p : area.corners) picture.Add(p.x, p.y);
        }
        const std::string drawn = Between(svg, "比例 ", " : ");
        const std::string real = Between(svg, (drawn + " : ").c_str(), "<");
        const double scale = std::stod(drawn) / std::stod(real);
        // Across, an isometric cube measures the square root of two times its edge.
        const double width = size * std::sqrt(2.0) * scale / 25.4 * 96;
        EXPECT_NEAR(picture.right - picture.left, width, 0.02);
        EXPECT_GT(width, 0.85 * 800 * 0.9);
        EXPECT_LT(picture.right, 800);
        EXPECT_GT(picture.left, 0);
        EXPECT_NEAR(picture.left, 800 - picture.right, 0.02);
    }
}

TEST(Picture, EdgesBetweenSurfacesAreDrawnButNotThoseWithinOne) {
    Session session;
    // A bent outline is cut into triangles: their common edges are not to be seen.
    Solid bent;
    bent.id = 10;
    bent.shape = Shape::Prism;
    bent.outline = {{0, 0}, {30, 0}, {30, 5}, {5, 5}, {5, 20}, {0, 20}};
    bent.height = 4;
    Model& part = NewPart(&session, "bent", bent);
    const std::string svg = IsometricSvg(part, 400);
    // Six lines of the top, and four of each of the three sides that are turned to the viewer. The
    // triangles of the top would have twelve. The part's group ends before the axes.
    const std::string painted = svg.substr(0, svg.find("</g>"));
    int lines = 0;
    for (std::size_t at = 0; at != std::string::npos;) {
        const std::string path = Between(painted, "<path fill=\"none\"", "/>", &at);
        lines += Count(Between(path, " d=\"", "\""), "L");
    }
    EXPECT_EQ(lines, 18) << svg;
}

TEST(Picture, ColourTextHasRoundedBytes) {
    ProdbSurfaceProps props = DefaultAppearance();
    props.colour[0] = 63.4 / 255;
    props.colour[1] = 101.5 / 255;
    props.colour[2] = 241.0 / 255;
    EXPECT_EQ(ColourText(props), "63.102.241");
    props.colour[0] = 0;
    props.colour[1] = 1;
    props.colour[2] = 1.7;
    EXPECT_EQ(ColourText(props), "0.255.255");
}
