// The order of painting: at every point of a picture the part that lies nearest to the viewer must
// be on top. Rays tell which one that is.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/picture/isometric.h"
#include "tests/simhost/picture_models.h"
#include "tests/simhost/picture_reader.h"

using namespace picture;
using namespace simhost;

namespace {

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

// Compares the picture with rays on a grid of points. Only next to an edge (within a pixel) may
// they differ.
void ExpectRightOrder(Model& assembly, int grid = 90) {
    const auto areas = AreasOf(IsometricSvg(assembly, 900));
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

}  // namespace

TEST(PictureOrder, TheNearerOfTwoBoxesIsOnTop) {
    Session session;
    Model& top = session.Create(WIDE("top"), PRO_MDL_ASSEMBLY);
    Model& front = NewPart(&session, "front", Block({20, 20, 20}));
    Model& back = NewPart(&session, "back", Block({40, 20, 30}));
    Add(&top, &front, {0, -50, 0});
    Add(&top, &back);
    ExpectRightOrder(top);
}

TEST(PictureOrder, BeamsThatCoverEachOtherInACircleAreCutOpen) {
    Session session;
    Model& top = session.Create(WIDE("circle"), PRO_MDL_ASSEMBLY);
    // Seen along the diagonal, each beam passes in front of the next one, all the way round.
    const Vec3 sizes[] = {{100, 10, 10}, {10, 100, 10}, {10, 10, 100}};
    const Vec3 places[] = {{0, 0, 15}, {80, 0, 0}, {60, 20, 0}};
    for (int i = 0; i < 3; ++i) {
        const std::string name = "beam" + std::to_string(i);
        Add(&top, &NewPart(&session, name.c_str(), Block(sizes[i])), places[i]);
    }
    ExpectRightOrder(top, 150);
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
    ExpectRightOrder(star, 150);
}

TEST(PictureOrder, SolidsThatPassThroughEachOtherAreCutWhereTheyMeet) {
    Session session;
    Model& top = session.Create(WIDE("cross"), PRO_MDL_ASSEMBLY);
    Add(&top, &NewPart(&session, "plate", Block({100, 100, 10}, {-50, -50, -5})));
    Add(&top, &NewPart(&session, "bar", Block({12, 12, 120}, {-6, -6, -60})), {}, {25, 30, 10});
    Add(&top, &NewPart(&session, "wall", Block({90, 8, 60}, {-45, 10, -30})), {}, {0, 10, 35});
    ExpectRightOrder(top, 150);
}

TEST(PictureOrder, HeapsOfTurnedBoxesAreInOrder) {
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
        ExpectRightOrder(top);
    }
}

TEST(PictureOrder, GearsThatMeshAreInOrder) {
    Session session;
    Model& top = session.Create(WIDE("stage"), PRO_MDL_ASSEMBLY);
    Model& pinion = NewPart(&session, "pinion", Gear(4, 15, 30, 12));
    Model& wheel = NewPart(&session, "wheel", Gear(4, 32, 26, 40));
    Add(&top, &pinion, {0, 0, 0}, {90, 0, 0});
    Add(&top, &wheel, {94, -2, 0}, {90, 180.0 / 32, 0});  // 4 (15 + 32) / 2
    ExpectRightOrder(top, 130);
}
