// Saving the picture of the current model.
#pragma once

#include <string>

namespace simhost {

// Draws the current model, a drawing's current sheet, into a file (a path of this system, UTF-8)
// that ends in .svg, .png or .pdf, and makes its folder where missing. Empty, or the reason why it
// could not be done.
std::string SavePicture(const std::string& file);

}  // namespace simhost
