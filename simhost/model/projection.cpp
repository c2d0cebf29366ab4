// What a model looks like from a direction: the edges of its parts that are drawn, and the facets
// that may cover them.
#include "simhost/model/projection.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "simhost/model/hidden_lines.h"
#include "simhost/model/shape.h"

namespace simhost {

namespace {

constexpr int kFineness = 48;     // facets of a full circle
constexpr double kSharp = 0.906;  // cosine of 25 degrees: a weaker bend shows no edge
constexpr double kSteep = 1e-3;   // facets seen more on edge than this cover nothing

using Points = std::vector<Vec3>;

using PointKey = std::tuple<long long, long long, long long>;

PointKey KeyOf(Vec3 p) {
    return {std::llround(p.x * 1e5), std::llround(p.y * 1e5), std::llround(p.z * 1e5)};
}

// --- Facets and their neighbours ---

struct SkinFacet {
    Points corners;
    Vec3 normal;
    int surface = 0;
    std::vector<std::size_t> beyond;  // across edge i, from corner i to the next; itself: nothing
};
using Skin = std::vector<SkinFacet>;

Vec3 Unit(Vec3 v) {
    const double length = std::sqrt(Dot(v, v));
    return length > 0 ? 1 / length * v : Vec3{0, 0, 1};
}

Vec3 NormalOf(const Points& corners) {
    Vec3 sum;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        sum = sum + Cross(corners[i], corners[(i + 1) % corners.size()]);
    }
    return Unit(sum);
}

// Joins the facets of one solid, the last ones of the skin, along their edges.
void JoinEdges(Skin* skin, std::size_t first) {
    std::map<PointKey, std::uint64_t> numbers;
    std::vector<std::vector<std::uint64_t>> corners;  // of each facet, by their numbers
    corners.reserve(skin->size() - first);
    for (std::size_t f = first; f < skin->size(); ++f) {
        auto& own = corners.emplace_back();
        own.reserve((*skin)[f].corners.size());
        for (const Vec3& p : (*skin)[f].corners) {
            own.push_back(numbers.try_emplace(KeyOf(p), numbers.size()).first->second);
        }
    }
    std::unordered_map<std::uint64_t, std::size_t> owner;
    const auto visit = [&](auto&& each) {
        for (std::size_t f = 0; f < corners.size(); ++f) {
            for (std::size_t i = 0; i < corners[f].size(); ++i) {
                each(first + f, corners[f][i], corners[f][(i + 1) % corners[f].size()]);
            }
        }
    };
    const auto edgeOf = [](std::uint64_t a, std::uint64_t b) { return a << 32 | b; };
    visit([&](std::size_t f, std::uint64_t a, std::uint64_t b) { owner[edgeOf(a, b)] = f; });
    visit([&](std::size_t f, std::uint64_t a, std::uint64_t b) {
        const auto found = owner.find(edgeOf(b, a));
        (*skin)[f].beyond.push_back(found == owner.end() ? f : found->second);
    });
}

Skin SkinOf(const Model& part) {
    Skin skin;
    for (const ShapeBody& body : part.shape().bodies) {
        const std::size_t first = skin.size();
        for (SolidFace& face : FacetsOf(body, kFineness)) {
            for (Facet& facet : face.facets) {
                const Vec3 normal = NormalOf(facet.corners);
                skin.push_back({std::move(facet.corners), normal, face.surface, {}});
            }
        }
        JoinEdges(&skin, first);
    }
    return skin;
}

// --- What is drawn, and what covers ---

bool IsDrawn(const Skin& skin, std::size_t f, std::size_t other, double z, double otherZ) {
    if (other == f) return true;
    if ((z > 0) != (otherZ > 0)) return true;
    return skin[other].surface != skin[f].surface &&
           Dot(skin[other].normal, skin[f].normal) < kSharp;
}

void AddPart(const Skin& skin, const Placement& placement, bool withHidden,
             HiddenLineScene* scene) {
    std::vector<double> toViewer;
    toViewer.reserve(skin.size());
    for (const SkinFacet& facet : skin) {
        const double z = Unit(placement.Direction(facet.normal)).z;
        toViewer.push_back(std::fabs(z) < kSteep ? 0 : z);
    }
    Points corners;
    for (std::size_t f = 0; f < skin.size(); ++f) {
        corners.clear();
        corners.reserve(skin[f].corners.size());
        for (const Vec3& p : skin[f].corners) corners.push_back(placement.Point(p));
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const std::size_t other = skin[f].beyond[i];
            if (other < f || !IsDrawn(skin, f, other, toViewer[f], toViewer[other])) continue;
            const bool away = toViewer[f] < 0 && toViewer[other] < 0;
            if (away && !withHidden) continue;
            scene->AddEdge(corners[i], corners[(i + 1) % corners.size()]);
        }
        if (toViewer[f] > 0) scene->AddCover(corners, placement.Direction(skin[f].normal));
    }
}

}  // namespace

Extents ExtentsIn(const Model& top, const Placement& frame, Sight sight) {
    Extents box;
    VisitShown(top, sight, [&](const ShownPart& shown) {
        const Extents one = ExtentsIn(shown.part->shape(), Compose(frame, shown.placement));
        box.Add(one.low);
        box.Add(one.high);
    });
    return box;
}

std::vector<DrawnLine> ProjectedLines(const Model& top, const Placement& frame, bool withHidden) {
    return ProjectedLines(ShownParts(top, Sight::Views), frame, withHidden);
}

std::vector<DrawnLine> ProjectedLines(const std::vector<ShownPart>& parts, const Placement& frame,
                                      bool withHidden) {
    HiddenLineScene scene;
    std::unordered_map<const Model*, Skin> skins;
    for (const ShownPart& shown : parts) {
        const auto [skin, isNew] = skins.try_emplace(shown.part);
        if (isNew) skin->second = SkinOf(*shown.part);
        AddPart(skin->second, Compose(frame, shown.placement), withHidden, &scene);
    }
    return PiecesOf(scene, withHidden);
}

}  // namespace simhost
