// Exact shapes of the kernel, made from the solids of a part.
#pragma once

#include <TopoDS_Shape.hxx>

#include <vector>

#include "simhost/kernel/document.h"

namespace simhost::kernel {

// One solid in the part's coordinates.
TopoDS_Shape ShapeOfSolid(const Solid& solid, bool facetted);
// A part of several solids has them side by side, not joined. Null if there is none.
TopoDS_Shape SideBySide(const std::vector<TopoDS_Shape>& shapes);

// The kernel's faces of a solid by the ids of its surfaces. The kernel has its own order of faces,
// so they are found by where they are.
std::map<int, std::vector<TopoDS_Shape>> FacesBySurface(const TopoDS_Shape& shape,
                                                        const Solid& solid);

}  // namespace simhost::kernel
