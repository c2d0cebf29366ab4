// A constraint of coordinate system onto coordinate system, from the first of each side.
#include "construct/default_assembly.h"

#include "construct/single_constraint.h"
#include "frame/services.h"

namespace {

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
    SingleConstraint constraint(PRO_ASM_CSYS);
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
    constraint.Free();
    ProTreetoolRefresh(assembly);
    return LacksCsys::Neither;
}
