// Paints models: places the solids, cuts their facets where they pass through each other, and lays
// them down from the back to the front.
//
// Two facets need an order only where one covers the other on the screen. Each pair is compared
// there; a pair that crosses is cut. What is left is a graph that can be walked from the back.
// Facets that cover each other in a circle go through a BSP tree, which cuts the circle open.
#include "simhost/app/picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "simhost/core/text.h"

namespace simhost {

namespace {

// Lengths in the view are pixels: x to the right, y up, z towards the viewer.
constexpr double kNoArea = 1e-4;   // what is smaller cannot be seen
constexpr double kNoDepth = 1e-3;  // facets that are closer than this touch
constexpr double kCellSize = 24;   // of the grid that finds facets near each other
constexpr double kMargin = 24;
constexpr double kCaptionHeight = 64;
constexpr double kTallest = 1.25;    // height of the model's picture to its width, at most
constexpr double kSharp = 0.906;     // cosine of 25 degrees: edges sharper than this are drawn
constexpr double kInvisible = 0.02;  // opacity

double Length(Vec3 v) {
    return std::sqrt(Dot(v, v));
}
Vec3 Unit(Vec3 v) {
    const double length = Length(v);
    return length > 0 ? 1 / length * v : Vec3{0, 0, 1};
}

// --- What there is to paint ---

struct Occurrence {
    Model* part;
    Placement placement;
};

// The parts that can be seen below a model, in the order of the model tree.
void Collect(Session& session, Model& model, const Placement& placement,
             std::vector<const Model*>* above, std::vector<Occurrence>* found) {
    if (model.type == PRO_MDL_PART && !model.solids.empty()) found->push_back({&model, placement});
    if (std::find(above->begin(), above->end(), &model) != above->end()) return;
    above->push_back(&model);
    if (model.type == PRO_MDL_MFG && model.manufactured) {
        Collect(session, *model.manufactured, placement, above, found);
    }
    for (const Feature& feature : model.features()) {
        if (feature.type != PRO_FEAT_COMPONENT || feature.status != PRO_FEAT_ACTIVE) continue;
        if (!feature.visible || feature.hidden) continue;
        Model* below = feature.model ? feature.model : session.FindByFile(feature.file);
        if (below) {
            Collect(session, *below, Compose(placement, feature.placement), above, found);
        }
    }
    above->pop_back();
}

const ProdbSurfaceProps& LookOf(const Model& part, int surface) {
    static const ProdbSurfaceProps usual = DefaultAppearance();
    const auto own = part.surfaceAppearances.find(surface);
    if (own != part.surfaceAppearances.end()) return own->second;
    return part.appearance ? *part.appearance : usual;
}

// One facet of a part with what lies beyond its edges: edge i runs from corner i to the next.
struct SkinFacet {
    std::vector<Vec3> corners;
    Vec3 normal;
    int surface = 0;
    bool inside = false;  // the solid can be looked into
    std::vector<std::size_t> beyond;
};
using Skin = std::vector<SkinFacet>;

Vec3 NormalOf(const std::vector<Vec3>& corners) {
    Vec3 sum;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        sum = sum + Cross(corners[i], corners[(i + 1) % corners.size()]);
    }
    return Unit(sum);
}

// Joins the facets of one solid, the last ones of the skin, along their edges.
void JoinEdges(Skin* skin, std::size_t first) {
    using Key = std::tuple<long long, long long, long long>;
    const auto key = [](Vec3 p) {
        return Key{std::llround(p.x * 1e5), std::llround(p.y * 1e5), std::llround(p.z * 1e5)};
    };
    std::map<std::pair<Key, Key>, std::size_t> owner;
    for (std::size_t f = first; f < skin->size(); ++f) {
        const auto& corners = (*skin)[f].corners;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            owner[{key(corners[i]), key(corners[(i + 1) % corners.size()])}] = f;
        }
    }
    for (std::size_t f = first; f < skin->size(); ++f) {
        const auto& corners = (*skin)[f].corners;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const Vec3 next = corners[(i + 1) % corners.size()];
            const auto found = owner.find({key(next), key(corners[i])});
            (*skin)[f].beyond.push_back(found == owner.end() ? f : found->second);
        }
    }
}

