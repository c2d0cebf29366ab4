// The shapes of parts: simple solids in their own frames, and what can be asked of them. A real
// geometry kernel could answer behind this interface.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace simhost {

struct Vec3 {
    double x = 0, y = 0, z = 0;
    bool operator==(const Vec3&) const = default;
};
inline Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec3 operator-(Vec3 a, Vec3 b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vec3 operator*(double k, Vec3 a) {
    return {k * a.x, k * a.y, k * a.z};
}
inline double Dot(Vec3 a, Vec3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vec3 Cross(Vec3 a, Vec3 b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

// A point of a flat outline.
using Point2 = std::array<double, 2>;
// Twice the area of the triangle: positive where a, b, c turn to the left.
inline double Turn(Point2 a, Point2 b, Point2 c) {
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

// A rigid placement: the three axes of the frame and its origin, in the parent's coordinates (mm).
struct Placement {
    std::array<Vec3, 3> axes{Vec3{1, 0, 0}, Vec3{0, 1, 0}, Vec3{0, 0, 1}};
    Vec3 origin;

    Vec3 Direction(Vec3 v) const;  // a direction given in the frame, in the parent's coordinates
    Vec3 Point(Vec3 p) const;      // a point likewise
};
// The frame `inner`, given in `outer`, in the parent of `outer`.
Placement Compose(const Placement& outer, const Placement& inner);
// Turned about the fixed x, y and z axes in this order (degrees), then moved to `at`; and the
// angles of a placement again (a rotation that this order can give in two ways is given in one).
Placement PlacementFrom(Vec3 at, Vec3 turn);
Vec3 TurnOf(const Placement& placement);

// An axis-parallel box; empty until a point was added.
struct Extents {
    Vec3 low, high;
    bool empty = true;
    void Add(Vec3 p);
};

struct ImportedBody;

enum class Shape { Box, Cylinder, Tube, Cone, Gear, Prism, Imported };

// One solid of a part as its file has it. Which numbers count depends on the shape.
struct Solid {
    int id = 0;
    int feature = 0;  // the merge or group that made it; 0: the part's own
    Shape shape = Shape::Box;
    Vec3 at, turn;
    Vec3 size;                               // box
    double diameter = 0, top = 0;            // cylinder; cone (top: the diameter at its upper end)
    double outer = 0, inner = 0;             // tube
    double length = 0;                       // cylinder, tube, cone
    double module = 0, width = 0, bore = 0;  // gear
    int teeth = 0;
    std::vector<Point2> outline;               // prism: counter-clockwise
    double height = 0;                         // prism
    double scale = 0;                          // imported: the length of a mm of its record
    std::shared_ptr<const ImportedBody> body;  // imported
    bool operator==(const Solid&) const = default;
};

// "box" and so on; ParseShape gives false for a word that names no shape.
const char* ShapeName(Shape shape);
bool ParseShape(const std::string& word, Shape* shape);
std::string ShapeNames();  // all of them, with commas between them

// One flat, convex, outward-facing (counter-clockwise) polygon of a surface.
struct Facet {
    std::vector<Vec3> corners;
};
// One surface of a solid in the part's coordinates; curved ones are cut into flat facets.
struct SolidFace {
    int surface = 0;  // the surface's id in the part
    std::vector<Facet> facets;
};

// The number of surfaces of the solid; their ids are solid.id + 1 … solid.id + count.
int SurfaceCount(const Solid& solid);
// Surfaces cut into facets; `fineness` is the number of facets of a full circle.
std::vector<SolidFace> Faces(const Solid& solid, int fineness = 32);
// The box around the solid in the part's coordinates, from its facets.
Extents ExtentsOf(const Solid& solid);

}  // namespace simhost
