// The record of a solid of the kernel, for those who ask without it.
#pragma once

#include <TopoDS_Shape.hxx>

#include "simhost/model/imported_body.h"

namespace simhost::kernel {

// Faces are in the order in which the kernel walks them. The shape is left with facets.
ImportedBody BodyOf(const TopoDS_Shape& shape);

}  // namespace simhost::kernel
