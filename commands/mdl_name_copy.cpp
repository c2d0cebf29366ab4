// VxMdlNameCopy: the name of a model on the clipboard.
#include "commands/clipboard.h"
#include "commands/commands.h"
#include "commands/selected_model.h"
#include "frame/services.h"

void VxMdlNameCopy() {
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) != PRO_TK_NO_ERROR) return;
    if (TypeOf(model) != PRO_MDL_PART) {
        model = SelectedModel("Please select a part or an assembly for coping name");
    }
    if (!model) return;
    if (ClipboardSetText(ModelName(model)) == 1) ShowMessage("The model name has been copied");
}
