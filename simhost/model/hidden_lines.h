// Which pieces of a model's edges are hidden by the facets before them, seen against the z axis.
#pragma once

#include <cstddef>
#include <vector>

#include "simhost/model/projection.h"

namespace simhost {

// What is looked at: the edges that are to be drawn, and the facets that may cover them. Fill it by
// the two functions.
struct HiddenLineScene {
    void AddEdge(Vec3 from, Vec3 to);
    // A flat convex facet that is turned to the viewer; its corners run counter-clockwise on the
    // sheet. The length of the normal does not matter, its z is greater than 0.
    void AddCover(const std::vector<Vec3>& corners, Vec3 normal);

    struct Edge {
        Vec3 from, to;
    };
    // A side of a facet: a point on it, and the direction of length 1 into the facet.
    struct Side {
        double x, y, inX, inY;
    };
    struct Cover {
        std::size_t firstSide, sideCount;
        double slopeX, slopeY, level;  // depth = level + slopeX * x + slopeY * y
        double left, low, right, high;
        double top;  // its depth where it is nearest to the viewer
    };

    std::vector<Edge> edges;
    std::vector<Side> sides;
    std::vector<Cover> covers;
    Extents box;
};

// The seen pieces of all edges and, if wanted, the hidden ones, in the order of the edges. Pieces
// too short to be drawn, such as edges seen from their ends, are left out.
std::vector<DrawnLine> PiecesOf(const HiddenLineScene& scene, bool withHidden);

}  // namespace simhost
