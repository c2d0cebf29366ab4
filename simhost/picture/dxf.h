// Sheets of drawings as drawing-exchange text that other systems read.
#pragma once

#include <string>

#include "simhost/model/model.h"

namespace simhost {

// The sheet (from 1) of a drawing at full size in the exchange format of release 12: the frame, and
// each view's edges on the layers VISIBLE and HIDDEN, dimensions and notes on DIMENSION. In code
// page 936, lines ended as on Windows.
std::string SheetDxf(Model& drawing, int sheet);

}  // namespace simhost
