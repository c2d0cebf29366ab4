// Family tables: a generic and its instances, each a model of its own. An instance shows the
// parameters of its generic; of those that are columns it has a value of its own.
#pragma once

#include <string>
#include <vector>

#include "hostapi/wide.h"

namespace simhost {

class Model;

struct FamilyTable {
    std::vector<WideText> columns;  // of a generic: names of parameters
    std::string genericFile;        // of an instance: "bolt.prt"; empty: it is none
    Model* generic = nullptr;       // of an instance: null while the generic is not in memory

    bool HasColumn(WideView parameter) const;
};

}  // namespace simhost