// Round surfaces get as many facets as the eye needs at their size on the screen.
int FinenessOf(const Solid& solid, double pixelsPerMm) {
    const double diameter = std::max({solid.diameter, solid.top, solid.outer});
    const int quarter = int(std::ceil(std::sqrt(diameter * pixelsPerMm) * 1.1));
    return 4 * std::clamp(quarter, 3, 16);
}

Skin SkinOf(const Model& part, double pixelsPerMm) {
    Skin skin;
    for (const Solid& solid : part.solids) {
        const std::size_t first = skin.size();
        auto faces = Faces(solid, FinenessOf(solid, pixelsPerMm));
        const bool inside = std::any_of(faces.begin(), faces.end(), [&](const SolidFace& face) {
            return LookOf(part, face.surface).transparency > 0;
        });
        for (SolidFace& face : faces) {
            for (Facet& facet : face.facets) {
                const Vec3 normal = NormalOf(facet.corners);
                skin.push_back({std::move(facet.corners), normal, face.surface, inside, {}});
            }
        }
        JoinEdges(&skin, first);
    }
    return skin;
}

// --- The view ---

// From the right, the front and above: x runs to the lower right, y to the upper right, z up.
constexpr double kSqrt2 = 1.4142135623730951, kSqrt3 = 1.7320508075688772;
constexpr Vec3 kRight{1 / kSqrt2, 1 / kSqrt2, 0};
constexpr Vec3 kUp{-1 / (kSqrt2 * kSqrt3), 1 / (kSqrt2 * kSqrt3), 2 / (kSqrt2 * kSqrt3)};
constexpr Vec3 kNear{1 / kSqrt3, -1 / kSqrt3, 1 / kSqrt3};

Vec3 InView(Vec3 v) {
    return {Dot(v, kRight), Dot(v, kUp), Dot(v, kNear)};
}

// A polygon that is painted in one colour. Its corners run counter-clockwise on the screen.
struct Patch {
    std::vector<Vec3> corners;
    std::vector<char> drawn;  // the edge from each corner
    Vec3 normal;              // towards the viewer
    std::size_t occurrence = 0;
    int surface = 0;
    int sequence = 0;  // the order in which facets were made: neighbours lie close
    std::string fill;
    std::string ink;  // of its edges
    double opacity = 1;
    double area = 0;  // on the screen
    double left = 0, right = 0, low = 0, high = 0;
};

double AreaOf(const std::vector<Vec3>& corners) {
    double sum = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vec3 a = corners[i], b = corners[(i + 1) % corners.size()];
        sum += (a.x - corners[0].x) * (b.y - corners[0].y) -
               (b.x - corners[0].x) * (a.y - corners[0].y);
    }
    return sum / 2;
}

void Measure(Patch* patch) {
    patch->area = AreaOf(patch->corners);
    const auto [west, east] = std::minmax_element(patch->corners.begin(), patch->corners.end(),
                                                  [](Vec3 a, Vec3 b) { return a.x < b.x; });
    const auto [south, north] = std::minmax_element(patch->corners.begin(), patch->corners.end(),
                                                    [](Vec3 a, Vec3 b) { return a.y < b.y; });
    patch->left = west->x;
    patch->right = east->x;
    patch->low = south->y;
    patch->high = north->y;
}

