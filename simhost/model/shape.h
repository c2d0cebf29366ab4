// The one record of a part's shape: whatever makes a part (solids of its file, merges, groups) ends
// here, and whoever asks about faces, edges, size or volume asks here. Lengths are in the part's
// own unit and coordinates.
#pragma once

#include <vector>

#include "simhost/model/geometry.h"

namespace simhost {

enum class FaceKind { Plane, Cylinder, Cone, Other };  // other: of an imported solid

// Whether a face has an axis and two ends on it.
inline bool IsRound(FaceKind kind) {
    return kind == FaceKind::Cylinder || kind == FaceKind::Cone;
}

// A face is what the host calls a surface.
struct ShapeFace {
    int id = 0;
    FaceKind kind = FaceKind::Plane;
    Vec3 origin;          // a point of the plane, or of the axis
    Vec3 axis;            // of length 1: out of the plane, or along the axis
    double radius = 0;    // of a cylinder; of a cone at the origin
    double slope = 0;     // of a cone: what its radius gains with each unit along the axis
    bool hollow = false;  // round faces: the wall of a bore, its solid lies outside
    Extents box;          // along the part's axes
};

enum class EdgeKind { Line, Circle };

// Where two faces meet.
struct ShapeEdge {
    int id = 0;
    EdgeKind kind = EdgeKind::Line;
    Vec3 from, to;      // a circle is closed: its ends are one point, on the x axis below
    int faces[2] = {};  // their ids, the lower one first
    std::size_t vertices[2] = {};  // of `from` and `to` in PartShape::vertices
    Placement frame;               // circle: its centre, and its plane by the x and y axes
    double radius = 0;             // circle
};

// What encloses one volume.
struct ShapeBody {
    Solid madeOf;
    std::size_t firstFace = 0, faceCount = 0;  // in PartShape::faces
    double widest = 0;                         // diameter of its largest circle; 0: it has none
};

struct PartShape {
    std::vector<ShapeBody> bodies;  // in the order of the part's solids
    std::vector<ShapeFace> faces;   // by body, in the order of their ids
    std::vector<ShapeEdge> edges;
    std::vector<Vec3> vertices;  // each once in each body; also the tips of cones
    double volume = 0;           // the sum over the bodies, what they share counts twice
};

// An edge belongs to the one of its faces that has the higher id: its own id is ten times that
// face's, and 1, 2, 3 or 4. So ids stay while other solids come and go.
PartShape ShapeOf(const std::vector<Solid>& solids);
// Whether a record is still that of these solids.
bool IsShapeOf(const PartShape& shape, const std::vector<Solid>& solids);

// The faces of a body cut into flat facets; `fineness` is the number of facets of a full circle.
std::vector<SolidFace> FacetsOf(const ShapeBody& body, int fineness = 32);

// The box around the shape along the axes of a frame that takes the part's points there; true for
// round faces too.
Extents ExtentsIn(const PartShape& shape, const Placement& frame);

// From the sizes of the solid and not from its facets.
double VolumeOf(const Solid& solid);

}  // namespace simhost
