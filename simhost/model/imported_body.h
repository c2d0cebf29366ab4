// A solid that came from another system: what is asked of its faces, edges and volume, kept so that
// no geometry kernel is needed to answer, and its exact shape in the kernel's own words. All of it
// is in mm and in the coordinates of the file it came from.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simhost/model/shape.h"

namespace simhost {

struct ImportedFace {
    FaceKind kind = FaceKind::Other;
    Vec3 origin, axis;  // as of a ShapeFace
    double radius = 0, slope = 0;
    bool hollow = false;
    Extents box;
    std::vector<std::array<int, 3>>
        triangles;  // points of the body, counter-clockwise from outside
};

// Curves that are neither straight nor full circles come as several straight edges.
struct ImportedEdge {
    EdgeKind kind = EdgeKind::Line;
    int faces[2] = {};  // places in the body's list, the lower one first
    Vec3 from, to;
    Placement frame;  // as of a ShapeEdge
    double radius = 0;
};

struct ImportedBody {
    std::vector<Vec3> points;
    std::vector<ImportedFace> faces;
    std::vector<ImportedEdge> edges;
    double volume = 0;
    std::string exact;
};

// How many numbers of surfaces it takes, so that those of its edges are no other body's.
int NumbersTaken(const ImportedBody& body);

// All but the exact shape as text, a line for each item, and back: false for a text that is none.
std::string RecordText(const ImportedBody& body);
bool ReadRecord(std::string_view text, ImportedBody* body);

}  // namespace simhost
