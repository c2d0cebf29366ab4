// The triangles and edges of a part, as the 3-D view of a page draws them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

#include "simhost/model/model.h"

namespace simhost {

// Lengths are in the part's unit and coordinates.
struct Mesh {
    struct Surface {
        int id;
        std::uint32_t triangles;
    };
    std::uint32_t number = 0;              // no other mesh of this program has it
    std::vector<Surface> surfaces;         // their triangles follow each other in this order
    std::vector<float> points;             // x, y, z of each
    std::vector<float> normals;            // likewise: out of the solid there, of length 1
    std::vector<std::uint32_t> triangles;  // three points each, counter-clockwise from outside
    std::vector<float> edges;              // x, y, z of both ends of each straight piece
};

// Without a number. Round surfaces are cut as finely as all that is measured on the screen, and
// their normals run smoothly.
Mesh MeshOf(const PartShape& shape);

// The meshes of parts, made when they are asked for first and anew after the solids have changed.
class Meshes {
public:
    // Good until the next Forget.
    const Mesh& Of(const Model& part);
    // Drops all that was not asked for since the last call.
    void Forget();

private:
    struct Kept {
        std::vector<Solid> solids;  // that the mesh was made of
        Mesh mesh;
        bool asked = true;
    };
    std::unordered_map<const Model*, Kept> kept_;
    std::uint32_t lastNumber_ = 0;
};

}  // namespace simhost
