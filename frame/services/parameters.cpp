// Finding, writing and deleting of parameters.
#include "frame/services/parameters.h"

#include "frame/services/fixed_text.h"

ProParamvalue TextValue(WideView text) {
    ProParamvalue value = {};
    value.type = PRO_PARAM_STRING;
    PutText(text, value.value.s_val);
    return value;
}

ProParamvalue WholeValue(int number) {
    ProParamvalue value = {};
    value.type = PRO_PARAM_INTEGER;
    value.value.i_val = number;
    return value;
}

bool FindParameter(ProModelitem* item, WideView name, ProParameter* found) {
    ProName record = {};
    PutText(name, record);
    return ProParameterInit(item, record, found) == PRO_TK_NO_ERROR;
}

void DeleteParameter(ProMdl model, WideView name) {
    ProModelitem item = {PRO_TYPE_UNUSED, 0, nullptr};
    if (ProMdlToModelitem(model, &item) != PRO_TK_NO_ERROR) return;
    ProParameter parameter = {};
    if (FindParameter(&item, name, &parameter)) ProParameterDelete(&parameter);
}

void FindAndWriteParameter(ProMdl model, WideView name, ProParamvalue value) {
    ProModelitem item = {PRO_TYPE_UNUSED, 0, nullptr};
    if (ProMdlToModelitem(model, &item) != PRO_TK_NO_ERROR) return;
    ProParameter parameter = {};
    const bool there = FindParameter(&item, name, &parameter);
    ProName record = {};
    PutText(name, record);
    // A refused creation need not fill its handle: that of the parameter which is there is kept.
    ProParameter created = {};
    const ProError status = ProParameterCreate(&item, record, &value, &created);
    if (status == PRO_TK_E_FOUND && there) ProParameterValueSet(&parameter, &value);
}

bool CreateOrSetParameter(ProMdl model, WideView name, ProParamvalue value) {
    ProModelitem item = {PRO_TYPE_UNUSED, 0, nullptr};
    if (ProMdlToModelitem(model, &item) != PRO_TK_NO_ERROR) return false;
    ProName record = {};
    PutText(name, record);
    ProParameter parameter = {};
    const ProError status = ProParameterCreate(&item, record, &value, &parameter);
    if (status != PRO_TK_E_FOUND) return status == PRO_TK_NO_ERROR;
    // The host may leave the handle of a parameter that is there already to be asked for.
    if (!parameter.owner.owner && !FindParameter(&item, name, &parameter)) return false;
    return ProParameterValueSet(&parameter, &value) == PRO_TK_NO_ERROR;
}
