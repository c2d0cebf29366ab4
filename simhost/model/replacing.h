// Another model in the place of a component.
#pragma once

#include <string>

namespace simhost {

class Session;
struct Selection;

// Puts the model of this file ("bolt-1.prt", in memory or in the working folder) into the place of
// the selected component: in the assembly that directly holds it, and so in every use of that.
// Number, place and position in the tree stay; constraints stay whose references the new model has.
// Nothing is selected afterwards. Empty, or why it is refused; then nothing has changed.
std::string ReplaceComponent(Session& session, const Selection& selection, const std::string& file);

}  // namespace simhost
