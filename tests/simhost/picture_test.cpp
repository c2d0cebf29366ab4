// The picture: at every point the part that lies nearest to the viewer must be on top, what is
// hidden must be missing, and the text must be sound XML.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <set>

#include "simhost/app/picture.h"
#include "simhost/core/text.h"

using namespace simhost;

namespace {

Solid Block(Vec3 size, Vec3 at = {}, Vec3 turn = {}) {
    Solid solid;
    solid.id = 10;
    solid.shape = Shape::Box;
    solid.size = size;
    solid.at = at;
    solid.turn = turn;
    return solid;
}

Solid Gear(double module, int teeth, double width, double bore) {
    Solid solid;
    solid.id = 10;
    solid.shape = Shape::Gear;
    solid.module = module;
    solid.teeth = teeth;
    solid.width = width;
    solid.bore = bore;
    return solid;
}

Model& NewPart(Session* session, const char* name, const Solid& solid) {
    Model& part = session->Create(Wide(name), PRO_MDL_PART);
    part.solids.push_back(solid);
    return part;
}

Feature& Add(Model* assembly, Model* part, Vec3 at = {}, Vec3 turn = {}) {
    Feature feature;
    feature.type = PRO_FEAT_COMPONENT;
    feature.model = part;
    feature.file = part->FileName();
    feature.placement = PlacementFrom(at, turn);
    return assembly->AddFeature(feature);
}

int Count(const std::string& text, const std::string& what) {
    int count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
        ++count;
    }
    return count;
}

// --- Reading the picture back ---

struct Point {
    double x, y;
};
struct Area {
    std::string part;
    std::string fill;
    std::vector<Point> corners;
};

// What stands between two words, from *at on; *at moves behind it. Empty and *at npos: no more.
std::string Between(const std::string& text, const char* from, const char* to, std::size_t* at) {
    const std::size_t start = text.find(from, *at);
    *at = std::string::npos;
    if (start == std::string::npos) return "";
    const std::size_t first = start + std::string(from).size();
    const std::size_t end = text.find(to, first);
    if (end == std::string::npos) return "";
    *at = end;
    return text.substr(first, end - first);
}
std::string Between(const std::string& text, const char* from, const char* to) {
    std::size_t at = 0;
    return Between(text, from, to, &at);
}

// The closed polygons of a path.
std::vector<std::vector<Point>> PolygonsOf(const std::string& path) {
    std::vector<std::vector<Point>> polygons;
    for (const char* at = path.c_str(); *at;) {
        if (*at == 'Z') {
            ++at;
            continue;
        }
        if (*at == 'M') polygons.emplace_back();
        char* next = nullptr;
        const double x = std::strtod(at + 1, &next);
        const double y = std::strtod(next, &next);
        polygons.back().push_back({x, y});
        at = next;
    }
    return polygons;
}

// The painted areas in the order of painting, with the name of their part.
std::vector<Area> AreasOf(const std::string& svg) {
    std::vector<Area> areas;
    std::string part;
    for (std::size_t at = 0; at != std::string::npos;) {
        const std::string tag = Between(svg, "<", ">", &at);
        if (tag == "title") part = Between(svg.substr(at, 500), ">", "<");
        if (tag.rfind("path fill=\"#", 0) != 0) continue;
        for (const auto& polygon : PolygonsOf(Between(tag, " d=\"", "\""))) {
            areas.push_back({part, Between(tag, "fill=\"", "\""), polygon});
        }
    }
    return areas;
}

bool Contains(const std::vector<Point>& corners, Point p) {
    bool inside = false;
    for (std::size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
        const Point a = corners[i], b = corners[j];
        if ((a.y > p.y) == (b.y > p.y)) continue;
        if (p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x)) inside = !inside;
    }
    return inside;
}

std::string TopAt(const std::vector<Area>& areas, Point p) {
    for (auto area = areas.rbegin(); area != areas.rend(); ++area) {
        if (Contains(area->corners, p)) return area->part;
    }
    return "";
}

// --- The same by casting rays: no order, no cutting ---

struct Target {
    std::string part;
    std::vector<Vec3> corners;  // across, up, towards the viewer; in mm
};

Vec3 Seen(Vec3 v) {
    const double h = std::sqrt(0.5), s = std::sqrt(1.0 / 6), t = std::sqrt(1.0 / 3);
    return {h * (v.x + v.y), s * (-v.x + v.y + 2 * v.z), t * (v.x - v.y + v.z)};
}

