// The shapes that parts are made of, cut into flat facets: what the picture shows, what surfaces
// have ids and how large a part is all come from here.
#include "simhost/model/geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "simhost/model/imported_body.h"

namespace simhost {

namespace {

using std::numbers::pi;

// Sine and cosine of an angle in degrees, exact for quarter turns: parts stay at right angles.
void SineCosine(double degrees, double* sine, double* cosine) {
    const double turn = std::remainder(degrees, 360.0);
    if (std::remainder(turn, 90.0) == 0.0) {
        const int quarter = (int(std::lround(turn / 90.0)) + 4) % 4;
        constexpr double kSines[] = {0, 1, 0, -1};
        *sine = kSines[quarter];
        *cosine = kSines[(quarter + 1) % 4];
        return;
    }
    *sine = std::sin(turn * pi / 180.0);
    *cosine = std::cos(turn * pi / 180.0);
}

double Degrees(double radians) {
    const double degrees = radians * 180.0 / pi;
    if (degrees <= -180.0) return 180.0;
    return degrees + 0.0;  // no negative zero
}

// --- Rings and walls: what the faces of round and prismatic solids are made of ---

Vec3 At(Point2 p, double z) {
    return {p[0], p[1], z};
}

std::vector<Point2> Circle(double diameter, int count) {
    std::vector<Point2> ring;
    for (int i = 0; i < count; ++i) {
        double sine = 0, cosine = 0;
        SineCosine(360.0 * i / count, &sine, &cosine);
        ring.push_back({diameter / 2 * cosine, diameter / 2 * sine});
    }
    return ring;
}

// One flat polygon at the height z; the ring is counter-clockwise.
Facet Lid(const std::vector<Point2>& ring, double z, bool up) {
    Facet facet;
    for (const Point2& p : ring) facet.corners.push_back(At(p, z));
    if (!up) std::reverse(facet.corners.begin(), facet.corners.end());
    return facet;
}

// The side from edge i of the lower ring up to the same edge of the upper one, seen from outside.
Facet Wall(const std::vector<Point2>& lower, double z0, const std::vector<Point2>& upper, double z1,
           std::size_t i) {
    const std::size_t next = (i + 1) % lower.size();
    return {{At(lower[i], z0), At(lower[next], z0), At(upper[next], z1), At(upper[i], z1)}};
}

Facet Turned(Facet facet) {
    std::reverse(facet.corners.begin(), facet.corners.end());
    return facet;
}

// The flat ring between two counter-clockwise rings of equally many points.
std::vector<Facet> Annulus(const std::vector<Point2>& outer, const std::vector<Point2>& inner,
                           double z, bool up) {
    std::vector<Facet> facets;
    for (std::size_t i = 0; i < outer.size(); ++i) {
        const std::size_t next = (i + 1) % outer.size();
        Facet facet{{At(outer[i], z), At(outer[next], z), At(inner[next], z), At(inner[i], z)}};
        facets.push_back(up ? std::move(facet) : Turned(std::move(facet)));
    }
    return facets;
}

// --- Flat outlines ---

bool IsConvex(const std::vector<Point2>& outline) {
    const std::size_t n = outline.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (Turn(outline[i], outline[(i + 1) % n], outline[(i + 2) % n]) < 0) return false;
    }
    return true;
}

// Whether the corner b can be cut off: it points outwards, and no other point lies on the triangle.
bool IsEar(const std::vector<Point2>& left, std::size_t at) {
    const std::size_t n = left.size();
    const std::size_t before = (at + n - 1) % n, after = (at + 1) % n;
    const Point2 a = left[before], b = left[at], c = left[after];
    if (Turn(a, b, c) <= 0) return false;
    for (std::size_t i = 0; i < n; ++i) {
        if (i == before || i == at || i == after) continue;
        const Point2 p = left[i];
        if (Turn(a, b, p) >= 0 && Turn(b, c, p) >= 0 && Turn(c, a, p) >= 0) return false;
    }
    return true;
}

// Ear clipping. An outline that crosses itself gives triangles too, if not sensible ones.
std::vector<std::vector<Point2>> ConvexPieces(std::vector<Point2> outline) {
    if (IsConvex(outline)) return {std::move(outline)};
    std::vector<std::vector<Point2>> pieces;
    std::size_t at = 0, refused = 0;
    while (outline.size() > 3) {
        const std::size_t n = outline.size();
        at %= n;
        if (refused < n && !IsEar(outline, at)) {
            ++at;
            ++refused;
            continue;
        }
        pieces.push_back({outline[(at + n - 1) % n], outline[at], outline[(at + 1) % n]});
        outline.erase(outline.begin() + std::ptrdiff_t(at));
        refused = 0;
    }
    pieces.push_back(std::move(outline));
    return pieces;
}

// --- The shapes in their own frames; faces in the order of their ids ---

using FaceList = std::vector<std::vector<Facet>>;

FaceList BoxFaces(const Solid& solid) {
    const double x = solid.size.x, y = solid.size.y, z = solid.size.z;
    const Vec3 a{0, 0, 0}, b{x, 0, 0}, c{x, y, 0}, d{0, y, 0};
    const Vec3 e{0, 0, z}, f{x, 0, z}, g{x, y, z}, h{0, y, z};
    return {{{{a, e, h, d}}}, {{{b, c, g, f}}}, {{{a, b, f, e}}},
            {{{d, h, g, c}}}, {{{a, d, c, b}}}, {{{e, f, g, h}}}};
}

// A cylinder is a cone of equal ends. An end of no size is a point and has no face.
FaceList ConeFaces(double bottom, double top, double length, int count) {
    const auto low = Circle(bottom, count), high = Circle(top, count);
    std::vector<Facet> side;
    for (std::size_t i = 0; i < low.size(); ++i) {
        Facet facet = Wall(low, 0, high, length, i);
        if (top <= 0) facet.corners.pop_back();
        if (bottom <= 0) facet.corners.erase(facet.corners.begin());
        side.push_back(std::move(facet));
    }
    FaceList faces{std::move(side)};
    if (bottom > 0) faces.push_back({Lid(low, 0, /*up=*/false)});
    if (top > 0) faces.push_back({Lid(high, length, /*up=*/true)});
    return faces;
}

FaceList TubeFaces(const Solid& solid, int count) {
    const auto out = Circle(solid.outer, count), in = Circle(solid.inner, count);
    FaceList faces(2);
    for (std::size_t i = 0; i < out.size(); ++i) {
        faces[0].push_back(Wall(out, 0, out, solid.length, i));
        faces[1].push_back(Turned(Wall(in, 0, in, solid.length, i)));
    }
    faces.push_back(Annulus(out, in, 0, /*up=*/false));
    faces.push_back(Annulus(out, in, solid.length, /*up=*/true));
    return faces;
}

FaceList PrismFaces(const Solid& solid) {
    FaceList faces(2);
    for (const auto& piece : ConvexPieces(solid.outline)) {
        faces[0].push_back(Lid(piece, 0, /*up=*/false));
        faces[1].push_back(Lid(piece, solid.height, /*up=*/true));
    }
    for (std::size_t i = 0; i < solid.outline.size(); ++i) {
        faces.push_back({Wall(solid.outline, 0, solid.outline, solid.height, i)});
    }
    return faces;
}

// Half of a tooth, above its centre line: the angles of its flank on the root and the tip circle.
struct ToothForm {
    double rootRadius, tipRadius, rootAngle, tipAngle;
};

// The flank is a straight line through the pitch point, leaning by the usual 20 degrees there. A
// gear of few teeth would have no land left between them: its flanks are steeper.
ToothForm FormOf(const Solid& solid) {
    constexpr double kPressureAngle = 20.0 * pi / 180.0;
    constexpr double kWidestRoot = 0.9;  // of the angle that belongs to half a tooth and half a gap
    const double pitchRadius = solid.module * solid.teeth / 2;
    const double pitchAngle = pi / (2.0 * solid.teeth);
    ToothForm form{pitchRadius - 1.25 * solid.module, pitchRadius + solid.module, 0, 0};

    // Where the line from the pitch point in a direction meets a circle around the centre.
    const Point2 pitch{pitchRadius * std::cos(pitchAngle), pitchRadius * std::sin(pitchAngle)};
    const auto meet = [&](Point2 way, double radius) {
        const double along = pitch[0] * way[0] + pitch[1] * way[1];
        const double rest = radius * radius - pitchRadius * pitchRadius + along * along;
        const double t = -along + std::sqrt(std::max(rest, 0.0));
        return Point2{pitch[0] + t * way[0], pitch[1] + t * way[1]};
    };
    const double lean = pitchAngle - kPressureAngle;
    Point2 way{std::cos(lean), std::sin(lean)};
    const Point2 root = meet(way, form.rootRadius);
    form.rootAngle = std::atan2(root[1], root[0]);
    const double widest = kWidestRoot * pi / solid.teeth;
    if (form.rootAngle > widest || root[0] <= 0) {
        form.rootAngle = widest;
        const double x = pitch[0] - form.rootRadius * std::cos(widest);
        const double y = pitch[1] - form.rootRadius * std::sin(widest);
        way = {x / std::hypot(x, y), y / std::hypot(x, y)};
    }
    const Point2 tip = meet(way, form.tipRadius);
    form.tipAngle = std::atan2(tip[1], tip[0]);
    return form;
}

Point2 Polar(double radius, double angle) {
    return {radius * std::cos(angle), radius * std::sin(angle)};
}

// The first tooth lies on the x axis. The ring of a gear's body has two points for each tooth, so
// that teeth, body and bore meet in common edges.
FaceList GearFaces(const Solid& solid) {
    const ToothForm form = FormOf(solid);
    std::vector<Point2> outline, root, bore;
    for (int i = 0; i < solid.teeth; ++i) {
        const double middle = 2.0 * pi * i / solid.teeth;
        const double low = middle - form.rootAngle, high = middle + form.rootAngle;
        outline.push_back(Polar(form.rootRadius, low));
        outline.push_back(Polar(form.tipRadius, middle - form.tipAngle));
        outline.push_back(Polar(form.tipRadius, middle + form.tipAngle));
        outline.push_back(Polar(form.rootRadius, high));
        root.push_back(Polar(form.rootRadius, low));
        root.push_back(Polar(form.rootRadius, high));
        bore.push_back(Polar(solid.bore / 2, low));
        bore.push_back(Polar(solid.bore / 2, high));
    }
    FaceList faces(2);
    for (const bool up : {false, true}) {
        const double z = up ? solid.width : 0;
        auto& face = faces[up ? 1 : 0];
        face = solid.bore > 0 ? Annulus(root, bore, z, up) : std::vector{Lid(root, z, up)};
        for (std::size_t i = 0; i < outline.size(); i += 4) {
            const auto first = outline.begin() + std::ptrdiff_t(i);
            face.push_back(Lid(std::vector<Point2>(first, first + 4), z, up));
        }
    }
    if (solid.bore > 0) {
        std::vector<Facet> wall;
        for (std::size_t i = 0; i < bore.size(); ++i) {
            wall.push_back(Turned(Wall(bore, 0, bore, solid.width, i)));
        }
        faces.push_back(std::move(wall));
    }
    for (std::size_t i = 0; i < outline.size(); ++i) {
        faces.push_back({Wall(outline, 0, outline, solid.width, i)});
    }
    return faces;
}

FaceList ImportedFaces(const Solid& solid) {
    FaceList faces;
    faces.reserve(solid.body->faces.size());
    for (const ImportedFace& face : solid.body->faces) {
        auto& facets = faces.emplace_back();
        for (const auto& triangle : face.triangles) {
            Facet facet;
            for (const int point : triangle) {
                facet.corners.push_back(solid.scale * solid.body->points[std::size_t(point)]);
            }
            facets.push_back(std::move(facet));
        }
    }
    return faces;
}

constexpr const char* kShapeNames[] = {"box",  "cylinder", "tube",    "cone",
                                       "gear", "prism",    "imported"};

}  // namespace

