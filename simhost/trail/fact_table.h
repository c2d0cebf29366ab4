// A table of what models hold, taken at several moments: what a script did to them is seen side by
// side.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "simhost/model/session.h"

namespace simhost {

class FactTable {
public:
    // Takes these facts of all models in memory as columns under a label. A fact is "colour" (of
    // parts), "relations" (their number), "material", "density", "mass", "bend table", "developed
    // length", "units", "size", "first component" (its place), or the name of a parameter.
    void Take(const Session& session, const std::string& label,
              const std::vector<std::string>& facts);
    // The table, a line for each model that has any of the facts; and it is empty again.
    std::vector<std::string> Lines();
    bool empty() const { return columns_.empty(); }

private:
    struct Column {
        std::string label, fact;
        std::map<std::string, std::string> cells;  // by the models' file names
    };
    std::vector<Column> columns_;
};

}  // namespace simhost
