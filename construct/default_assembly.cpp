// A constraint of coordinate system onto coordinate system, from the first of each side.
#include "construct/default_assembly.h"

#include "frame/services.h"

namespace {

// The constraint while it is put together; freed at the end, for the assembly gets a copy.
class CsysConstraint {
public:
    CsysConstraint() {
        list_.Allocate();
        ProAsmcompconstraintAlloc(&constraint_);
        if (constraint_) ProAsmcompconstraintTypeSet(constraint_, PRO_ASM_CSYS);
    }
    ~CsysConstraint() {
        list_.Free();
        if (constraint_) ProAsmcompconstraintFree(constraint_);
    }
    CsysConstraint(const CsysConstraint&) = delete;
    CsysConstraint& operator=(const CsysConstraint&) = delete;

    void Between(ProSelection inAssembly, ProSelection inModel) {
        if (!constraint_) return;
        if (inAssembly) {
            ProAsmcompconstraintAsmreferenceSet(constraint_, inAssembly, PRO_DATUM_SIDE_YELLOW);
        }
        if (inModel) {
            ProAsmcompconstraintCompreferenceSet(constraint_, inModel, PRO_DATUM_SIDE_YELLOW);
        }
    }
    void GiveTo(ProAsmcomp* component) {
        if (!list_ || !constraint_) return;
        AppendTo(list_.Place(), &constraint_);
        ProAsmcompConstraintsSet(nullptr, component, list_.data());
    }

private:
    HostArray<ProAsmcompconstraint> list_;
    ProAsmcompconstraint constraint_ = nullptr;
};

ProSelection SelectionInAssembly(ProMdl assembly, ProCsys csys) {
    ProIdTable none = {-1};
    HostRecord<ProAsmcomppath> top;
    ProAsmcomppathInit(static_cast<ProSolid>(assembly), none, 0, top.Place());
    return top.IsFilled() ? SelectionOf(assembly, csys, top.Place()) : nullptr;
}

}  // namespace

LacksCsys AssembleByCsys(ProMdl assembly, ProMdl model, ProAsmcomp* component,
                         const DefaultAssembly& how) {
    CsysConstraint constraint;
    CsysArray ofAssembly;
    CsysArray ofModel;
    ofAssembly.Allocate();
    ofModel.Allocate();
    how.collect(assembly, &ofAssembly);
    how.collect(model, &ofModel);
    const ProCsys inAssembly = Chosen(assembly, ofAssembly, how.inAssembly);
    const ProCsys inModel = Chosen(model, ofModel, CsysChoice::First);
    if (!inAssembly) {
        ShowNotice(how.noneInAssembly);
        return LacksCsys::Assembly;
    }
    if (!inModel) {
        how.tellOfModel(how.noneInModel);
        return LacksCsys::Model;
    }
    ProSelection above = SelectionInAssembly(assembly, inAssembly);
    ProSelection below = SelectionOf(model, inModel, nullptr);
    ofAssembly.Free();
    ofModel.Free();
    constraint.Between(above, below);
    constraint.GiveTo(component);
    if (above) ProSelectionFree(&above);
    if (below) ProSelectionFree(&below);
    ProTreetoolRefresh(assembly);
    return LacksCsys::Neither;
}

LacksCsys DefaultAssembleByCsys(ProMdl assembly, ProMdl model, ProAsmcomp* component,
                                const WideText& noneInAssembly, const WideText& noneInModel) {
    DefaultAssembly how;
    how.noneInAssembly = noneInAssembly;
    how.noneInModel = noneInModel;
    return AssembleByCsys(assembly, model, component, how);
}
