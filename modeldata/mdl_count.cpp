// VxMdlCount: how often each model occurs in the current assembly, as an integer parameter of the
// model. Instances of family tables join in if the settings say so.
#include <vector>

#include "frame/services.h"
#include "modeldata/commands.h"

namespace {

constexpr WideView kParameterName = WIDE("数量");
constexpr WideView kFailureHeader =
    WIDE("以下模型“数量”参数创建/更新失败，请检查参数是否存在关系锁定等原因，需手动处理：\n");

// Makes the parameter a column of the generic's family table. Where it is one already the host
// refuses, and nothing more is wanted.
void AddColumn(ProMdl generic) {
    ProModelitem item = {PRO_TYPE_UNUSED, 0, nullptr};
    if (ProMdlToModelitem(generic, &item) != PRO_TK_NO_ERROR) return;
    ProName name = {};
    PutText(kParameterName, name);
    ProParamvalue value = WholeValue(0);
    ProParameter parameter = {};
    ProParameterCreate(&item, name, &value, &parameter);
    if (!parameter.owner.owner && !FindParameter(&item, kParameterName, &parameter)) return;
    ProFamtable table = {PRO_TYPE_UNUSED, 0, nullptr};
    ProFamtableItem column = {};
    if (ProFamtableInit(generic, &table) != PRO_TK_NO_ERROR) return;
    if (ProParameterToFamtableItem(&parameter, &column) != PRO_TK_NO_ERROR) return;
    ProFamtableItemAdd(&table, &column);
}

// Whether the model gets its number. An instance does not, unless the settings and its generic
// allow it.
bool IsCounted(ProMdl model, bool forInstances) {
    ProMdl generic = nullptr;
    if (ProFaminstanceGenericGet(model, PRO_B_TRUE, &generic) != PRO_TK_NO_ERROR) return true;
    ProBoolean modifiable = PRO_B_FALSE;
    if (forInstances) ProMdlIsModifiable(generic, PRO_B_TRUE, &modifiable);
    if (modifiable != PRO_B_TRUE) return false;
    AddColumn(generic);
    return true;
}

bool InstancesAreCounted() {
    return FoldCase(ConfigValue(WIDE("VxCountForInstance"), Place::TextFolder)) == WIDE("TRUE");
}

}  // namespace

void VxMdlCount() {
    const TopModel top = CurrentTopModel();
    if (top.type != PRO_MDL_ASSEMBLY && top.type != PRO_MDL_MFG) {
        ShowPlainError(WIDE("此功能仅组件/制造环境可用！"));
        return;
    }
    const bool forInstances = InstancesAreCounted();
    const std::vector<ModelCount> counts = CountModels(top.model);
    WideText failures(kFailureHeader);
    for (const ModelCount& count : counts) {
        if (!IsCounted(count.model, forInstances)) continue;
        if (CreateOrSetParameter(count.model, kParameterName, WholeValue(count.count))) continue;
        failures += count.name + WIDE("\n");
    }
    if (top.model) ProTreetoolRefresh(top.model);
    if (failures.size() > kFailureHeader.size()) ShowNotice(failures);
    ShowNotice(WIDE("\t批量数量参数创建/更新完毕。\t"));
}
