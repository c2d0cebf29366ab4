// Which component a command is about that takes one: the selected, or else a picked one.
#include "commands/selected_model.h"

#include "frame/services.h"

namespace {

// The model of a component's occurrence; null if there is none.
ProMdl ModelAt(ProSelection selection) {
    ProAsmcomppath path = {};
    ProMdl model = nullptr;
    if (ProSelectionAsmcomppathGet(selection, &path) != PRO_TK_NO_ERROR) return nullptr;
    if (ProAsmcomppathMdlGet(&path, &model) != PRO_TK_NO_ERROR) return nullptr;
    return model;
}

// The model of the one component that the user picks when told this; null if there is none.
ProMdl PickedModel(const char* request) {
    ShowMessage(request);
    ProSelection* picked = nullptr;
    int count = 0;
    const ProError status =
        ProSelect(HostText("prt_or_asm"), 1, nullptr, nullptr, nullptr, nullptr, &picked, &count);
    if (status != PRO_TK_NO_ERROR || count < 1 || !picked) return nullptr;
    return ModelAt(picked[0]);
}

}  // namespace

ProMdl SelectedModel(const char* request) {
    ProSelection* list = nullptr;
    if (ProSelbufferSelectionsGet(&list) != PRO_TK_NO_ERROR) return PickedModel(request);
    HostArray<ProSelection> selected;
    selected.Adopt(list);
    if (selected.Size() != 1) {
        ShowNotice(WIDE("\t当前模式只能选择1个元件\t"));
        return nullptr;
    }
    return ModelAt(*selected.data());
}
