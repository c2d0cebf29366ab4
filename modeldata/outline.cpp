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

enum class Outcome { Measured, NotMeasured };

Outcome MeasurePart(ProMdl part, SurfaceArray* surfaces, SurfaceBoxes* measure) {
    if (VisitSurfaces(part, surfaces) != PRO_TK_NO_ERROR) return Outcome::NotMeasured;
    measure->Add(*surfaces, nullptr);
    return Outcome::Measured;
}

Outcome MeasureComponent(ProAsmcomppath* path, SurfaceBoxes* measure) {
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
    measure->Add(surfaces, transform);
    return Outcome::Measured;
}

// Parents come before their children, so the ids above a line's depth are those of its parents.
Outcome MeasureAssembly(ProMdl assembly, SurfaceBoxes* measure) {
    const auto listing = ListComponents(assembly);
    if (!listing) return Outcome::NotMeasured;
    int ids[PRO_MAX_ASSEM_LEVEL + 1] = {};
    WideView rest = *listing;
    for (TreeLine line; TakeTreeLine(&rest, &line);) {
        if (line.depth >= PRO_MAX_ASSEM_LEVEL) continue;  // no path is so deep
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
WideText MeasuredText(const SurfaceBoxes& measure, int order, int decimalPlaces) {
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
    SurfaceBoxes measure;
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
