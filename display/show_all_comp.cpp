// VxShowAllComp: everything below the current assembly is shown again.
#include "display/commands.h"
#include "display/component_uses.h"
#include "frame/services.h"

void VxShowAllComp() {
    const ProMdl top = TopAssembly();
    if (!top) return;
    ComponentArray components = ComponentCollector(top, VisitAllComponents, ComponentFilterWide);
    const int size = components.Size();
    if (size == 0) return ShowPlainError(WIDE("当前模型中没有合适的子零/组件"));
    // Without asking for its model: what is not in memory is shown, too.
    for (int i = 0; i < size; ++i) {
        const ProAsmcomp& component = components.data()[i];
        ProModelitem item = ItemOf(component.id, component.owner);
        ProModelitemUnhide(&item);
    }
    components.Free();
    ProWindowRepaint(PRO_VALUE_UNUSED);
    ProTreetoolRefresh(top);
}
