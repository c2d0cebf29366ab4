// Uses of models in an assembly: lists without doubles, in time that grows with their length.
#include "display/component_uses.h"

#include <functional>

std::size_t OccurrenceList::Hash::operator()(const ComponentOccurrence& occurrence) const {
    const std::size_t owner = std::hash<ProMdl>()(occurrence.owner);
    return owner * 31 + std::hash<int>()(occurrence.id);
}

void OccurrenceList::Add(const ComponentOccurrence& occurrence) {
    if (known_.insert(occurrence).second) list_.push_back(occurrence);
}

void OccurrenceList::AddAll(const ComponentArray& components, int size) {
    for (int i = 0; i < size; ++i) {
        ProAsmcomp& component = components.data()[i];
        ProMdl model = nullptr;
        if (ProAsmcompMdlGet(&component, &model) != PRO_TK_NO_ERROR) continue;
        Add({model, component.id, component.owner});
    }
}

ProModelitem ItemOf(int id, ProMdl owner) {
    ProModelitem item = {};
    item.type = PRO_FEATURE;
    item.id = id;
    item.owner = owner;
    return item;
}

ProMdl TopAssembly() {
    const TopModel top = CurrentTopModel();
    return top.type == PRO_MDL_ASSEMBLY || top.type == PRO_MDL_MFG ? top.model : nullptr;
}
