// The text of a STEP file in an order that does not hang on where things lay in memory.
#pragma once

#include <string>

namespace simhost::kernel {

// The kernel writes the colours of parts last, part by part in an order of its own; here they come
// in the order of the parts.
std::string WithColoursInOrder(const std::string& text);

}  // namespace simhost::kernel
