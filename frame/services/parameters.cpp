// Finding, writing and deleting of parameters.
#include "frame/services/parameters.h"

#include "frame/services/fixed_text.h"
#include "frame/services/host_record.h"

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
    HostRecord<ProModelitem> item;
    ProMdlToModelitem(model, item.Place());
    if (!item.IsFilled()) return;
    HostRecord<ProParameter> parameter;
    FindParameter(item.Place(), name, parameter.Place());
    if (parameter.IsFilled()) ProParameterDelete(parameter.Place());
}

void FindAndWriteParameter(ProMdl model, WideView name, ProParamvalue value) {
    HostRecord<ProModelitem> item;
    ProMdlToModelitem(model, item.Place());
    if (!item.IsFilled()) return;
    HostRecord<ProParameter> found;
    FindParameter(item.Place(), name, found.Place());
    ProName record = {};
    PutText(name, record);
    HostRecord<ProParameter> created;
    if (ProParameterCreate(item.Place(), record, &value, created.Place()) != PRO_TK_E_FOUND) return;
    // A refused creation need not fill its handle: the one that was found comes first.
    HostRecord<ProParameter>& there = found.IsFilled() ? found : created;
    if (there.IsFilled()) ProParameterValueSet(there.Place(), &value);
}

bool CreateOrSetParameter(ProMdl model, WideView name, ProParamvalue value) {
    HostRecord<ProModelitem> item;
    ProMdlToModelitem(model, item.Place());
    if (!item.IsFilled()) return false;
    ProName record = {};
    PutText(name, record);
    HostRecord<ProParameter> parameter;
    const ProError status = ProParameterCreate(item.Place(), record, &value, parameter.Place());
    if (status != PRO_TK_E_FOUND) return status == PRO_TK_NO_ERROR;
    // The host may leave the handle of a parameter that is there already to be asked for.
    if (!parameter.IsFilled()) FindParameter(item.Place(), name, parameter.Place());
    if (!parameter.IsFilled()) return false;
    return ProParameterValueSet(parameter.Place(), &value) == PRO_TK_NO_ERROR;
}
