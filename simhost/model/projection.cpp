// What a model looks like from a direction. Every edge is compared with the facets that lie before
// it on the sheet: what they cover of it is hidden.
#include "simhost/model/projection.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <utility>

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
    std::map<std::pair<PointKey, PointKey>, std::size_t> owner;
    const auto visit = [&](auto&& each) {
        for (std::size_t f = first; f < skin->size(); ++f) {
            const Points& corners = (*skin)[f].corners;
            for (std::size_t i = 0; i < corners.size(); ++i) {
                each(f, KeyOf(corners[i]), KeyOf(corners[(i + 1) % corners.size()]));
            }
        }
    };
    visit([&](std::size_t f, PointKey a, PointKey b) { owner[{a, b}] = f; });
    visit([&](std::size_t f, PointKey a, PointKey b) {
        const auto found = owner.find({b, a});
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

// --- What covers, and what may be covered ---

// A facet that is turned to the viewer; its corners run counter-clockwise on the sheet.
struct Cover {
    Points corners;
    double slopeX, slopeY, level;  // depth = level + slopeX * x + slopeY * y
    Extents box;
};

struct Edge {
    Vec3 from, to;
};

struct Scene {
    std::vector<Cover> covers;
    std::vector<Edge> edges;
    Extents box;
};

bool IsDrawn(const Skin& skin, std::size_t f, std::size_t other, double z, double otherZ) {
    if (other == f) return true;
    if ((z > 0) != (otherZ > 0)) return true;
    return skin[other].surface != skin[f].surface &&
           Dot(skin[other].normal, skin[f].normal) < kSharp;
}

void AddPart(const Skin& skin, const Placement& placement, bool withHidden, Scene* scene) {
    std::vector<double> toViewer;
    for (const SkinFacet& facet : skin) {
        const double z = Unit(placement.Direction(facet.normal)).z;
        toViewer.push_back(std::fabs(z) < kSteep ? 0 : z);
    }
    for (std::size_t f = 0; f < skin.size(); ++f) {
        Points corners;
        for (const Vec3& p : skin[f].corners) {
            corners.push_back(placement.Point(p));
            scene->box.Add(corners.back());
        }
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const std::size_t other = skin[f].beyond[i];
            if (other < f || !IsDrawn(skin, f, other, toViewer[f], toViewer[other])) continue;
            const bool away = toViewer[f] < 0 && toViewer[other] < 0;
            if (away && !withHidden) continue;
            scene->edges.push_back({corners[i], corners[(i + 1) % corners.size()]});
        }
        if (toViewer[f] <= 0) continue;
        Cover cover{};
        const Vec3 normal = placement.Direction(skin[f].normal);
        cover.slopeX = -normal.x / normal.z;
        cover.slopeY = -normal.y / normal.z;
        cover.level = corners[0].z - cover.slopeX * corners[0].x - cover.slopeY * corners[0].y;
        for (const Vec3& p : corners) cover.box.Add(p);
        cover.corners = std::move(corners);
        scene->covers.push_back(std::move(cover));
    }
}

// --- Covers by their place on the sheet ---

class CoverGrid {
public:
    explicit CoverGrid(const Scene& scene) : scene_(scene) {
        const double wanted = std::sqrt(double(scene.covers.size()));
        count_ = std::clamp(int(wanted), 1, 256);
        cells_.resize(std::size_t(count_) * std::size_t(count_));
        seen_.resize(scene.covers.size());
        for (std::size_t c = 0; c < scene.covers.size(); ++c) {
            const Extents& box = scene.covers[c].box;
            EachCell(box.low, box.high, [&](std::vector<std::size_t>& cell) { cell.push_back(c); });
        }
    }

    // Every cover that may lie over a box, once.
    template <class Each>
    void Visit(Vec3 low, Vec3 high, Each&& each) {
        ++round_;
        EachCell(low, high, [&](const std::vector<std::size_t>& cell) {
            for (const std::size_t c : cell) {
                if (std::exchange(seen_[c], round_) != round_) each(scene_.covers[c]);
            }
        });
    }

private:
    int CellOf(double value, double low, double high) const {
        if (!(high > low)) return 0;
        return std::clamp(int((value - low) / (high - low) * count_), 0, count_ - 1);
    }

    template <class Each>
    void EachCell(Vec3 low, Vec3 high, Each&& each) {
        const Extents& box = scene_.box;
        const int right = CellOf(high.x, box.low.x, box.high.x);
        const int top = CellOf(high.y, box.low.y, box.high.y);
        for (int y = CellOf(low.y, box.low.y, box.high.y); y <= top; ++y) {
            for (int x = CellOf(low.x, box.low.x, box.high.x); x <= right; ++x) {
                each(cells_[std::size_t(y) * std::size_t(count_) + std::size_t(x)]);
            }
        }
    }

    const Scene& scene_;
    int count_ = 1;
    std::vector<std::vector<std::size_t>> cells_;
    std::vector<int> seen_;
    int round_ = 0;
};

// --- Which pieces of an edge are covered; 0 is its beginning, 1 its end ---

struct Span {
    double from, to;
};

// Keeps the part of the span where a value that runs evenly from `a` to `b` is not below 0.
bool Clip(double a, double b, Span* span) {
    if (a < 0 && b < 0) return false;
    if (a >= 0 && b >= 0) return true;
    const double at = a / (a - b);
    if (a < 0) {
        span->from = std::max(span->from, at);
    } else {
        span->to = std::min(span->to, at);
    }
    return span->from < span->to;
}

std::optional<Span> Covered(const Edge& edge, const Cover& cover, double touch) {
    Span span{0, 1};
    const auto before = [&](Vec3 p) {
        return cover.level + cover.slopeX * p.x + cover.slopeY * p.y - p.z - touch;
    };
    if (!Clip(before(edge.from), before(edge.to), &span)) return std::nullopt;
    for (std::size_t i = 0; i < cover.corners.size(); ++i) {
        const Vec3 a = cover.corners[i], b = cover.corners[(i + 1) % cover.corners.size()];
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        if (length == 0) continue;
        const auto inside = [&](Vec3 p) {
            return ((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x)) / length + touch;
        };
        if (!Clip(inside(edge.from), inside(edge.to), &span)) return std::nullopt;
    }
    return span;
}

void AddLine(const Edge& edge, double from, double to, bool hidden, double least,
             std::vector<DrawnLine>* lines) {
    const Vec3 way = edge.to - edge.from;
    if (std::hypot(way.x, way.y) * (to - from) < least) return;
    const Vec3 a = edge.from + from * way, b = edge.from + to * way;
    lines->push_back({a.x, a.y, b.x, b.y, hidden});
}

void AddPieces(const Edge& edge, std::vector<Span> covered, bool withHidden, double least,
               std::vector<DrawnLine>* lines) {
    std::sort(covered.begin(), covered.end(), [](Span a, Span b) { return a.from < b.from; });
    double at = 0;
    for (std::size_t i = 0; i < covered.size();) {
        Span whole = covered[i];
        for (++i; i < covered.size() && covered[i].from <= whole.to; ++i) {
            whole.to = std::max(whole.to, covered[i].to);
        }
        AddLine(edge, at, whole.from, /*hidden=*/false, least, lines);
        if (withHidden) AddLine(edge, whole.from, whole.to, /*hidden=*/true, least, lines);
        at = whole.to;
    }
    AddLine(edge, at, 1, /*hidden=*/false, least, lines);
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
    Scene scene;
    std::unordered_map<const Model*, Skin> skins;
    for (const ShownPart& shown : ShownParts(top, Sight::Views)) {
        const auto [skin, isNew] = skins.try_emplace(shown.part);
        if (isNew) skin->second = SkinOf(*shown.part);
        AddPart(skin->second, Compose(frame, shown.placement), withHidden, &scene);
    }
    const Vec3 size = scene.box.high - scene.box.low;
    const double touch = 1e-6 * (1 + std::sqrt(Dot(size, size)));
    std::vector<DrawnLine> lines;
    CoverGrid grid(scene);
    for (const Edge& edge : scene.edges) {
        Extents box;
        box.Add(edge.from);
        box.Add(edge.to);
        std::vector<Span> covered;
        grid.Visit(box.low, box.high, [&](const Cover& cover) {
            if (const auto span = Covered(edge, cover, touch)) covered.push_back(*span);
        });
        AddPieces(edge, std::move(covered), withHidden, 10 * touch, &lines);
    }
    return lines;
}

}  // namespace simhost
