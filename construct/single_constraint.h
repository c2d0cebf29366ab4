// One constraint for a component, from its making to the host's copy of it.
#pragma once

#include "frame/services.h"

// Freed at the end with the array that hands it over: the assembly gets a copy.
class SingleConstraint {
public:
    explicit SingleConstraint(ProAsmcompConstrType type);
    ~SingleConstraint();
    SingleConstraint(const SingleConstraint&) = delete;
    SingleConstraint& operator=(const SingleConstraint&) = delete;

    // What it holds on to on either side; null: nothing.
    void Between(ProSelection inAssembly, ProSelection inModel);
    // In the place of all constraints that the component has.
    void GiveTo(ProAsmcomp* component);
    // Frees it now instead of at the end.
    void Free();

private:
    HostArray<ProAsmcompconstraint> list_;
    ProAsmcompconstraint constraint_ = nullptr;
};