std::vector<Target> TargetsOf(const Model& assembly) {
    std::vector<Target> targets;
    for (const Feature& feature : assembly.features()) {
        for (const Solid& solid : feature.model->solids) {
            for (const SolidFace& face : Faces(solid)) {
                for (const Facet& facet : face.facets) {
                    Target target{Utf8(feature.model->name), {}};
                    for (const Vec3& p : facet.corners) {
                        target.corners.push_back(Seen(feature.placement.Point(p)));
                    }
                    targets.push_back(std::move(target));
                }
            }
        }
    }
    return targets;
}

std::string NearestAt(const std::vector<Target>& targets, Point p) {
    std::string part;
    double nearest = -1e30;
    for (const Target& target : targets) {
        std::vector<Point> flat;
        for (const Vec3& c : target.corners) flat.push_back({c.x, c.y});
        if (!Contains(flat, p)) continue;
        Vec3 normal;
        for (std::size_t i = 2; i < target.corners.size(); ++i) {
            normal = normal + Cross(target.corners[i - 1] - target.corners[0],
                                    target.corners[i] - target.corners[0]);
        }
        if (std::fabs(normal.z) < 1e-12) continue;
        const Vec3 o = target.corners[0];
        const double depth = o.z - (normal.x * (p.x - o.x) + normal.y * (p.y - o.y)) / normal.z;
        if (depth <= nearest) continue;
        nearest = depth;
        part = target.part;
    }
    return part;
}

struct Range {
    double left = 1e30, right = -1e30, low = 1e30, high = -1e30;
    void Add(double x, double y) {
        left = std::min(left, x);
        right = std::max(right, x);
        low = std::min(low, y);
        high = std::max(high, y);
    }
};