// --- Placements ---

Vec3 Placement::Direction(Vec3 v) const {
    return v.x * axes[0] + v.y * axes[1] + v.z * axes[2];
}

Vec3 Placement::Point(Vec3 p) const {
    return origin + Direction(p);
}

Placement Compose(const Placement& outer, const Placement& inner) {
    Placement result;
    for (std::size_t i = 0; i < 3; ++i) result.axes[i] = outer.Direction(inner.axes[i]);
    result.origin = outer.Point(inner.origin);
    return result;
}

Placement PlacementFrom(Vec3 at, Vec3 turn) {
    double sx = 0, cx = 1, sy = 0, cy = 1, sz = 0, cz = 1;
    SineCosine(turn.x, &sx, &cx);
    SineCosine(turn.y, &sy, &cy);
    SineCosine(turn.z, &sz, &cz);
    Placement result;
    result.axes[0] = {cz * cy, sz * cy, -sy};
    result.axes[1] = {cz * sy * sx - sz * cx, sz * sy * sx + cz * cx, cy * sx};
    result.axes[2] = {cz * sy * cx + sz * sx, sz * sy * cx - cz * sx, cy * cx};
    result.origin = at;
    return result;
}

// The turn about y comes out between -90 and 90 degrees. At its ends only the sum or difference of
// the other two is known: the turn about z is given as 0 there.
Vec3 TurnOf(const Placement& placement) {
    constexpr double kUpright = 1e-12;
    const Vec3 x = placement.axes[0], y = placement.axes[1], z = placement.axes[2];
    const double flat = std::hypot(x.x, x.y);
    const double aboutZ = flat < kUpright ? 0.0 : std::atan2(x.y, x.x);
    const double s = std::sin(aboutZ), c = std::cos(aboutZ);
    const double aboutX = std::atan2(s * z.x - c * z.y, c * y.y - s * y.x);
    const double aboutY = std::atan2(-x.z, flat);
    return {Degrees(aboutX), Degrees(aboutY), Degrees(aboutZ)};
}

