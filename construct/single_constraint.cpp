// A constraint and the array that hands it over, made and freed together.
#include "construct/single_constraint.h"

SingleConstraint::SingleConstraint(ProAsmcompConstrType type) {
    list_.Allocate();
    ProAsmcompconstraintAlloc(&constraint_);
    if (constraint_) ProAsmcompconstraintTypeSet(constraint_, type);
}

SingleConstraint::~SingleConstraint() {
    Free();
}

void SingleConstraint::Between(ProSelection inAssembly, ProSelection inModel) {
    if (!constraint_) return;
    if (inAssembly) {
        ProAsmcompconstraintAsmreferenceSet(constraint_, inAssembly, PRO_DATUM_SIDE_YELLOW);
    }
    if (inModel) {
        ProAsmcompconstraintCompreferenceSet(constraint_, inModel, PRO_DATUM_SIDE_YELLOW);
    }
}

void SingleConstraint::GiveTo(ProAsmcomp* component) {
    if (!list_ || !constraint_) return;
    AppendTo(list_.Place(), &constraint_);
    ProAsmcompConstraintsSet(nullptr, component, list_.data());
}

void SingleConstraint::Free() {
    list_.Free();
    if (constraint_) ProAsmcompconstraintFree(constraint_);
    constraint_ = nullptr;
}
