// VxIsolate: only the selected parts stay on the screen.
#include "display/commands.h"
#include "display/component_uses.h"
#include "frame/services.h"

namespace {

// Sub-assemblies are shown, for what is below a hidden one is hidden with it.
void HideAllParts(const ComponentArray& components, int size) {
    for (int i = 0; i < size; ++i) {
        ProAsmcomp& component = components.data()[i];
        ProMdl model = nullptr;
        if (ProAsmcompMdlGet(&component, &model) != PRO_TK_NO_ERROR) continue;
        ProModelitem item = ItemOf(component.id, component.owner);
        const ProMdlType type = TypeOf(model);
        if (type == PRO_MDL_ASSEMBLY) ProModelitemUnhide(&item);
        if (type == PRO_MDL_PART) ProModelitemHide(&item);
    }
}

// The use of a part that is selected. A selection without a way to a component is passed over.
void AddSelectedPart(ProSelection selection, ProMdl top, OccurrenceList* shown) {
    ProAsmcomppath path = {};
    if (ProSelectionAsmcomppathGet(selection, &path) != PRO_TK_NO_ERROR) return;
    if (path.table_num <= 0 || path.table_num > PRO_MAX_ASSEM_LEVEL) return;
    ComponentOccurrence part;
    if (ProAsmcomppathMdlGet(&path, &part.model) != PRO_TK_NO_ERROR) return;
    const int last = path.table_num - 1;
    part.id = path.comp_id_tab[last];
    HostRecord<ProAsmcomppath> above;
    ProAsmcomppathInit(static_cast<ProSolid>(top), path.comp_id_tab, last, above.Place());
    if (above.IsFilled()) ProAsmcomppathMdlGet(above.Place(), &part.owner);
    if (part.owner) shown->Add(part);
}

// All that is below an assembly. False: there was no memory for it.
bool AddBelow(ProMdl assembly, OccurrenceList* shown) {
    ComponentArray components;
    if (components.Allocate() != PRO_TK_NO_ERROR) return false;
    const ProError status = ProSolidFeatVisit(static_cast<ProSolid>(assembly), VisitAllComponents,
                                              ComponentFilter, components.Place());
    const int size = status == PRO_TK_NO_ERROR ? components.Size() : 0;
    shown->AddAll(components, size);
    return true;
}

bool AddSelected(ProSelection selection, ProMdl top, OccurrenceList* shown) {
    HostRecord<ProModelitem> item;
    ProSelectionModelitemGet(selection, item.Place());
    if (!item.IsFilled()) return true;
    ProMdl model = nullptr;
    ProModelitemMdlGet(item.Place(), &model);
    if (!model) return true;
    const ProMdlType type = TypeOf(model);
    if (type == PRO_MDL_PART) AddSelectedPart(selection, top, shown);
    return type != PRO_MDL_ASSEMBLY || AddBelow(model, shown);
}

void Show(const OccurrenceList& shown) {
    for (const ComponentOccurrence& each : shown.list()) {
        ProModelitem item = ItemOf(each.id, each.owner);
        ProName name = {};
        ProMdlNameGet(each.model, name);
        ProModelitemUnhide(&item);
    }
}

// False: the command has ended, and that has been told.
bool Isolate(ProMdl top, const HostArray<ProSelection>& selections) {
    ComponentArray components = ComponentCollector(top, VisitAllComponents);
    const int size = components.Size();
    if (size == 0) {
        ShowPlainError(WIDE("当前模型中没有合适的子零/组件"));
        return false;
    }
    HideAllParts(components, size);
    components.Free();
    OccurrenceList shown;
    const int selected = selections.Size();
    for (int i = 0; i < selected; ++i) {
        if (AddSelected(selections.data()[i], top, &shown)) continue;
        ShowPlainError(WIDE("ProArray Alloc error"));
        return false;
    }
    Show(shown);
    return true;
}

}  // namespace

void VxIsolate() {
    int window = PRO_VALUE_UNUSED;
    ProWindowCurrentGet(&window);
    const ProMdl top = TopAssembly();
    if (!top) return;
    ProSelection* picked = nullptr;
    const ProError status = ProSelbufferSelectionsGet(&picked);
    HostArray<ProSelection> selections;
    selections.Adopt(picked);
    if (status == PRO_TK_E_NOT_FOUND) {
        return ShowNotice(WIDE("\t请先选择需要独立显示的模型\t"));
    }
    if (status == PRO_TK_NO_ERROR && !Isolate(top, selections)) return;
    ProWindowRefresh(PRO_VALUE_UNUSED);
    ProWindowRepaint(PRO_VALUE_UNUSED);
    ProWindowActivate(window);
}
