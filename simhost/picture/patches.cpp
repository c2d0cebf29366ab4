// Finds the parts that can be seen, wraps each in facets, and gives every facet its place in the
// view and its colour in the light.
#include "simhost/picture/patches.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>

#include "simhost/model/shape.h"

namespace simhost {

namespace {

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

const ProdbSurfaceProps& LookOf(const Model& part, const ProdbSurfaceProps* cover, int surface) {
    static const ProdbSurfaceProps usual = DefaultAppearance();
    if (cover) return *cover;
    const auto own = part.partData.surfaceAppearances.find(surface);
    if (own != part.partData.surfaceAppearances.end()) return own->second;
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
int FinenessOf(const ShapeBody& body, double pixelsPerUnit) {
    const int quarter = int(std::ceil(std::sqrt(body.widest * pixelsPerUnit) * 1.1));
    return 4 * std::clamp(quarter, 3, 16);
}

Skin SkinOf(const Model& part, const ProdbSurfaceProps* cover, double pixelsPerUnit) {
    Skin skin;
    for (const ShapeBody& body : part.shape().bodies) {
        const std::size_t first = skin.size();
        auto faces = FacetsOf(body, FinenessOf(body, pixelsPerUnit));
        const bool inside = std::any_of(faces.begin(), faces.end(), [&](const SolidFace& face) {
            return LookOf(part, cover, face.surface).transparency > 0;
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
void AddPatches(const ShownPart& occurrence, std::size_t index, const Skin& skin,
                const Placement& view, double pixelsPerMm, std::vector<Patch>* patches) {
    const Placement placement = Compose(view, occurrence.placement);
    std::vector<Vec3> normals;
    for (const SkinFacet& facet : skin) {
        normals.push_back(Unit(placement.Direction(facet.normal)));
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
        Shade(LookOf(*occurrence.part, occurrence.cover, facet.surface), patch.normal, away,
              &patch);
        if (patch.opacity < kInvisible) continue;
        for (std::size_t i = 0; i < facet.corners.size(); ++i) {
            patch.corners.push_back(pixelsPerMm * placement.Point(facet.corners[i]));
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

}  // namespace

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

std::vector<Patch> PatchesOf(const std::vector<ShownPart>& occurrences, const Placement& view,
                             double pixelsPerMm) {
    // A cover decides whether a part can be looked into.
    std::map<std::pair<const Model*, const ProdbSurfaceProps*>, Skin> skins;
    std::vector<Patch> patches;
    for (std::size_t i = 0; i < occurrences.size(); ++i) {
        const ShownPart& one = occurrences[i];
        const auto [skin, isNew] = skins.try_emplace({one.part, one.cover});
        if (isNew) {
            skin->second = SkinOf(*one.part, one.cover, pixelsPerMm * LengthUnit(*one.part));
        }
        AddPatches(one, i, skin->second, view, pixelsPerMm, &patches);
    }
    return patches;
}

}  // namespace simhost
