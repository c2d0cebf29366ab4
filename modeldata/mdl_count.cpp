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
    HostRecord<ProModelitem> item;
    HostRecord<ProParameter> parameter;
    ProMdlToModelitem(generic, item.Place());
    if (item.IsFilled()) {
        ProName name = {};
        PutText(kParameterName, name);
        ProParamvalue value = WholeValue(0);
        ProParameterCreate(item.Place(), name, &value, parameter.Place());
        // The host may leave the handle of a parameter that is there already to be asked for.
        if (!parameter.IsFilled()) FindParameter(item.Place(), kParameterName, parameter.Place());
    }
    HostRecord<ProFamtable> table;
    HostRecord<ProFamtableItem> column;
    ProFamtableInit(generic, table.Place());
    if (parameter.IsFilled()) ProParameterToFamtableItem(parameter.Place(), column.Place());
    if (table.IsFilled() && column.IsFilled()) ProFamtableItemAdd(table.Place(), column.Place());
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