// Compares the picture with rays on a grid of points. Only next to an edge (within a pixel) may
// they differ.
void ExpectRightOrder(Session& session, Model& assembly, int grid = 90) {
    const auto areas = AreasOf(IsometricSvg(session, assembly, 900));
    const auto targets = TargetsOf(assembly);
    Range picture, view;
    for (const Area& area : areas) {
        for (const Point& p : area.corners) picture.Add(p.x, p.y);
    }
    for (const Target& target : targets) {
        for (const Vec3& p : target.corners) view.Add(p.x, p.y);
    }
    const double scale = (picture.right - picture.left) / (view.right - view.left);
    ASSERT_NEAR((picture.high - picture.low) / (view.high - view.low), scale, 0.01 * scale);
    const auto ray = [&](Point p) {
        return NearestAt(targets, {view.left + (p.x - picture.left) / scale,
                                   view.high - (p.y - picture.low) / scale});
    };
    int checked = 0, wrong = 0;
    for (int i = 0; i < grid; ++i) {
        for (int j = 0; j < grid; ++j) {
            const Point p{picture.left + (i + 0.37) / grid * (picture.right - picture.left),
                          picture.low + (j + 0.61) / grid * (picture.high - picture.low)};
            const std::string seen = TopAt(areas, p);
            checked += !seen.empty();
            bool right = seen == ray(p);
            for (int k = 0; k < 8 && !right; ++k) {
                right = seen == ray({p.x + std::cos(k * 0.785398), p.y + std::sin(k * 0.785398)});
            }
            if (right) continue;
            if (++wrong <= 5) {
                ADD_FAILURE() << "at " << p.x << ' ' << p.y << ": " << seen << " over " << ray(p);
            }
        }
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(checked, grid * grid / 10);  // the picture is not empty
}

// A generator of our own, so that every system tries the same scenes.
struct Dice {
    unsigned long long state;
    double Next(double from, double to) {
        state = state * 6364136223846793005ull + 1442695040888963407ull;
        return from + (to - from) * double(state >> 40) / double(1 << 24);
    }
};

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

TEST(Picture, TheNearerOfTwoBoxesIsOnTop) {
    Session session;
    Model& top = session.Create(WIDE("top"), PRO_MDL_ASSEMBLY);
    Model& front = NewPart(&session, "front", Block({20, 20, 20}));
    Model& back = NewPart(&session, "back", Block({40, 20, 30}));
    Add(&top, &front, {0, -50, 0});
    Add(&top, &back);
    ExpectRightOrder(session, top);
}

TEST(Picture, BeamsThatCoverEachOtherInACircleAreCutOpen) {
    Session session;
    Model& top = session.Create(WIDE("circle"), PRO_MDL_ASSEMBLY);
    // Seen along the diagonal, each beam passes in front of the next one, all the way round.
    const Vec3 sizes[] = {{100, 10, 10}, {10, 100, 10}, {10, 10, 100}};
    const Vec3 places[] = {{0, 0, 15}, {80, 0, 0}, {60, 20, 0}};
    for (int i = 0; i < 3; ++i) {
        const std::string name = "beam" + std::to_string(i);
        Add(&top, &NewPart(&session, name.c_str(), Block(sizes[i])), places[i]);
    }
    ExpectRightOrder(session, top, 150);
    // The same in the view's own plane: three bars, each tilted over the next.
    Model& star = session.Create(WIDE("star"), PRO_MDL_ASSEMBLY);
    const Placement face = PlacementFrom({}, {54.735610317245346, 0, 0});
    const Placement view = Compose(PlacementFrom({}, {0, 0, 45}), face);
    for (int i = 0; i < 3; ++i) {
        const std::string name = "bar" + std::to_string(i);
        Feature& bar = Add(&star, &NewPart(&session, name.c_str(), Block({100, 12, 4})));
        const Placement tilted = PlacementFrom({-30, -25, 0}, {0, 12, 0});
        bar.placement = Compose(view, Compose(PlacementFrom({}, {0, 0, i * 120.0}), tilted));
    }
    ExpectRightOrder(session, star, 150);
}

TEST(Picture, SolidsThatPassThroughEachOtherAreCutWhereTheyMeet) {
    Session session;
    Model& top = session.Create(WIDE("cross"), PRO_MDL_ASSEMBLY);
    Add(&top, &NewPart(&session, "plate", Block({100, 100, 10}, {-50, -50, -5})));
    Add(&top, &NewPart(&session, "bar", Block({12, 12, 120}, {-6, -6, -60})), {}, {25, 30, 10});
    Add(&top, &NewPart(&session, "wall", Block({90, 8, 60}, {-45, 10, -30})), {}, {0, 10, 35});
    ExpectRightOrder(session, top, 150);
}

TEST(Picture, HeapsOfTurnedBoxesAreInOrder) {
    for (unsigned long long seed = 1; seed <= 6; ++seed) {
        Session session;
        Dice dice{seed};
        Model& top = session.Create(WIDE("heap"), PRO_MDL_ASSEMBLY);
        for (int i = 0; i < 30; ++i) {
            const std::string name = "box" + std::to_string(i);
            const Vec3 size{dice.Next(5, 60), dice.Next(5, 30), dice.Next(5, 30)};
            const Vec3 at{dice.Next(-60, 60), dice.Next(-60, 60), dice.Next(-60, 60)};
            const Vec3 turn{dice.Next(0, 360), dice.Next(-90, 90), dice.Next(0, 360)};
            Add(&top, &NewPart(&session, name.c_str(), Block(size)), at, turn);
        }
        SCOPED_TRACE(seed);
        ExpectRightOrder(session, top);
    }
}

TEST(Picture, GearsThatMeshAreInOrder) {
    Session session;
    Model& top = session.Create(WIDE("stage"), PRO_MDL_ASSEMBLY);
    Model& pinion = NewPart(&session, "pinion", Gear(4, 15, 30, 12));
    Model& wheel = NewPart(&session, "wheel", Gear(4, 32, 26, 40));
    Add(&top, &pinion, {0, 0, 0}, {90, 0, 0});
    Add(&top, &wheel, {94, -2, 0}, {90, 180.0 / 32, 0});  // 4 (15 + 32) / 2
    ExpectRightOrder(session, top, 130);
}

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

    const std::string svg = IsometricSvg(session, top, 600);
    std::set<std::string> shown;
    for (const Area& area : AreasOf(svg)) shown.insert(area.part);
    EXPECT_EQ(shown, (std::set<std::string>{"PART0", "PART6"}));
    EXPECT_NE(svg.find(">2 parts, scale "), std::string::npos);
}

TEST(Picture, PlacesPartsThroughSubAssembliesAndFindsThemByFile) {
    Session session;
    Model& top = session.Create(WIDE("top"), PRO_MDL_ASSEMBLY);
    Model& unit = session.Create(WIDE("unit"), PRO_MDL_ASSEMBLY);
    Model& cube = NewPart(&session, "cube", Block({10, 10, 10}));
    Add(&unit, &cube, {20, 0, 0}).model = nullptr;  // only its file name is known
    Add(&top, &unit, {0, 0, 50}, {0, 0, 90});
    Add(&top, &cube);

    const auto areas = AreasOf(IsometricSvg(session, top, 900));
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
    const std::string part = IsometricSvg(session, cube, 400);
    EXPECT_EQ(AreasOf(part).size(), 3u);
    EXPECT_NE(part.find(">1 part, scale "), std::string::npos);

    Model& top = session.Create(WIDE("top"), PRO_MDL_ASSEMBLY);
    Add(&top, &cube);
    Model& work = session.Create(WIDE("work"), PRO_MDL_MFG);
    work.manufactured = &top;
    EXPECT_EQ(AreasOf(IsometricSvg(session, work, 400)).size(), 3u);
}

