// Uses of models in an assembly, which is what is hidden and shown.
#pragma once

#include <unordered_set>
#include <vector>

#include "frame/services.h"

// One use of a model. Of an assembly that is used twice, what is in it is the same use both times.
struct ComponentOccurrence {
    ProMdl model = nullptr;
    int id = 0;              // of the component, in its owner
    ProMdl owner = nullptr;  // the assembly that directly holds it

    bool operator==(const ComponentOccurrence&) const = default;
};

// Occurrences, each once, in the order in which they were first added.
class OccurrenceList {
public:
    void Add(const ComponentOccurrence& occurrence);
    // All of an array whose models can be fetched.
    void AddAll(const ComponentArray& components, int size);
    const std::vector<ComponentOccurrence>& list() const { return list_; }

private:
    struct Hash {
        std::size_t operator()(const ComponentOccurrence& occurrence) const;
    };
    std::vector<ComponentOccurrence> list_;
    std::unordered_set<ComponentOccurrence, Hash> known_;
};

// The item by which a component is hidden and shown.
ProModelitem ItemOf(int id, ProMdl owner);

// The top model of the commands that work on assemblies alone; null for any other.
ProMdl TopAssembly();
