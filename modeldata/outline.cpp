// VxOutline: how large each model is along its own axes. A part is measured by the boxes of its
// surfaces; in an assembly the two corners of each such box are turned with their component.
#include <algorithm>
#include <utility>

#include "frame/services.h"
#include "modeldata/batch_targets.h"
#include "modeldata/outline_text.h"
#include "modeldata/params_buttons.h"
#include "modeldata/params_settings.h"

namespace {

constexpr const WideChar* kCompletion =
    WIDE("\t外形尺寸参数批量创建/更新完成|岚枢QQ①群:10020030/②群:100200301\t");

// The corners seen so far, as far as they matter: the least and the largest on each axis.
struct Measure {
    bool empty = true;
    Pro3dPnt low = {};
    Pro3dPnt high = {};

    void Add(const double* point) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            low[axis] = empty ? point[axis] : std::min(low[axis], point[axis]);
            high[axis] = empty ? point[axis] : std::max(high[axis], point[axis]);
        }
        empty = false;
    }
};

enum class Outcome { Measured, NotMeasured };

using SurfaceArray = HostArray<ProSurface>;

ProError CollectSurface(ProSurface surface, ProError, ProAppData surfaces) noexcept {
    AppendTo(surfaces, &surface);
    return PRO_TK_NO_ERROR;
}

ProError AdmitSurface(ProSurface, ProAppData) noexcept {
    return PRO_TK_NO_ERROR;
}

ProError VisitSurfaces(ProMdl part, SurfaceArray* surfaces) {
    return ProSolidSurfaceVisit(static_cast<ProSolid>(part), CollectSurface, AdmitSurface,
                                surfaces->Place());
}

// Adds the two corners of a box, the far one first; `transform` may be null.
void AddCorners(ProSurfacedata& box, ProMatrix transform, Measure* measure) {
    for (double* corner : {box.xyz_max, box.xyz_min}) {
        Pro3dPnt turned = {};
        if (!transform) {
            measure->Add(corner);
        } else if (ProPntTrfEval(corner, transform, turned) == PRO_TK_NO_ERROR) {
            measure->Add(turned);
        }
    }
}

// The same for the box of each surface. A record that is there is freed even after a failed call.
void AddCorners(const SurfaceArray& surfaces, ProMatrix transform, Measure* measure) {
    const int size = surfaces.Size();
    for (int i = 0; i < size; ++i) {
        ProGeomitemdata* about = nullptr;
        const ProError status = ProSurfaceDataGet(surfaces.data()[i], &about);
        if (status == PRO_TK_NO_ERROR && about && about->data.p_surface_data) {
            AddCorners(*about->data.p_surface_data, transform, measure);
        }
        if (about) ProGeomitemdataFree(&about);
    }
}

Outcome MeasurePart(ProMdl part, SurfaceArray* surfaces, Measure* measure) {
    if (VisitSurfaces(part, surfaces) != PRO_TK_NO_ERROR) return Outcome::NotMeasured;
    AddCorners(*surfaces, nullptr, measure);
    return Outcome::Measured;
}

Outcome MeasureComponent(ProAsmcomppath* path, Measure* measure) {
    ProMdl model = nullptr;
    if (ProAsmcomppathMdlGet(path, &model) != PRO_TK_NO_ERROR) return Outcome::Measured;
    if (TypeOf(model) != PRO_MDL_PART)
        return Outcome::Measured;  // parts of assemblies have their own lines
    ProMatrix transform = {};
    if (ProAsmcomppathTrfGet(path, PRO_B_TRUE, transform) != PRO_TK_NO_ERROR) {
        return Outcome::Measured;
    }
    SurfaceArray surfaces;
    if (surfaces.Allocate() != PRO_TK_NO_ERROR) return Outcome::NotMeasured;
    if (VisitSurfaces(model, &surfaces) != PRO_TK_NO_ERROR) return Outcome::Measured;
    AddCorners(surfaces, transform, measure);
    return Outcome::Measured;
}

// Parents come before their children, so the ids above a line's depth are those of its parents.
Outcome MeasureAssembly(ProMdl assembly, Measure* measure) {
    const auto listing = ListComponents(assembly);
    if (!listing) return Outcome::NotMeasured;
    int ids[PRO_MAX_ASSEM_LEVEL + 1] = {};
    WideView rest = *listing;
    for (TreeLine line; TakeTreeLine(&rest, &line);) {
        if (line.depth < 0 || line.depth >= PRO_MAX_ASSEM_LEVEL) continue;  // no path is so deep
        ids[line.depth] = line.id;
        ids[line.depth + 1] = -1;
        ProAsmcomppath path = {};
        if (ProAsmcomppathInit(static_cast<ProSolid>(assembly), ids, line.depth + 1, &path) !=
            PRO_TK_NO_ERROR) {
            continue;
        }
        if (MeasureComponent(&path, measure) == Outcome::NotMeasured) return Outcome::NotMeasured;
    }
    return Outcome::Measured;
}

// Empty if the check button's state is not known.
WideText MeasuredText(const Measure& measure, int order, int decimalPlaces) {
    if (order != 0 && order != 1) return {};
    OutlineExtents extents = {};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        extents[axis] = measure.high[axis] - measure.low[axis];
    }
    return OutlineText(extents, decimalPlaces,
                       order == 1 ? OutlineOrder::LargestFirst : OutlineOrder::AsModelled);
}

// Measures a part or an assembly and writes its outline size into the parameter; for other models
// it does nothing. A model without surfaces loses the parameter. Reads the dialog's options.
void ComputeOutlineParameter(ProMdl model, const WideText& name) {
    const int order = kParamsDialog.CheckState("VxOutlineOrder");
    const int places = DecimalPlaces(kParamsDialog.MenuText("VxOutlineNum"));
    SurfaceArray surfaces;
    if (surfaces.Allocate() != PRO_TK_NO_ERROR) return;
    const ProMdlType type = TypeOf(model);
    if (type != PRO_MDL_PART && type != PRO_MDL_ASSEMBLY) return;
    Measure measure;
    const Outcome outcome = type == PRO_MDL_PART ? MeasurePart(model, &surfaces, &measure)
                                                 : MeasureAssembly(model, &measure);
    if (outcome == Outcome::NotMeasured) return;
    if (measure.empty) {
        DeleteParameter(model, name);
        return;
    }
    FindAndWriteParameter(model, name, TextValue(MeasuredText(measure, order, places)));
}

}  // namespace

void OnOutline(char*, char*, ProAppData) {
    SaveParamsSettings();
    const TopModel top = CurrentTopModel();
    if (top.type != PRO_MDL_ASSEMBLY && top.type != PRO_MDL_MFG) {
        ShowNotice(WIDE("当前环境不是组件/制造，无法执行此操作"));
        return;
    }
    const std::string scope = kParamsDialog.Selected("TypeRadio2");
    const WideText name = kParamsDialog.InputText("outlinePname");
    ComponentArray components = CollectByScope(top, scope);
    const auto write = [&](ProMdl model, const WideText&) { ComputeOutlineParameter(model, name); };
    if (!ForEachTarget(top, scope, std::move(components), kParamsDialog, "InputKeyWords2", write)) {
        return;
    }
    ShowNotice(kCompletion);
    ProTreetoolRefresh(top.model);
}