TEST(Picture, SaysSoWhenThereIsNothingToShow) {
    Session session;
    Model& top = session.Create(WIDE("empty"), PRO_MDL_ASSEMBLY);
    const std::string svg = IsometricSvg(session, top, 400);
    EXPECT_NE(svg.find("nothing to show"), std::string::npos);
    EXPECT_EQ(svg.find("scale"), std::string::npos);
    EXPECT_TRUE(IsSoundXml(svg)) << svg;
}

TEST(Picture, AnAssemblyThatContainsItselfComesToAnEnd) {
    Session session;
    Model& top = session.Create(WIDE("loop"), PRO_MDL_ASSEMBLY);
    Add(&top, &top, {100, 0, 0});
    Add(&top, &NewPart(&session, "cube", Block({10, 10, 10})));
    EXPECT_EQ(AreasOf(IsometricSvg(session, top, 400)).size(), 3u);
}

TEST(Picture, ASurfacesOwnColourComesBeforeThePartsAndThatBeforeTheUsualOne) {
    Session session;
    Model& cube = NewPart(&session, "cube", Block({10, 10, 10}));
    const auto channels = [&] {
        // What dominates in the three sides: +x is surface 12, -y is 13, +z is 16.
        std::multiset<char> result;
        for (const Area& area : AreasOf(IsometricSvg(session, cube, 400))) {
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
    for (const Area& area : AreasOf(IsometricSvg(session, cube, 400))) {
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
    EXPECT_EQ(AreasOf(IsometricSvg(session, top, 400)).size(), 3u);  // the core is hidden

    glass.appearance = DefaultAppearance();
    glass.appearance->transparency = 0.6;
    const std::string svg = IsometricSvg(session, top, 400);
    const auto areas = AreasOf(svg);
    ASSERT_EQ(areas.size(), 9u);  // the far sides, the core, the near sides
    for (std::size_t i = 0; i < areas.size(); ++i) {
        EXPECT_EQ(areas[i].part, i / 3 == 1 ? "CORE" : "GLASS") << i;
    }
    EXPECT_EQ(Count(svg, "fill-opacity=\".4\""), 6);

    glass.appearance->transparency = 1;  // nothing left of it
    EXPECT_EQ(AreasOf(IsometricSvg(session, top, 400)).size(), 3u);
}

TEST(Picture, NamesAreTooltipsAndSafeInXml) {
    Session session;
    Model& part = NewPart(&session, "A&B", Block({10, 10, 10}));
    part.title = "箱体 <\"1\"> \x02 & more";
    const std::string svg = IsometricSvg(session, part, 400);
    EXPECT_NE(svg.find("<title>A&amp;B – 箱体 &lt;&quot;1&quot;&gt;   &amp; more</title>"),
              std::string::npos);
    EXPECT_TRUE(IsSoundXml(svg)) << svg;
}

TEST(Picture, IsSoundXmlWithShortNumbersAndAlwaysTheSame) {
    Session session;
    Model& top = session.Create(WIDE("stage"), PRO_MDL_ASSEMBLY);
    Add(&top, &NewPart(&session, "wheel", Gear(2.5, 21, 7, 9)), {1, 2, 3}, {10, 20, 30});
    Add(&top, &NewPart(&session, "plate", Block({71, 33, 3.3})), {-30, 0, 0}, {0, 17, 0});
    const std::string svg = IsometricSvg(session, top, 777);
    EXPECT_TRUE(IsSoundXml(svg));
    for (std::size_t at = svg.find('.'); at != std::string::npos; at = svg.find('.', at + 1)) {
        EXPECT_LE(svg.find_first_not_of("0123456789", at + 1), at + 3) << svg.substr(at - 9, 20);
    }
    EXPECT_EQ(svg.find("nan"), std::string::npos);
    EXPECT_NE(svg.find("width=\"777\""), std::string::npos);
    EXPECT_EQ(IsometricSvg(session, top, 777), svg);
}

TEST(Picture, TheScaleIsTrueAndTheModelFillsTheWidth) {
    for (const double size : {0.02, 3.0, 40.0, 1234.5, 90000.0}) {
        Session session;
        Model& cube = NewPart(&session, "cube", Block({size, size, size}));
        const std::string svg = IsometricSvg(session, cube, 800);
        Range picture;
        for (const Area& area : AreasOf(svg)) {
            for (const Point& p : area.corners) picture.Add(p.x, p.y);
        }
        const std::string drawn = Between(svg, "scale ", " : ");
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
    const std::string svg = IsometricSvg(session, part, 400);
    // Six lines of the top, and four of each of the three sides that are turned to the viewer. The
    // triangles of the top would have twelve.
    int lines = 0;
    for (std::size_t at = 0; at != std::string::npos;) {
        const std::string path = Between(svg, "<path fill=\"none\"", "/>", &at);
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
