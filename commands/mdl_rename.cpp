// VxMdlRename: another name for a model, and for the drawing that is called like it.
#include <optional>

#include "commands/commands.h"
#include "commands/selected_model.h"
#include "frame/services.h"

namespace {

constexpr int kNameLength = 32;  // of what is typed, without its terminator

// What the user types for a name; nothing if the user left the prompt. Where the host could not ask
// it is empty, a name that no model can have.
std::optional<WideText> AskNewName(const WideText& present) {
    ShowMessage("USER Enter a new name:|||%0w", present);
    WideChar answer[kNameLength + 1] = {};
    if (ProMessageStringRead(kNameLength, answer) == PRO_TK_MSG_USER_QUIT) return std::nullopt;
    return WideText(answer);
}

// Renames the model with the drawing that is called like it. False if the host refuses the name.
bool Rename(ProMdl model, const WideText& present, const WideText& name) {
    // By the old name, which the drawing has until the model is renamed.
    ProMdl drawing = nullptr;
    const ProError fetched = ProMdlRetrieve(HostText(present), PRO_MDL_DRAWING, &drawing);
    if (ProMdlRename(model, HostText(name)) != PRO_TK_NO_ERROR) return false;
    ProMdlSave(model);
    if (fetched == PRO_TK_NO_ERROR) {
        ProMdlRename(drawing, HostText(name));
        ProMdlSave(drawing);
    }
    return true;
}

}  // namespace

void VxMdlRename() {
    const ProMdl model = SelectedModel("Please select a part or an assembly for rename");
    if (!model) return;
    const WideText present = ModelName(model);
    for (;;) {
        const std::optional<WideText> name = AskNewName(present);
        if (!name) return;
        if (Rename(model, present, *name)) break;
        ShowNotice(WIDE("\t名称已存在或输入非法，请重新输入\t"));
    }
    // The top model with its references to the new name.
    ProMdl current = nullptr;
    ProMdlCurrentGet(&current);
    if (current) ProMdlSave(current);
}
