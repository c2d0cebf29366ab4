// Saving the picture of the current model.
#pragma once

#include <string>

namespace simhost {

// Draws the current model, a drawing's current sheet, into a file (a path of this system, UTF-8)
// that ends in .svg, .png or .pdf, and makes its folder where missing. A part or an assembly is
// drawn whole, or as it is turned and enlarged on the screen, with a ruler. Empty, or the reason
// why it could not be done.
std::string SavePicture(const std::string& file, bool asOnScreen = false);

}  // namespace simhost
