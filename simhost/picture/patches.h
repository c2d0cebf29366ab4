// What a picture is painted with: the parts that can be seen, and their facets as flat patches in
// the colours that the light gives them.
#pragma once

#include <string>
#include <vector>

#include "simhost/model/shown.h"

namespace simhost {

// A polygon that is painted in one colour. Its corners run counter-clockwise on the screen. Lengths
// in the view are pixels: x to the right, y up, z towards the viewer.
struct Patch {
    std::vector<Vec3> corners;
    std::vector<char> drawn;  // the edge from each corner
    Vec3 normal;              // towards the viewer
    std::size_t occurrence = 0;
    int surface = 0;
    int sequence = 0;  // the order in which facets were made: neighbours lie close
    std::string fill;
    std::string ink;  // of its edges
    double opacity = 1;
    double area = 0;  // on the screen
    double left = 0, right = 0, low = 0, high = 0;
};

constexpr double kNoArea = 1e-4;  // square pixels: what is smaller cannot be seen

// The area of a polygon on the screen; less than 0 if its corners run clockwise.
double AreaOf(const std::vector<Vec3>& corners);

// Sets the area and the borders of a patch after its corners.
void Measure(Patch* patch);

// The facets of these parts, that are turned
// to the viewer, and those behind them where one can look into a part. They may cover each other
// and pass through each other.
std::vector<Patch> PatchesOf(const std::vector<ShownPart>& occurrences, const Placement& view,
                             double pixelsPerMm);

}  // namespace simhost
