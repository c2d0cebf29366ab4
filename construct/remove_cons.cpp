// VxRemoveCons: every component is fixed where it is, in the place of all its constraints.
#include "construct/commands.h"
#include "construct/single_constraint.h"
#include "frame/services.h"
#include "hostapi/windows.h"

namespace {

constexpr Dialog kDialog = "VxRemoveCons";

DWORD WINAPI ClickMiddleButton(void*) noexcept {
    mouse_event(MOUSEEVENTF_MIDDLEDOWN | MOUSEEVENTF_MIDDLEUP, 0, 0, 0, 0);
    return 0;
}

// Confirms the host's dialog that opens next. Nothing of ours runs while that is open, so the click
// is on its way before.
void PostClick() {
    const HANDLE thread = CreateThread(nullptr, 0, ClickMiddleButton, nullptr, 0, nullptr);
    if (!thread) return;
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

// A component that cannot tell its constraints is confirmed in the host's own dialog. The indices
// rise although the later constraints move up, so some of several stay; they go when the component
// is fixed.
void RemoveConstraints(ProAsmcomp* component) {
    ProAsmcompconstraint* list = nullptr;
    if (ProAsmcompConstraintsGet(component, &list) != PRO_TK_NO_ERROR) {
        PostClick();
        ProAsmcompConstrRedefUI(component);
        return;
    }
    HostArray<ProAsmcompconstraint> constraints;
    constraints.Adopt(list);
    const int count = constraints.Size();
    for (int index = 0; index < count; ++index) ProAsmcompConstrRemove(component, index);
}

// Regenerated is the model that was current, be it a manufacturing model whose assembly was walked.
void OnOk(char*, char*, ProAppData) {
    const TopModel current = CurrentModel();
    if (current.type != PRO_MDL_ASSEMBLY && current.type != PRO_MDL_MFG) {
        return ShowPlainError(WIDE("此功能仅组件/制造环境可用！"));
    }
    ComponentArray components = ComponentCollector(TopModelOf(current).model, VisitAllComponents);
    const int size = components.Size();
    for (int i = 0; i < size; ++i) {
        ProAsmcomp& component = components.data()[i];
        RemoveConstraints(&component);
        ProAsmcompRegenerate(&component, PRO_B_TRUE);
        SingleConstraint(PRO_ASM_FIX).GiveTo(&component);
    }
    components.Free();
    ProSolidRegenerate(static_cast<ProSolid>(current.model), 0);
    ShowNotice(WIDE("\t\t所有带约束元件均已更改为固定约束！\t\t"));
}

void Prepare() {
    kDialog.OnPress("OK", Guarded<OnOk>);
    kDialog.OnPress("Cancel", EndDialogOnClose);
    kDialog.OnClose(EndDialogOnClose);
}

}  // namespace

void VxRemoveCons() {
    RunModalDialog(kDialog, Prepare);
}
