// New drawings made from a template: its sheets, formats and views, filled with the model that the
// new drawing is to show.
#pragma once

#include "simhost/model/drawing.h"

namespace simhost {

// Fills an empty drawing from a template. Views of the template that name no model show `shown`;
// a sheet on which such views have room takes the largest usual scale at which they keep to it.
// False, and the drawing is not to be used: a format of the template is not there.
bool FillFromTemplate(const Model& pattern, Model& shown, Model* drawing);

// The largest scale of those that draughtsmen use that is not more than this.
double UsualScale(double most);

}  // namespace simhost
