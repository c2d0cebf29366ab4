// A picture of what is on the screen: an assembly or a part as a designer would see it in an
// isometric view, with hidden lines hidden, to look at after a run.
#pragma once

#include <string>

#include "simhost/model/model.h"
#include "simhost/picture/canvas.h"

namespace simhost {

// The model in an isometric view, `widthPixels` wide (at least 160), z upwards. What is suppressed,
// hidden, excluded or not in memory is left out, and so is what has no solids; a manufacturing
// model shows its assembly. The same model always gives the same picture. Each part is a group that
// tells its name and title. Below are the name, the number of parts shown and the scale (at 96
// pixels to the inch; all three axes are foreshortened alike by 0.816).
Picture IsometricPicture(const Model& top, int widthPixels);

// The model as it is turned, moved and enlarged on the screen, with a ruler of the screen's
// coordinates around it: from 0 to 1000 to the right and from 0 to 800 upwards.
Picture ScreenPicture(Model& model);

// The same as IsometricPicture, as SVG text.
std::string IsometricSvg(const Model& top, int widthPixels);

// "63.102.241": red, green and blue of an appearance, each 0 to 255, rounded.
std::string ColourText(const ProdbSurfaceProps& props);

}  // namespace simhost
