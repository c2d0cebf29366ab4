// A component that has just been assembled, fixed by the coordinate systems of both sides.
#pragma once

#include "construct/csys.h"

// Which side has no coordinate system; the assembly, if both have none.
enum class LacksCsys { Neither, Assembly, Model };

// How a command goes about it.
struct DefaultAssembly {
    CollectCsyses collect = CollectByAction;
    CsysChoice inAssembly = CsysChoice::First;  // the model's is always the first
    WideText noneInAssembly;                    // shown as a notice
    WideText noneInModel;
    void (*tellOfModel)(const WideText& text) = ShowNotice;
};

// Constrains the component so that a coordinate system of its model comes to lie on one of the
// assembly, and refreshes the assembly's tree. Where a side has none, its text is shown, nothing
// else is done, and the component stays where it is.
LacksCsys AssembleByCsys(ProMdl assembly, ProMdl model, ProAsmcomp* component,
                         const DefaultAssembly& how);

// The same as most commands do it: constrains the component so that the first coordinate system of
// its model, in the host's order, comes to lie on the first of the assembly, and refreshes the
// assembly's tree. Where a side has none, its text is shown as a notice, nothing else is done, and
// the component stays where it is.
LacksCsys DefaultAssembleByCsys(ProMdl assembly, ProMdl model, ProAsmcomp* component,
                                const WideText& noneInAssembly, const WideText& noneInModel);

// What the first of these is for all who have no other.
inline constexpr WideView kNoCsysInAssembly = WIDE("\t当前组件无坐标系,无法缺省装配新零件\t");

// The place where a component is put before it is constrained: the assembly's origin.
struct IdentityMatrix {
    ProMatrix rows = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};
