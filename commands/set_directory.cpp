// VxSetDirectory: the folder of the current model becomes the working directory.
#include "commands/commands.h"
#include "frame/services.h"

void VxSetDirectory() {
    ProMdl model = nullptr;
    if (ProMdlCurrentGet(&model) != PRO_TK_NO_ERROR) return;
    ProMdldata data = {};
    if (ProMdlDataGet(model, &data) != PRO_TK_NO_ERROR) return;
    ProDirectoryChange(data.path);
    // Told as the model's folder whether or not the host went there.
    const WideText folder = TextIn(data.device) + WIDE(":") + TextIn(data.path);
    ShowMessage("Directory has changed to:%0w", folder);
}
