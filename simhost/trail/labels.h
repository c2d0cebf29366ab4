// What the user sees on a button means that button: labels in the place of names.
#pragma once

#include <string>

#include "simhost/trail/lexer.h"

namespace simhost {

// Puts the name in the place of a label in a step: of a command, of a button or check button, of a
// radio item. A name goes before a label. Empty, or why it cannot be told which is meant.
std::string NameLabels(Step* step);

// Makes a step of a plain line that is the name or the label of a command or, while a dialog is
// open, of one of its buttons or radio items. Any other line stays as it is. step->problem tells
// if several bear it.
void ResolvePlain(Step* step);

}  // namespace simhost
