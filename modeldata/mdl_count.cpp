// VxMdlCount: how often each model occurs in the current assembly, as an integer parameter of the
// model. Instances of family tables join in if the settings say so.
#include "modeldata/mdl_count.h"

#include <vector>

#include "frame/services.h"
#include "modeldata/batch_targets.h"

namespace {

constexpr WideView kParameterName = WIDE("数量");
constexpr WideView kFailureHeader =
    WIDE("以下模型“数量”参数创建/更新失败，请检查参数是否存在关系锁定等原因，需手动处理：\n");

ProParamvalue WholeValue(int number) {
    ProParamvalue value = {};
    value.type = PRO_PARAM_INTEGER;
    value.value.i_val = number;
    return value;
}

// False: the parameter has not got its value.
bool WriteCount(const ModelCount& count) {
    ProModelitem item = {PRO_TYPE_UNUSED, 0, nullptr};
    if (ProMdlToModelitem(count.model, &item) != PRO_TK_NO_ERROR) return false;
    ProParamvalue value = WholeValue(count.count);
    ProName name = {};
    PutText(kParameterName, name);
    ProParameter parameter = {};
    const ProError status = ProParameterCreate(&item, name, &value, &parameter);
    if (status != PRO_TK_E_FOUND) return status == PRO_TK_NO_ERROR;
    // The host may leave the handle of a parameter that is there already to be asked for.
    if (!parameter.id[0] && ProParameterInit(&item, name, &parameter) != PRO_TK_NO_ERROR) {
        return false;
    }
    return ProParameterValueSet(&parameter, &value) == PRO_TK_NO_ERROR;
}

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
    if (!parameter.id[0] && ProParameterInit(&item, name, &parameter) != PRO_TK_NO_ERROR) {
        return;
    }
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
    const WideText path = ConfigPathFor(WIDE("VxConfig.ini"));
    const WideText value =
        DeleteBlanks(ReadIniValue(path, WIDE("VxCountForInstance"), WIDE("value")));
    return FoldCase(value) == WIDE("TRUE");
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
        if (!IsCounted(count.model, forInstances) || WriteCount(count)) continue;
        failures += count.name + WIDE("\n");
    }
    if (top.model) ProTreetoolRefresh(top.model);
    if (failures.size() > kFailureHeader.size()) ShowNotice(failures);
    ShowNotice(WIDE("\t批量数量参数创建/更新完毕。\t"));
}
