// Cuts the patches of a picture where they pass through each other, and lays them down from the
// back to the front.
//
// Two patches need an order only where one covers the other on the screen. Each pair is compared
// there; a pair that crosses is cut. What is left is a graph that can be walked from the back.
// Patches that cover each other in a circle go through a BSP tree, which cuts the circle open.
#include "simhost/picture/paint_order.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "simhost/user/progress.h"

namespace simhost {

namespace {

// In pixels.
constexpr double kNoDepth = 1e-3;  // patches that are closer than this touch
constexpr double kCellSize = 24;   // of the grid that finds patches near each other

// --- Which of two patches is in front ---

double DepthAt(const Patch& patch, Vec3 p) {
    const Vec3 from = patch.corners[0];
    return from.z -
           (patch.normal.x * (p.x - from.x) + patch.normal.y * (p.y - from.y)) / patch.normal.z;
}

// What two patches share on the screen: the first one cut along the sides of the other.
void Overlap(const Patch& a, const Patch& b, std::vector<Vec3>* shared) {
    static thread_local std::vector<Vec3> input;
    *shared = a.corners;
    for (std::size_t i = 0; i < b.corners.size() && shared->size() > 2; ++i) {
        const Vec3 from = b.corners[i], to = b.corners[(i + 1) % b.corners.size()];
        const auto side = [&](Vec3 p) {
            return (to.x - from.x) * (p.y - from.y) - (to.y - from.y) * (p.x - from.x);
        };
        input.swap(*shared);
        shared->clear();
        for (std::size_t k = 0; k < input.size(); ++k) {
            const Vec3 p = input[k], q = input[(k + 1) % input.size()];
            const double sp = side(p), sq = side(q);
            if (sp >= 0) shared->push_back(p);
            if ((sp > 0 && sq < 0) || (sp < 0 && sq > 0)) {
                shared->push_back(p + sp / (sp - sq) * (q - p));
            }
        }
    }
}

enum class Relation { Apart, InFront, Behind, Across };

// How `a` lies to `b`. *covered: all of `a` is within `b` on the screen.
Relation Relate(const Patch& a, const Patch& b, double* lean, bool* covered) {
    static thread_local std::vector<Vec3> shared;
    if (a.right <= b.left || b.right <= a.left || a.high <= b.low || b.high <= a.low) {
        return Relation::Apart;
    }
    Overlap(a, b, &shared);
    const double area = shared.size() > 2 ? AreaOf(shared) : 0;
    if (area < kNoArea) return Relation::Apart;
    *covered = area > a.area * (1 - 1e-9) - kNoArea;
    double least = 0, most = 0;
    for (const Vec3& p : shared) {
        const double above = DepthAt(a, p) - DepthAt(b, p);
        least = std::min(least, above);
        most = std::max(most, above);
    }
    *lean = least + most;
    if (least > -kNoDepth) return most < kNoDepth ? Relation::Apart : Relation::InFront;
    return most < kNoDepth ? Relation::Behind : Relation::Across;
}

// The two sides of a patch at the plane of another one: the nearer and the farther one. A side may
// be empty.
std::pair<Patch, Patch> Cut(const Patch& patch, const Patch& plane) {
    std::pair<Patch, Patch> sides{patch, patch};
    for (Patch* side : {&sides.first, &sides.second}) {
        side->corners.clear();
        side->drawn.clear();
        side->area = 0;
    }
    const auto add = [](Patch* side, Vec3 p, char drawn) {
        side->corners.push_back(p);
        side->drawn.push_back(drawn);
    };
    for (std::size_t i = 0; i < patch.corners.size(); ++i) {
        const Vec3 p = patch.corners[i], q = patch.corners[(i + 1) % patch.corners.size()];
        const double sp = Dot(plane.normal, p - plane.corners[0]);
        const double sq = Dot(plane.normal, q - plane.corners[0]);
        const char drawn = patch.drawn[i];
        // A side that is left here goes on along the cut, which is no edge of the part.
        if (sp >= 0) add(&sides.first, p, sp == 0 && sq < 0 ? char(0) : drawn);
        if (sp <= 0) add(&sides.second, p, sp == 0 && sq > 0 ? char(0) : drawn);
        if ((sp > 0 && sq < 0) || (sp < 0 && sq > 0)) {
            const Vec3 middle = p + sp / (sp - sq) * (q - p);
            add(&sides.first, middle, sp > 0 ? char(0) : drawn);
            add(&sides.second, middle, sp < 0 ? char(0) : drawn);
        }
    }
    for (Patch* side : {&sides.first, &sides.second}) {
        if (side->corners.size() > 2) Measure(side);
    }
    return sides;
}

// --- The graph of what covers what ---

struct Scene {
    std::vector<Patch> patches;
    std::vector<std::vector<std::size_t>> covers;  // patches that must be painted after this one
    std::unordered_map<long long, std::vector<std::size_t>> grid;
    std::vector<std::size_t> asked;  // by which question a patch was last met, to meet it once
    std::size_t questions = 0;
};

template <class Each>
void EachCell(const Patch& patch, Each each) {
    const auto cell = [](double v) { return static_cast<long long>(std::floor(v / kCellSize)); };
    for (long long x = cell(patch.left); x <= cell(patch.right); ++x) {
        for (long long y = cell(patch.low); y <= cell(patch.high); ++y) each(x * 1000003 + y);
    }
}

// Takes the patch into the scene, or its pieces into `waiting`, or drops it as hidden.
void PlacePatch(Scene* scene, Patch patch, std::vector<Patch>* waiting) {
    std::vector<std::size_t> near;
    ++scene->questions;
    EachCell(patch, [&](long long cell) {
        const auto found = scene->grid.find(cell);
        if (found == scene->grid.end()) return;
        for (const std::size_t other : found->second) {
            if (std::exchange(scene->asked[other], scene->questions) != scene->questions) {
                near.push_back(other);
            }
        }
    });
    std::sort(near.begin(), near.end());
    std::vector<std::size_t> before, after;
    for (const std::size_t index : near) {
        const Patch& other = scene->patches[index];
        double lean = 0;
        bool covered = false;
        Relation relation = Relate(patch, other, &lean, &covered);
        if (relation == Relation::Across) {
            auto sides = Cut(patch, other);
            if (sides.first.area > kNoArea && sides.second.area > kNoArea) {
                waiting->push_back(std::move(sides.first));
                waiting->push_back(std::move(sides.second));
                return;
            }
            relation = lean > 0 ? Relation::InFront : Relation::Behind;
        }
        if (relation == Relation::Behind && covered && other.opacity >= 1) return;
        if (relation == Relation::InFront) before.push_back(index);
        if (relation == Relation::Behind) after.push_back(index);
    }
    const std::size_t index = scene->patches.size();
    for (const std::size_t other : before) scene->covers[other].push_back(index);
    scene->covers.push_back(std::move(after));
    scene->asked.push_back(0);
    EachCell(patch, [&](long long cell) { scene->grid[cell].push_back(index); });
    scene->patches.push_back(std::move(patch));
}

// Large patches come first: they cut the small ones, and hide many of them.
Scene Arrange(std::vector<Patch> patches) {
    std::stable_sort(patches.begin(), patches.end(),
                     [](const Patch& a, const Patch& b) { return a.area > b.area; });
    Scene scene;
    std::size_t done = 0;
    for (Patch& patch : patches) {
        WorkStep("drawing", done++, patches.size());
        std::vector<Patch> waiting;
        waiting.push_back(std::move(patch));
        while (!waiting.empty()) {
            Patch next = std::move(waiting.back());
            waiting.pop_back();
            PlacePatch(&scene, std::move(next), &waiting);
        }
    }
    return scene;
}

// Numbers patches so that those that cover each other in a circle, and only those, have the same
// number; returns how many numbers there are. (Tarjan's strongly connected components, without
// recursion, because chains can be long.)
std::size_t FindCircles(const Scene& scene, std::vector<std::size_t>* circle) {
    const std::size_t n = scene.patches.size();
    constexpr std::size_t kNone = ~std::size_t(0);
    std::vector<std::size_t> met(n, kNone), lowest(n, 0), next(n, 0), open, way;
    circle->assign(n, kNone);
    std::size_t time = 0, count = 0;
    const auto enter = [&](std::size_t v) {
        met[v] = lowest[v] = time++;
        open.push_back(v);
        way.push_back(v);
    };
    for (std::size_t root = 0; root < n; ++root) {
        if (met[root] == kNone) enter(root);
        while (!way.empty()) {
            const std::size_t v = way.back();
            if (next[v] < scene.covers[v].size()) {
                const std::size_t w = scene.covers[v][next[v]++];
                if (met[w] == kNone) {
                    enter(w);
                } else if ((*circle)[w] == kNone) {
                    lowest[v] = std::min(lowest[v], met[w]);
                }
                continue;
            }
            way.pop_back();
            if (!way.empty()) lowest[way.back()] = std::min(lowest[way.back()], lowest[v]);
            if (lowest[v] != met[v]) continue;
            std::size_t w = kNone;
            do {
                w = open.back();
                open.pop_back();
                (*circle)[w] = count;
            } while (w != v);
            ++count;
        }
    }
    return count;
}

// --- The BSP tree, for circles ---

struct Split {
    std::vector<Patch> nearer, same, farther;
    std::size_t cuts = 0;
};

Split SplitAt(const std::vector<Patch>& patches, const Patch& plane) {
    Split split;
    for (const Patch& patch : patches) {
        double least = 0, most = 0;
        for (const Vec3& p : patch.corners) {
            const double distance = Dot(plane.normal, p - plane.corners[0]);
            least = std::min(least, distance);
            most = std::max(most, distance);
        }
        if (least > -kNoDepth) {
            (most < kNoDepth ? split.same : split.nearer).push_back(patch);
        } else if (most < kNoDepth) {
            split.farther.push_back(patch);
        } else {
            auto sides = Cut(patch, plane);
            if (sides.first.area > kNoArea) split.nearer.push_back(std::move(sides.first));
            if (sides.second.area > kNoArea) split.farther.push_back(std::move(sides.second));
            ++split.cuts;
        }
    }
    return split;
}

// Paints the tree's far side first. Planes face the viewer, so that is always the back.
void PaintTree(std::vector<Patch> patches, std::vector<Patch>* painted) {
    if (patches.empty()) return;
    constexpr std::size_t kTrials = 12;  // planes tried for the one that cuts least
    const std::size_t step = std::max<std::size_t>(1, patches.size() / kTrials);
    Split best;
    std::size_t bestCost = ~std::size_t(0);
    for (std::size_t i = 0; i < patches.size(); i += step) {
        WorkStep("sorting what hides each other", i, patches.size());
        Split split = SplitAt(patches, patches[i]);
        const std::size_t larger = std::max(split.nearer.size(), split.farther.size());
        if (split.cuts * 8 + larger >= bestCost) continue;
        bestCost = split.cuts * 8 + larger;
        best = std::move(split);
    }
    patches.clear();
    PaintTree(std::move(best.farther), painted);
    for (Patch& patch : best.same) painted->push_back(std::move(patch));
    PaintTree(std::move(best.nearer), painted);
}

}  // namespace

// Among the patches that may come next, the parts keep together.
std::vector<Patch> PaintOrder(std::vector<Patch> patches) {
    const Scene scene = Arrange(std::move(patches));
    std::vector<std::size_t> circle;
    std::vector<std::vector<std::size_t>> members(FindCircles(scene, &circle));
    std::vector<std::size_t> waitsFor(members.size(), 0);
    for (std::size_t v = 0; v < scene.patches.size(); ++v) {
        members[circle[v]].push_back(v);
        for (const std::size_t w : scene.covers[v]) waitsFor[circle[w]] += circle[w] != circle[v];
    }
    using Key = std::tuple<std::size_t, int, std::size_t>;
    const auto keyOf = [&](std::size_t c) {
        const Patch& first = scene.patches[members[c].front()];
        return Key{first.occurrence, first.sequence, c};
    };
    std::set<Key> ready;
    for (std::size_t c = 0; c < members.size(); ++c) {
        if (waitsFor[c] == 0) ready.insert(keyOf(c));
    }
    std::vector<Patch> painted;
    while (!ready.empty()) {
        auto next = ready.begin();
        if (!painted.empty()) {
            next = ready.lower_bound(Key{painted.back().occurrence, 0, 0});
            if (next == ready.end()) next = ready.begin();
        }
        const auto& group = members[std::get<2>(*next)];
        const std::size_t c = std::get<2>(*next);
        ready.erase(next);
        for (const std::size_t v : group) {
            for (const std::size_t w : scene.covers[v]) {
                if (circle[w] != c && --waitsFor[circle[w]] == 0) ready.insert(keyOf(circle[w]));
            }
        }
        std::vector<Patch> pieces;
        for (const std::size_t v : group) pieces.push_back(scene.patches[v]);
        if (pieces.size() == 1) {
            painted.push_back(std::move(pieces[0]));
        } else {
            PaintTree(std::move(pieces), &painted);
        }
    }
    return painted;
}

}  // namespace simhost
