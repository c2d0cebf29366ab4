// Which calls came in which order, as short texts, for tests of a prescribed order.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace workbench {

// Of these lines of a journal the calls of the operations, in their order, each as the operation
// and what it was about: "ProUIInputpanelValueGet InputKeyWords", "ProTreetoolRefresh top.asm".
std::vector<std::string> CallOrder(const std::vector<std::string>& lines,
                                   const std::set<std::string>& operations);

}  // namespace workbench
