// A constraint of coordinate system onto coordinate system, from the first of each side.
#include "construct/default_assembly.h"

#include "construct/single_constraint.h"
#include "frame/services.h"

namespace {

ProSelection SelectionInAssembly(ProMdl assembly, ProCsys csys) {
    ProIdTable none = {-1};
    HostRecord<ProAsmcomppath> top;
    ProAsmcomppathInit(static_cast<ProSolid>(assembly), none, 0, top.Place());
    return top.IsFilled() ? SelectionOf(assembly, csys, top.Place()) : nullptr;
}

}  // namespace

LacksCsys AssembleByCsys(ProMdl assembly, ProMdl model, ProAsmcomp* component,
                         const DefaultAssembly& how) {
    SingleConstraint constraint(PRO_ASM_CSYS);
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
    constraint.Free();
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
