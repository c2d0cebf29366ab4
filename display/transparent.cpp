// VxTransparent, SurfTransparent: flip the transparency of whole models and of single surfaces.
#include <cmath>

#include "display/appearance.h"
#include "display/commands.h"
#include "frame/services.h"

namespace {

// A part or an assembly with the host's object of it; none for another kind of model.
struct Painted {
    ProMdl model = nullptr;
    Prohandle object = nullptr;
};

Painted PaintedOf(ProMdl model) {
    const WideText name = ModelName(model);
    const ProMdlType type = TypeOf(model);
    Painted painted = {model, nullptr};
    if (type == PRO_MDL_PART)
        painted.object = prodb_get_object_ptr(HostText(name), HostText("PRT"));
    if (type == PRO_MDL_ASSEMBLY) {
        painted.object = prodb_get_object_ptr(HostText(name), HostText("ASM"));
    }
    return painted;
}

// All zeros where it cannot be read: opaque.
AppearanceRecord WholeRecord(Prohandle object) {
    AppearanceRecord record = {};
    if (object) prodb_get_surface_props(object, PRODB_WHOLE_OBJECT, -1, 0, &record);
    return record;
}

// A model counts as transparent from 0.2 on; what is made transparent can still be seen.
void FlipWhole(const Painted& painted) {
    AppearanceRecord record = WholeRecord(painted.object);
    record.transparency = std::fabs(record.transparency) >= 0.2 ? 0 : 0.618;
    ClearSurfaceOverrides(painted.model);
    if (painted.object) {
        prodb_set_surface_props(painted.object, PRODB_WHOLE_OBJECT, -1, 0, &record);
    }
}

// A surface counts as transparent only near 1, and becomes wholly so: it is taken away, not looked
// through.
void FlipSurface(const Painted& painted, int surface) {
    if (!painted.object) return;
    AppearanceRecord whole = WholeRecord(painted.object);
    AppearanceRecord own = {};
    prodb_get_surface_props(painted.object, PRODB_SURFACE, surface, 0, &own);
    whole.transparency = std::fabs(own.transparency - 1.0) <= 0.05 ? 0 : 1.0;
    prodb_set_surface_props(painted.object, PRODB_SURFACE, surface, 0, &whole);
}

// What was picked; the selections are the host's until the next pick.
struct Picked {
    ProSelection* selections = nullptr;
    int count = 0;
};

Picked LetPick(const char* filter) {
    Picked picked;
    int count = 0;
    const ProError status = ProSelect(HostText(filter), -1, nullptr, nullptr, nullptr, nullptr,
                                      &picked.selections, &count);
    if (status != PRO_TK_NO_ERROR || !picked.selections || count <= 0) return {};
    ProArraySizeGet(picked.selections, &picked.count);
    return picked;
}

void FlipPickedModel(ProSelection selection) {
    HostRecord<ProAsmcomppath> path;
    if (ProSelectionAsmcomppathGet(selection, path.Place()) != PRO_TK_NO_ERROR) return;
    ProMdl model = nullptr;
    ProAsmcomppathMdlGet(path.Place(), &model);
    if (model) FlipWhole(PaintedOf(model));
}

void FlipPickedSurface(ProSelection selection) {
    HostRecord<ProModelitem> item;
    ProSelectionModelitemGet(selection, item.Place());
    if (!item.IsFilled()) return;
    ProMdl model = nullptr;
    ProModelitemMdlGet(item.Place(), &model);
    if (model) FlipSurface(PaintedOf(model), item.Place()->id);
}

bool IsAssemblyOrMfg(ProMdlType type) {
    return type == PRO_MDL_ASSEMBLY || type == PRO_MDL_MFG;
}

void ShowNoSolid() {
    ShowPlainError(WIDE("当前无组件/零件模型！"));
}

}  // namespace

void VxTransparent() {
    const WideText messageFile = Widen(kNarrowMessageFile);
    const TopModel current = CurrentModel();
    if (current.type == PRO_MDL_PART) {
        const WideText name = ModelName(current.model);
        FlipWhole({current.model, prodb_get_object_ptr(HostText(name), HostText("PRT"))});
    } else if (IsAssemblyOrMfg(current.type)) {
        ProMessageDisplay(HostText(messageFile),
                          HostText("Please select parts to be transparent:"));
        const Picked picked = LetPick("prt_or_asm");
        if (picked.count <= 0) return;
        for (int i = 0; i < picked.count; ++i) FlipPickedModel(picked.selections[i]);
    } else {
        return ShowNoSolid();
    }
    ProWindowRepaint(PRO_VALUE_UNUSED);
}

void SurfTransparent() {
    const WideText messageFile = Widen(kNarrowMessageFile);
    const TopModel current = CurrentModel();
    if (current.type != PRO_MDL_PART && !IsAssemblyOrMfg(current.type)) return ShowNoSolid();
    ProMessageDisplay(HostText(messageFile), HostText("Please select surfaces to be transparent:"));
    const Picked picked = LetPick("surface,sldface,qltface");
    if (picked.count <= 0) return;
    for (int i = 0; i < picked.count; ++i) FlipPickedSurface(picked.selections[i]);
    ProWindowRepaint(PRO_VALUE_UNUSED);
}
