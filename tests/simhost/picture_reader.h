// Reads a picture back from its text: which areas are painted, in which order and colour, and for
// which part.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "simhost/model/geometry.h"

namespace picture {

using simhost::Vec3;

// Pixels, x to the right and y down.
struct Point {
    double x, y;
};
// A painted polygon: the name of its part, and its colour as "#rrggbb".
struct Area {
    std::string part;
    std::string fill;
    std::vector<Point> corners;
};

// How often a text has another one in it.
int Count(const std::string& text, const std::string& what);

// What is between two words, from *at on; *at moves past it. Empty and *at npos: no more.
std::string Between(const std::string& text, const char* from, const char* to, std::size_t* at);
std::string Between(const std::string& text, const char* from, const char* to);

// The painted areas in the order of painting, with the name of their part.
std::vector<Area> AreasOf(const std::string& svg);

// Where a point or a direction of the model must be seen, worked out on its own: across, up, and
// towards the viewer.
Vec3 Seen(Vec3 v);

// How far the added points reach.
struct Range {
    double left = 1e30, right = -1e30, low = 1e30, high = -1e30;
    void Add(double x, double y) {
        left = std::min(left, x);
        right = std::max(right, x);
        low = std::min(low, y);
        high = std::max(high, y);
    }
};

}  // namespace picture
