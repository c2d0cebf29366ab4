// The part of the demonstration that writes data into models.
#pragma once

#include <functional>
#include <string>

namespace simhost {

// On the open gearbox: adds a relation to all parts but those of some keywords, creates and updates
// a parameter, writes outline sizes, sheet sizes and numbers, and prints every model before and
// after as a table. True if all went well.
bool RunDataDemo(const std::function<void(const std::string&)>& print);

}  // namespace simhost
