// VxExStp, VxExSat, VxExIgs: every model of an assembly in a file of its own.
#include <optional>

#include "export/commands.h"
#include "export/folder_prompt.h"
#include "export/step_file.h"
#include "frame/services.h"

namespace {

// What of a model goes into its file besides the visible solids.
struct Inclusion {
    ProBoolean datums, blanked, facetted;
};

// SAT is asked for by its ending alone: the host writes STEP.
void WriteStepOrSat(ProMdl model, const WideText& file, const Inclusion&) {
    WriteStep(model, file);
}

// The host has no call that frees the two records.
void WriteIges(ProMdl model, const WideText& file, const Inclusion& wanted) {
    ProOutputInclusion inclusion = nullptr;
    ProOutputInclusionAlloc(&inclusion);
    if (inclusion) {
        ProOutputInclusionFlagsSet(inclusion, wanted.datums, wanted.blanked, wanted.facetted);
    }
    ProOutputLayerOptions layers = nullptr;
    ProOutputLayerOptionsAlloc(&layers);
    if (layers) ProOutputLayerOptionsAutoidSet(layers, PRO_B_TRUE);
    if (!inclusion || !layers) return;
    ProIntf3DFileWrite(static_cast<ProSolid>(model), PRO_INTF_EXPORT_IGES, HostText(file),
                       PRO_OUTPUT_ASSEMBLY_MULTI_FILES, nullptr, nullptr, inclusion, layers);
}

// One of the batches: what it says, the ending of its files, and who writes them.
struct Batch {
    const WideChar* wrongModel;
    const WideChar* title;
    WideView extension;
    void (*write)(ProMdl model, const WideText& file, const Inclusion& wanted);
    const WideChar* completion;
};

// clang-format off
constexpr Batch kStep = {WIDE("此功能仅组件/制造环境可用！"), WIDE("请选择stp导出目录"),
                         WIDE(".stp"), WriteStepOrSat, WIDE("\tstp批量导出操作已完成")};
constexpr Batch kSat  = {WIDE("此功能仅组件/模具环境可用！"), WIDE("请选择sat文件导出目录"),
                         WIDE(".sat"), WriteStepOrSat, WIDE("\t批量导出为sat操作已完成")};
constexpr Batch kIges = {WIDE("此功能仅组件/制造环境可用！"), WIDE("请选择igs导出目录"),
                         WIDE(".igs"), WriteIges, WIDE("\tIGS批量导出操作已完成")};
// clang-format on

// Nothing where the user was told that the model is none to be exported so.
std::optional<TopModel> FindTop(const Batch& batch) {
    const TopModel top = CurrentTopModel();
    if (top.type == PRO_MDL_ASSEMBLY || top.type == PRO_MDL_MFG) return top;
    ShowPlainError(batch.wrongModel);
    return std::nullopt;
}

// The assembly and, unless it is a manufacturing model's, the models below it.
ModelList ModelsToExport(const TopModel& top) {
    ModelList models;
    if (top.model) models.push_back(top.model);
    if (top.type != PRO_MDL_ASSEMBLY) return models;
    ComponentArray components = ComponentCollector(top.model, VisitAllComponents);
    const int size = components.Size();
    return ReduceToModelList(std::move(components), size, models);
}

// Names are relative to the chosen folder, which is the working directory meanwhile.
void Export(const Batch& batch, const TopModel& top, const Inclusion& wanted) {
    const WideText working = CurrentDirectory();
    const FolderAnswer answer = AskFolder(batch.title);
    if (answer.cancelled) return;
    ChangeDirectory(answer.folder);
    for (const ProMdl model : ModelsToExport(top)) {
        WideText file = ModelName(model);
        file += batch.extension;
        batch.write(model, file, wanted);
    }
    ChangeDirectory(working);
    ShowCompletion(batch.completion);
}

void ExportStep(const Batch& batch) {
    const std::optional<TopModel> top = FindTop(batch);
    if (top) Export(batch, *top, {});
}

constexpr Dialog kIgesDialog = "VxExIgs";

ProBoolean IsChecked(const char* checkButton) {
    return kIgesDialog.CheckState(checkButton) == 1 ? PRO_B_TRUE : PRO_B_FALSE;
}

void OnExportIges(char*, char*, ProAppData) {
    const std::optional<TopModel> top = FindTop(kIges);
    if (!top) return;
    Inclusion wanted = {};
    wanted.datums = IsChecked("datumsCheck");
    wanted.blanked = IsChecked("blankedCheck");
    wanted.facetted = IsChecked("facettedCheck");
    Export(kIges, *top, wanted);
}

}  // namespace

void VxExStp() {
    ExportStep(kStep);
}

void VxExSat() {
    ExportStep(kSat);
}

void VxExIgs() {
    RunModalDialog(kIgesDialog, [] {
        kIgesDialog.OnPress("VxExIgsAct", Guarded<OnExportIges>);
        kIgesDialog.OnClose(EndDialogOnClose);
    });
}
