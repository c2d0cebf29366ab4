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

ProError Collect(ProCsys csys, ProError, ProAppData place) {
    return AppendTo(place, &csys);
}

void CollectAll(ProMdl solid, HostArray<ProCsys>* found) {
    if (!*found) return;
    ProSolidCsysVisit(static_cast<ProSolid>(solid), Guarded<Collect>, nullptr, found->Place());
}

// Null where the host does not give all that it needs.
ProSelection SelectionOf(ProMdl solid, ProCsys csys, ProAsmcomppath* path) {
    HostRecord<ProGeomitem> item;
    ProCsysToGeomitem(static_cast<ProSolid>(solid), csys, item.Place());
    ProSelection selection = nullptr;
    if (item.IsFilled()) ProSelectionAlloc(path, item.Place(), &selection);
    return selection;
}

ProSelection SelectionInAssembly(ProMdl assembly, ProCsys csys) {
    ProIdTable none = {-1};
    HostRecord<ProAsmcomppath> top;
    ProAsmcomppathInit(static_cast<ProSolid>(assembly), none, 0, top.Place());
    return top.IsFilled() ? SelectionOf(assembly, csys, top.Place()) : nullptr;
}

}  // namespace

LacksCsys DefaultAssembleByCsys(ProMdl assembly, ProMdl model, ProAsmcomp* component,
                                const WideText& noneInAssembly, const WideText& noneInModel) {
    CsysConstraint constraint;
    HostArray<ProCsys> ofAssembly;
    HostArray<ProCsys> ofModel;
    ofAssembly.Allocate();
    ofModel.Allocate();
    CollectAll(assembly, &ofAssembly);
    CollectAll(model, &ofModel);
    const int inAssembly = ofAssembly.Size();
    const int inModel = ofModel.Size();
    if (inAssembly == 0) {
        ShowNotice(noneInAssembly);
        return LacksCsys::Assembly;
    }
    if (inModel == 0) {
        ShowNotice(noneInModel);
        return LacksCsys::Model;
    }
    ProSelection above = SelectionInAssembly(assembly, ofAssembly.data()[0]);
    ProSelection below = SelectionOf(model, ofModel.data()[0], nullptr);
    ofAssembly.Free();
    ofModel.Free();
    constraint.Between(above, below);
    constraint.GiveTo(component);
    if (above) ProSelectionFree(&above);
    if (below) ProSelectionFree(&below);
    ProTreetoolRefresh(assembly);
    return LacksCsys::Neither;
}
