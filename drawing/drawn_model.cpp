// The one selected item as a model, or the current model.
#include "drawing/drawn_model.h"

namespace {

// A part or an assembly is meant itself, anything else means the model that it is in.
ProMdl ModelOf(ProSelection selection) {
    ProModelitem item = {};
    ProSelectionModelitemGet(selection, &item);
    if (item.type != PRO_ASSEMBLY && item.type != PRO_PART) return item.owner;
    ProMdl model = nullptr;
    ProModelitemMdlGet(&item, &model);
    return model;
}

}  // namespace

DrawnSelection ReadDrawnSelection() {
    DrawnSelection selection;
    ProSelection* items = nullptr;
    if (ProSelbufferSelectionsGet(&items) != PRO_TK_NO_ERROR) return selection;
    selection.read = true;
    selection.items.Adopt(items);
    selection.count = selection.items.Size();
    if (selection.count == 1) selection.model = ModelOf(items[0]);
    LeaveSelections(items);
    return selection;
}

TopModel DrawnModel(ProMdl current) {
    const DrawnSelection selection = ReadDrawnSelection();
    ProMdl model = selection.model;
    if (!selection.read) {
        model = current;
        if (!model) ProMdlCurrentGet(&model);
    } else if (selection.count != 1) {
        ShowNotice(WIDE("当前模式只能选择1个元件"));
        return {};
    }
    if (!model) return {};
    return TopModelOf({model, TypeOf(model)});
}
