// What jobs need beside the generated assembly: files, names that are taken, picks, another window.
#pragma once

#include <string>

namespace simhost {
class Workplace;
}

namespace bench {

// Readies the session, in which the assembly is open, for a job at this size.
struct Preparation {
    const char* job;
    void (*prepare)(const simhost::Workplace& workplace, int size);
    // Where something else grows, the assembly has so many components at every size; 0: as many as
    // the size says.
    int components = 0;
    const char* command = nullptr;  // what is pressed; null: the job's own name
};

// Null: the job needs nothing.
const Preparation* PreparationOf(const std::string& job);

}  // namespace bench
