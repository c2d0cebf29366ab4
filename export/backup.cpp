// VxBackup: every model of an assembly, and its drawing, in another folder.
#include "export/commands.h"
#include "export/folder_prompt.h"
#include "frame/services.h"

namespace {

// Without its record the host could not be told where to.
void BackUp(ProMdl model, const WideText& folder) {
    HostRecord<ProMdldata> data;
    ProMdlDataGet(model, data.Place());
    if (!data.IsFilled()) return;
    PutText(folder, data.Place()->path);
    ProMdlBackup(model, data.Place());
}

// The drawing of the same name is looked for in the folder in which the user works.
void BackUpWithDrawing(ProMdl model, const WideText& folder, const WideText& working) {
    NameForHost name = {};
    ProMdlNameGet(model, name);
    BackUp(model, folder);
    ChangeDirectory(working);
    ProMdl drawing = nullptr;
    if (ProMdlRetrieve(name, PRO_MDL_DRAWING, &drawing) == PRO_TK_NO_ERROR) BackUp(drawing, folder);
}

}  // namespace

// A prompt that the user leaves does not end it: the empty folder is the host's to refuse. The ends
// before the last leave the host in the folder that was chosen.
void VxBackup() {
    const WideText working = CurrentDirectory();
    const TopModel top = CurrentTopModel();
    if (top.type != PRO_MDL_ASSEMBLY && top.type != PRO_MDL_MFG) {
        ShowNotice(WIDE("\t当前环境不是组件/制造，无法进行备份操作\t"));
        return;
    }
    const WideText folder = AskFolder(WIDE("请选择模型备份目录")).folder;
    ChangeDirectory(folder);
    ComponentArray components = ComponentCollector(top.model, VisitAllComponents);
    if (!components) {
        ShowPlainError(WIDE("ProArray Alloc error"));
        return;
    }
    const int size = components.Size();
    if (size == 0) {
        ShowPlainError(WIDE("当前模型中没有子零件/组件"));
        return;
    }
    for (const ProMdl model : ReduceToModelList(std::move(components), size, {top.model})) {
        BackUpWithDrawing(model, folder, working);
    }
    ChangeDirectory(working);
    ShowCompletion(WIDE("\t图纸备份操作已完成"));
}
