// One file, and the parts that are picked or found for it.
#include "modeldata/file_for_parts.h"

WideText FirstValueOf(const WideChar* option) {
    ProPath* values = nullptr;
    ProConfigoptArrayGet(HostText(option), &values);
    HostArray<ProPath> array;
    array.Adopt(values);
    return array.Size() > 0 ? TextIn(array.data()[0]) : WideText();
}

int CollectOrTell(ProMdl assembly, ProFeatureVisitAction visitor, const WalkTexts& texts,
                  ComponentArray* components) {
    if (components->Allocate() != PRO_TK_NO_ERROR) {
        ShowPlainError(WIDE("ProArray Alloc error"));
        return 0;
    }
    const ProError visited = ProSolidFeatVisit(static_cast<ProSolid>(assembly), visitor,
                                               ComponentFilter, components->Place());
    if (visited != PRO_TK_NO_ERROR) {
        ShowPlainError(texts.failed);
        return 0;
    }
    const int size = components->Size();
    if (size == 0) ShowPlainError(texts.empty);
    return size;
}

bool ForEachPicked(const HostArray<ProSelection>& selections,
                   const std::function<void(ProMdl)>& part,
                   const std::function<bool(ProMdl)>& assembly) {
    const int count = selections.Size();
    for (int i = 0; i < count; ++i) {
        HostRecord<ProModelitem> item;
        ProSelectionModelitemGet(selections.data()[i], item.Place());
        const ProType type = item.Place()->type;
        if (type != PRO_PART && type != PRO_ASSEMBLY) continue;
        ProMdl model = nullptr;
        ProModelitemMdlGet(item.Place(), &model);
        if (!model) continue;
        if (type == PRO_PART) part(model);
        if (type == PRO_ASSEMBLY && !assembly(model)) return false;
    }
    return true;
}
