// A workbench whose tests look at the door: what was called, and what comes of calls that fail.
// Assemblies can be made in one line.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/support/workbench.h"

namespace workbench {

using Names = std::vector<std::string>;

class ObservedBench : public Workbench {
protected:
    // Adds a component for each model in this order and gives their ids. With nothing else added
    // to the assembly before, the ids are 1, 2, 3 and so on.
    std::vector<int> UseAll(simhost::Model& assembly,
                            std::initializer_list<simhost::Model*> models);
    // A component whose model is not in memory; its id.
    int UseMissing(simhost::Model& assembly, const std::string& file);
    // Good until the next feature is added.
    simhost::Feature& FeatureOf(simhost::Model& assembly, int id);

    // What the door sees from here on; its end, as names of operations.
    void Record();
    Names Recorded();
    // The lines of the last record with this operation, or with any that begins so ("Excel*"),
    // without their indentation. What is called of the host, of Windows and of the spreadsheet
    // application is in one record, in its order.
    static Names Lines(const std::string& operation);
};

// Ascending by the handle's numeric value.
void SortByHandle(std::vector<simhost::Model*>* models);
// These models' file names in that order.
Names ByHandle(std::vector<simhost::Model*> models);

// The pieces one after the other.
Names Joined(std::initializer_list<Names> pieces);

}  // namespace workbench
