// SetMat: a material from a file for many parts.
#include <algorithm>

#include "modeldata/commands.h"
#include "modeldata/file_for_parts.h"

namespace {

constexpr const WideChar* kMaterialFolder = WIDE("pro_material_dir");

constexpr WalkTexts kParts = {WIDE("未找到子零件"), WIDE("当前模型中没有零件")};

// From the working folder, where the host looks for it.
void ApplyMaterial(ProMdl part, const WideText& name) {
    ProMaterial material = {};
    std::copy_n(name.begin(), std::min<std::size_t>(name.size(), PRO_NAME_SIZE),
                material.matl_name);
    material.part = static_cast<ProPart>(part);
    ProMaterialfileRead(material.part, HostText(name));
    ProMaterialCurrentSet(&material);
}

// A part that is used many times is read and set each time. False: the command has ended, and that
// was told.
bool ApplyMaterialBelow(ProMdl assembly, const WideText& name) {
    ComponentArray components;
    const int size = CollectOrTell(assembly, VisitPartComponents, kParts, &components);
    if (size == 0) return false;
    for (int i = 0; i < size; ++i) {
        ProMdl model = nullptr;
        ProAsmcompMdlGet(&components.data()[i], &model);
        if (model) ApplyMaterial(model, name);
    }
    return true;
}

bool ApplyMaterialInAssembly(ProMdl top, const WideText& name) {
    ProSelection* array = nullptr;
    const ProError status = ProSelbufferSelectionsGet(&array);
    HostArray<ProSelection> selections;
    selections.Adopt(array);
    if (status == PRO_TK_E_NOT_FOUND) return ApplyMaterialBelow(top, name);
    if (status != PRO_TK_NO_ERROR) return true;
    return ForEachPicked(
        selections, [&](ProMdl part) { ApplyMaterial(part, name); },
        [&](ProMdl assembly) { return ApplyMaterialBelow(assembly, name); });
}

}  // namespace

void SetMat() {
    ShowMessage(kBendTableMessage);
    const WideText start = FirstValueOf(kMaterialFolder);
    const auto file = ChooseFile(WIDE("请选择材料"), WIDE("*.mtl,*.mat"), start);
    if (!file) return;
    ProPath before = {};
    ProDirectoryCurrentGet(before);
    ProDirectoryChange(HostText(file->folder));
    const TopModel current = CurrentModel();
    if (current.type == PRO_MDL_PART) ApplyMaterial(current.model, file->name);
    // A walk that finds nothing leaves the host in the folder of the file.
    if (current.type == PRO_MDL_ASSEMBLY && !ApplyMaterialInAssembly(current.model, file->name)) {
        return;
    }
    ProDirectoryChange(before);
    int window = PRO_VALUE_UNUSED;
    ProWindowCurrentGet(&window);
    ProWindowActivate(window);
    ShowCompletion(WIDE("\t材料设置完成"));
}