void Extents::Add(Vec3 p) {
    if (empty) low = high = p;
    empty = false;
    low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
    high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
}

// --- Solids ---

const char* ShapeName(Shape shape) {
    return kShapeNames[std::size_t(shape)];
}

bool ParseShape(const std::string& word, Shape* shape) {
    const auto found = std::find(std::begin(kShapeNames), std::end(kShapeNames), word);
    if (found == std::end(kShapeNames)) return false;
    *shape = Shape(found - std::begin(kShapeNames));
    return true;
}

std::string ShapeNames() {
    std::string all;
    for (const char* name : kShapeNames) all += (all.empty() ? "" : ", ") + std::string(name);
    return all;
}

int SurfaceCount(const Solid& solid) {
    switch (solid.shape) {
        case Shape::Box: return 6;
        case Shape::Cylinder: return 3;
        case Shape::Tube: return 4;
        case Shape::Cone: return 1 + (solid.diameter > 0) + (solid.top > 0);
        case Shape::Gear: return 2 + (solid.bore > 0) + 4 * solid.teeth;
        case Shape::Prism: return 2 + int(solid.outline.size());
        case Shape::Imported: return int(solid.body->faces.size());
    }
    return 0;
}

std::vector<SolidFace> Faces(const Solid& solid, int fineness) {
    const int count = std::max(fineness, 3);
    FaceList list;
    switch (solid.shape) {
        case Shape::Box: list = BoxFaces(solid); break;
        case Shape::Cylinder:
            list = ConeFaces(solid.diameter, solid.diameter, solid.length, count);
            break;
        case Shape::Tube: list = TubeFaces(solid, count); break;
        case Shape::Cone: list = ConeFaces(solid.diameter, solid.top, solid.length, count); break;
        case Shape::Gear: list = GearFaces(solid); break;
        case Shape::Prism: list = PrismFaces(solid); break;
        case Shape::Imported: list = ImportedFaces(solid); break;
    }
    const Placement frame = PlacementFrom(solid.at, solid.turn);
    std::vector<SolidFace> faces;
    for (auto& facets : list) {
        for (Facet& facet : facets) {
            for (Vec3& corner : facet.corners) corner = frame.Point(corner);
        }
        faces.push_back({solid.id + int(faces.size()) + 1, std::move(facets)});
    }
    return faces;
}

Extents ExtentsOf(const Solid& solid) {
    Extents box;
    for (const SolidFace& face : Faces(solid)) {
        for (const Facet& facet : face.facets) {
            for (const Vec3& corner : facet.corners) box.Add(corner);
        }
    }
    return box;
}

}  // namespace simhost
