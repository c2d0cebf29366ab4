// Solids of parts in one line each, and where boxes must lie.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <utility>
#include <vector>

#include "simhost/model/geometry.h"

namespace workbench {

// Lengths in the unit of the part.
inline simhost::Solid BoxSolid(simhost::Vec3 size, int id = 10) {
    simhost::Solid solid;
    solid.id = id;
    solid.shape = simhost::Shape::Box;
    solid.size = size;
    return solid;
}

inline simhost::Solid CylinderSolid(double diameter, double length, int id = 10) {
    simhost::Solid solid;
    solid.id = id;
    solid.shape = simhost::Shape::Cylinder;
    solid.diameter = diameter;
    solid.length = length;
    return solid;
}

inline simhost::Solid TubeSolid(double outer, double inner, double length, int id = 10) {
    simhost::Solid solid;
    solid.id = id;
    solid.shape = simhost::Shape::Tube;
    solid.outer = outer;
    solid.inner = inner;
    solid.length = length;
    return solid;
}

inline simhost::Solid ConeSolid(double diameter, double top, double length, int id = 10) {
    simhost::Solid solid;
    solid.id = id;
    solid.shape = simhost::Shape::Cone;
    solid.diameter = diameter;
    solid.top = top;
    solid.length = length;
    return solid;
}

// Without a bore if that is 0.
inline simhost::Solid GearSolid(double module, int teeth, double width, double bore, int id = 10) {
    simhost::Solid solid;
    solid.id = id;
    solid.shape = simhost::Shape::Gear;
    solid.module = module;
    solid.teeth = teeth;
    solid.width = width;
    solid.bore = bore;
    return solid;
}

using Outline = std::vector<std::array<double, 2>>;
inline simhost::Solid PrismSolid(Outline outline, double height, int id = 10) {
    simhost::Solid solid;
    solid.id = id;
    solid.shape = simhost::Shape::Prism;
    solid.outline = std::move(outline);
    solid.height = height;
    return solid;
}

inline void ExpectBox(const simhost::Extents& box, simhost::Vec3 low, simhost::Vec3 high,
                      double slack = 1e-9) {
    EXPECT_NEAR(box.low.x, low.x, slack);
    EXPECT_NEAR(box.low.y, low.y, slack);
    EXPECT_NEAR(box.low.z, low.z, slack);
    EXPECT_NEAR(box.high.x, high.x, slack);
    EXPECT_NEAR(box.high.y, high.y, slack);
    EXPECT_NEAR(box.high.z, high.z, slack);
}

}  // namespace workbench
