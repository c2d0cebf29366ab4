// What goes to the geometry kernel and comes from it, as plain data: products with their solids,
// and where they are used. Lengths are in mm, colours 0 to 1, texts UTF-8.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "simhost/model/geometry.h"

namespace simhost::kernel {

using Colour = std::array<double, 3>;  // red, green, blue

// A product as it is used in another.
struct Occurrence {
    std::size_t product = 0;  // in Document::products
    std::string name;
    Placement place;
    std::optional<Colour> colour;  // covers those of the product
};

// A part has solids, an assembly occurrences; what has neither is a product without a shape.
struct Product {
    std::string name;
    std::vector<Solid> solids;
    std::optional<Colour> colour;
    std::map<int, Colour> faceColours;  // by the id of the surface; they cover the part's
    std::vector<Occurrence> occurrences;
};

struct Document {
    std::vector<Product> products;  // the first is the top; each once, however often it is used
    std::string unit = "mm";        // in which a file has its lengths: "mm", "cm", "m", "in", "ft"
    bool facetted = false;          // flat facets in the place of round faces
};

}  // namespace simhost::kernel
