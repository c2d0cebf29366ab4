// VxHideReverse: what is hidden is shown, and what is shown is hidden.
#include "display/commands.h"
#include "display/component_uses.h"
#include "frame/services.h"

namespace {

// Only parts change over: a hidden sub-assembly would hide the parts in it that are to be shown.
void Reverse(const ComponentOccurrence& occurrence) {
    ProModelitem item = ItemOf(occurrence.id, occurrence.owner);
    const ProMdlType type = TypeOf(occurrence.model);
    if (type == PRO_MDL_ASSEMBLY) ProModelitemUnhide(&item);
    if (type != PRO_MDL_PART) return;
    ProBoolean hidden = PRO_B_FALSE;
    if (ProModelitemIsHidden(&item, &hidden) != PRO_TK_NO_ERROR) return;
    if (hidden == PRO_B_TRUE) ProModelitemUnhide(&item);
    if (hidden == PRO_B_FALSE) ProModelitemHide(&item);
}

}  // namespace

void VxHideReverse() {
    ProMdl model = CurrentTopModel().model;
    ComponentArray components = ComponentCollector(model, VisitAllComponents);
    const int size = components.Size();
    if (size == 0) return ShowPlainError(WIDE("当前模型中没有合适的子零/ 组件"));
    OccurrenceList occurrences;
    for (int i = 0; i < size; ++i) {
        ProAsmcomp& component = components.data()[i];
        if (ProAsmcompMdlGet(&component, &model) != PRO_TK_NO_ERROR) continue;
        occurrences.Add({model, component.id, component.owner});
    }
    components.Free();
    for (const ComponentOccurrence& each : occurrences.list()) Reverse(each);
    ProWindowRepaint(PRO_VALUE_UNUSED);
    // Of the model that was fetched last, not of the top: kept as it has always been.
    ProTreetoolRefresh(model);
}