std::string Hex(const double* colour, double factor, double added, const double* addedColour) {
    std::string text = "#";
    for (int i = 0; i < 3; ++i) {
        const double value = colour[i] * factor + added * addedColour[i];
        const int byte = int(std::lround(255 * std::clamp(value, 0.0, 1.0)));
        constexpr char kDigits[] = "0123456789abcdef";
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

// The light comes from the upper left. Faces turned away from it keep some colour.
void Shade(const ProdbSurfaceProps& look, Vec3 normal, bool fromInside, Patch* patch) {
    static const Vec3 light = Unit({-0.45, 0.75, 0.65});
    static const Vec3 halfway = Unit(light + Vec3{0, 0, 1});
    const double sum = std::max(look.ambient + look.diffuse, 1e-6);
    const double even = look.ambient / sum;
    const double lit = 0.5 + 0.5 * Dot(normal, light);
    const double brightness = std::min(1.0, sum / 1.2) * (fromInside ? 0.85 : 1.0);
    const double factor = brightness * (0.9 * even + 1.12 * (1 - even) * lit);
    const double gloss = std::pow(std::max(0.0, Dot(normal, halfway)), 8 + 40 * look.shininess);
    const double added = fromInside ? 0.0 : 0.35 * look.highlight * gloss;
    patch->fill = Hex(look.colour, factor, added, look.highlightColour);
    patch->ink = Hex(look.colour, 0.3 * brightness, 0.0, look.highlightColour);
    patch->opacity = std::clamp(1 - look.transparency, 0.0, 1.0);
}

// The facets of one part that are turned to the viewer; all of them where it can be looked into.
void AddPatches(const Occurrence& occurrence, std::size_t index, const Skin& skin,
                double pixelsPerMm, std::vector<Patch>* patches) {
    std::vector<Vec3> normals;
    for (const SkinFacet& facet : skin) {
        normals.push_back(InView(occurrence.placement.Direction(facet.normal)));
    }
    for (std::size_t f = 0; f < skin.size(); ++f) {
        const SkinFacet& facet = skin[f];
        const bool away = normals[f].z < 0;
        if (away && !facet.inside) continue;
        Patch patch;
        patch.occurrence = index;
        patch.surface = facet.surface;
        patch.sequence = int(patches->size());
        patch.normal = away ? -1 * normals[f] : normals[f];
        Shade(LookOf(*occurrence.part, facet.surface), patch.normal, away, &patch);
        if (patch.opacity < kInvisible) continue;
        for (std::size_t i = 0; i < facet.corners.size(); ++i) {
            const Vec3 p = occurrence.placement.Point(facet.corners[i]);
            patch.corners.push_back(pixelsPerMm * InView(p));
            const std::size_t other = facet.beyond[i];
            const bool sharp = skin[other].surface != facet.surface &&
                               Dot(skin[other].normal, facet.normal) < kSharp;
            patch.drawn.push_back(other == f || sharp || (normals[other].z < 0) != away);
        }
        if (away) {
            std::reverse(patch.corners.begin(), patch.corners.end());
            std::reverse(patch.drawn.begin(), patch.drawn.end() - 1);
        }
        Measure(&patch);
        if (patch.area > kNoArea) patches->push_back(std::move(patch));
    }
}

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
void Place(Scene* scene, Patch patch, std::vector<Patch>* waiting) {
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
    for (Patch& patch : patches) {
        std::vector<Patch> waiting;
        waiting.push_back(std::move(patch));
        while (!waiting.empty()) {
            Patch next = std::move(waiting.back());
            waiting.pop_back();
            Place(&scene, std::move(next), &waiting);
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

// All patches in the order of painting. Among those that may come next, the parts keep together.
std::vector<Patch> PaintOrder(Scene scene) {
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

// --- The text ---

std::string Number(double value) {
    const long long hundredths = std::llround(value * 100);
    if (hundredths == 0) return "0";
    std::string text = std::to_string(std::llabs(hundredths));
    if (text.size() < 3) text.insert(0, 3 - text.size(), '0');
    text.insert(text.size() - 2, ".");
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
    if (text.size() > 1 && text[0] == '0') text.erase(0, 1);
    return (hundredths < 0 ? "-" : "") + text;
}

// For texts and attributes. Control characters have no place in XML at all.
std::string Escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        switch (c) {
            case '&': result += "&amp;"; break;
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            case '"': result += "&quot;"; break;
            default: result += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
        }
    }
    return result;
}

std::string NameAndTitle(const Model& model, const char* between) {
    const std::string name = Escaped(Utf8(model.name));
    return model.title.empty() ? name : name + between + Escaped(model.title);
}

// The scale of a picture: one number of two digits to one.
struct Scale {
    double ratio;
    bool larger;  // than life
    double PixelsPerMm() const { return (larger ? ratio : 1 / ratio) * 96 / 25.4; }
    std::string Text() const { return larger ? Number(ratio) + " : 1" : "1 : " + Number(ratio); }
};

// The largest scale that gives at most so many pixels.
Scale ScaleBelow(double pixelsPerMm) {
    const double scale = pixelsPerMm * 25.4 / 96;
    const bool larger = scale > 1;
    const double ratio = larger ? scale : 1 / scale;
    const double unit = std::pow(10.0, std::floor(std::log10(ratio)) - 1);
    return {unit * (larger ? std::floor(ratio / unit) : std::ceil(ratio / unit)), larger};
}

// The frame of the picture: where the view's coordinates lie in it.
struct Frame {
    Scale scale{1, false};
    double width = 0, height = 0;
    double left = 0, high = 0;  // of the view, at the picture's upper left corner
};

std::string PointText(const Frame& frame, Vec3 p) {
    return Number(p.x - frame.left) + ' ' + Number(frame.high - p.y);
}

// The edges of a patch that are drawn, as lines as long as possible.
std::string EdgeText(const Frame& frame, const Patch& patch) {
    const std::size_t n = patch.corners.size();
    std::size_t start = 0;  // after an edge that is not drawn, if there is one
    while (start < n && patch.drawn[(start + n - 1) % n]) ++start;
    if (start == n) start = 0;
    std::string text;
    bool down = false;
    for (std::size_t k = 0; k < n; ++k) {
        const std::size_t i = (start + k) % n;
        if (!patch.drawn[i]) {
            down = false;
            continue;
        }
        if (!down) text += 'M' + PointText(frame, patch.corners[i]);
        text += 'L' + PointText(frame, patch.corners[(i + 1) % n]);
        down = true;
    }
    return text;
}

// Patches of one surface and one colour that follow each other: their areas, then their edges.
void AddFill(const Frame& frame, const std::vector<Patch>& patches, std::size_t from,
             std::size_t to, std::string* svg) {
    const Patch& first = patches[from];
    std::string area, edges;
    for (std::size_t i = from; i < to; ++i) {
        const auto& corners = patches[i].corners;
        for (std::size_t k = 0; k < corners.size(); ++k) {
            area += (k == 0 ? 'M' : 'L') + PointText(frame, corners[k]);
        }
        area += 'Z';
        edges += EdgeText(frame, patches[i]);
    }
    *svg += "<path fill=\"" + first.fill + '"';
    if (first.opacity < 1) {
        *svg += " fill-opacity=\"" + Number(first.opacity) + '"';
    } else {
        *svg += " stroke=\"" + first.fill + '"';  // closes the hairline between neighbours
    }
    *svg += " d=\"" + area + "\"/>\n";
    if (edges.empty()) return;
    *svg += "<path fill=\"none\" stroke=\"" + first.ink + "\" stroke-width=\".7\"";
    if (first.opacity < 1) *svg += " stroke-opacity=\".6\"";
    *svg += " d=\"" + edges + "\"/>\n";
}

void AddParts(const Frame& frame, const std::vector<Occurrence>& occurrences,
              const std::vector<Patch>& painted, std::string* svg) {
    for (std::size_t i = 0; i < painted.size();) {
        const std::size_t occurrence = painted[i].occurrence;
        *svg += "<g><title>" + NameAndTitle(*occurrences[occurrence].part, " – ") + "</title>\n";
        while (i < painted.size() && painted[i].occurrence == occurrence) {
            std::size_t end = i + 1;
            while (end < painted.size() && painted[end].occurrence == occurrence &&
                   painted[end].surface == painted[i].surface &&
                   painted[end].fill == painted[i].fill) {
                ++end;
            }
            AddFill(frame, painted, i, end, svg);
            i = end;
        }
        *svg += "</g>\n";
    }
}

// The three directions, so that one knows which side is looked at.
void AddAxes(double x, double y, std::string* svg) {
    struct Axis {
        const char* name;
        const char* colour;
        Vec3 way;
    };
    const Axis axes[] = {
        {"x", "#b03a2e", {1, 0, 0}}, {"y", "#2e7d32", {0, 1, 0}}, {"z", "#1f4e9c", {0, 0, 1}}};
    for (const Axis& axis : axes) {
        const Vec3 way = InView(axis.way);
        *svg += std::string("<path stroke=\"") + axis.colour + "\" stroke-width=\"1.4\" d=\"M" +
                Number(x) + ' ' + Number(y) + 'L' + Number(x + 24 * way.x) + ' ' +
                Number(y - 24 * way.y) + "\"/>";
        *svg += std::string("<text fill=\"") + axis.colour + "\" font-size=\"11\" x=\"" +
                Number(x + 32 * way.x - 3) + "\" y=\"" + Number(y - 32 * way.y + 4) + "\">" +
                axis.name + "</text>\n";
    }
}

void AddCaption(const Frame& frame, const Model& top, std::size_t parts, std::string* svg) {
    const double y = frame.height - kCaptionHeight + 28;
    *svg += "<g font-family=\"Noto Sans CJK SC,Microsoft YaHei,Liberation Sans,sans-serif\">\n";
    AddAxes(kMargin + 16, y + 6, svg);
    const std::string at = "<text x=\"" + Number(kMargin + 64) + "\" y=\"";
    *svg += at + Number(y) + "\" font-size=\"17\" font-weight=\"bold\" fill=\"#26323d\">" +
            NameAndTitle(top, "  ") + "</text>\n";
    std::string facts = "nothing to show";
    if (parts > 0) {
        facts = std::to_string(parts) + (parts == 1 ? " part" : " parts") + ", scale " +
                frame.scale.Text();
    }
    *svg += at + Number(y + 20) + "\" font-size=\"13\" fill=\"#5c6873\">" + facts + "</text>\n";
    *svg += "</g>\n";
}

// The largest scale of two digits at which the extents of all parts fit.
Frame FrameFor(const std::vector<Occurrence>& occurrences, double width) {
    Extents all;
    std::unordered_map<const Model*, std::vector<Vec3>> corners;
    for (const Occurrence& one : occurrences) {
        auto& points = corners[one.part];
        if (points.empty()) {
            for (const Solid& solid : one.part->solids) {
                for (const SolidFace& face : Faces(solid)) {
                    for (const Facet& facet : face.facets) {
                        points.insert(points.end(), facet.corners.begin(), facet.corners.end());
                    }
                }
            }
        }
        for (const Vec3& p : points) all.Add(InView(one.placement.Point(p)));
    }
    Frame frame;
    frame.width = width;
    const Vec3 size = all.high - all.low;
    const double room = width - 2 * kMargin;
    if (!all.empty) {
        const double across = room / std::max(size.x, 1e-9);
        frame.scale = ScaleBelow(std::min(across, room * kTallest / std::max(size.y, 1e-9)));
    }
    const double k = frame.scale.PixelsPerMm();
    frame.height = std::ceil(k * size.y + 2 * kMargin + kCaptionHeight);
    frame.left = k * (all.low.x + all.high.x) / 2 - width / 2;
    frame.high = k * all.high.y + kMargin;
    return frame;
}

}  // namespace

std::string IsometricSvg(Session& session, Model& top, int widthPixels) {
    std::vector<Occurrence> occurrences;
    std::vector<const Model*> above;
    Collect(session, top, Placement(), &above, &occurrences);
    const Frame frame = FrameFor(occurrences, std::max(widthPixels, 160));
    const double pixelsPerMm = frame.scale.PixelsPerMm();

    std::unordered_map<const Model*, Skin> skins;
    std::vector<Patch> patches;
    for (std::size_t i = 0; i < occurrences.size(); ++i) {
        const auto [skin, isNew] = skins.try_emplace(occurrences[i].part);
        if (isNew) skin->second = SkinOf(*occurrences[i].part, pixelsPerMm);
        AddPatches(occurrences[i], i, skin->second, pixelsPerMm, &patches);
    }
    const std::vector<Patch> painted = PaintOrder(Arrange(std::move(patches)));

    const std::string width = Number(frame.width), height = Number(frame.height);
    const std::string size = "width=\"" + width + "\" height=\"" + height + '"';
    std::string svg = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    svg += "<svg xmlns=\"http://www.w3.org/2000/svg\" " + size + " viewBox=\"0 0 " + width + ' ' +
           height + "\">\n";
    svg += "<rect " + size + " fill=\"#f7f8f9\"/>\n";
    svg += "<g stroke-width=\".5\" stroke-linejoin=\"round\" stroke-linecap=\"round\">\n";
    AddParts(frame, occurrences, painted, &svg);
    svg += "</g>\n";
    AddCaption(frame, top, occurrences.size(), &svg);
    return svg + "</svg>\n";
}

std::string ColourText(const ProdbSurfaceProps& props) {
    std::string text;
    for (const double part : props.colour) {
        if (!text.empty()) text += '.';
        text += std::to_string(std::lround(255 * std::clamp(part, 0.0, 1.0)));
    }
    return text;
}

}  // namespace simhost
