// Add, Update and Delete: one named parameter in many models. They end without a box.
#include <string>
#include <utility>

#include "frame/services.h"
#include "modeldata/batch_targets.h"
#include "modeldata/params_buttons.h"
#include "modeldata/params_settings.h"

namespace {

enum class Operation { Add, Update, Delete };

struct TypeRow {
    WideView label;
    ProParamvalueType type;
};
constexpr TypeRow kTypes[] = {
    {WIDE("整数"), PRO_PARAM_INTEGER},
    {WIDE("实数"), PRO_PARAM_DOUBLE},
    {WIDE("字符串"), PRO_PARAM_STRING},
    {WIDE("是/否"), PRO_PARAM_BOOLEAN},
};

// "YES" however it is written, "NO" exactly, or nothing.
bool IsBooleanText(const WideText& text) {
    return FoldCase(text) == WIDE("YES") || text == WIDE("NO") || text.empty();
}

struct Request {
    Operation operation = Operation::Add;
    WideText name;
    bool hasValue = false;  // false: no type was chosen, and nothing can be written
    ProParamvalue value = {};
};

// The value that the dialog shows. False: it was refused, and the user knows.
bool ReadValue(Operation operation, Request* request) {
    const WideText text = kParamsDialog.InputText("ParaValue");
    const WideText label = kParamsDialog.MenuText("PtypeOption");
    for (const TypeRow& row : kTypes) {
        if (label != row.label) continue;
        request->hasValue = true;
        request->value.type = row.type;
    }
    if (!request->hasValue) return true;
    switch (request->value.type) {
        case PRO_PARAM_INTEGER: request->value.value.i_val = WholeNumber(text); break;
        case PRO_PARAM_DOUBLE: request->value.value.d_val = RealNumber(text); break;
        case PRO_PARAM_STRING: request->value = TextValue(text); break;
        default:
            if (operation == Operation::Update) {
                request->value.value.l_val = 1;  // an update knows only yes
                break;
            }
            if (!IsBooleanText(text)) {
                ShowPlainError(WIDE("布尔类型参数值只可为'YES'或'NO',请重新输入!"));
                return false;
            }
            request->value.value.l_val = FoldCase(text) == WIDE("YES") ? 1 : 0;
    }
    return true;
}

// False: there is nothing to do, and the user knows why.
bool ReadRequest(Operation operation, Request* request) {
    request->operation = operation;
    request->name = kParamsDialog.InputText("ParaName");
    return operation == Operation::Delete || ReadValue(operation, request);
}

void Apply(Request* request, ProMdl model) {
    HostRecord<ProModelitem> item;
    ProMdlToModelitem(model, item.Place());
    if (!item.IsFilled()) return;
    HostRecord<ProParameter> parameter;
    if (request->operation == Operation::Add) {
        ProName name = {};
        PutText(request->name, name);
        if (!request->hasValue) return;
        ProParameterCreate(item.Place(), name, &request->value, parameter.Place());
        return;
    }
    FindParameter(item.Place(), request->name, parameter.Place());
    if (!parameter.IsFilled()) return;
    if (request->operation == Operation::Delete) {
        ProParameterDelete(parameter.Place());
    } else if (request->hasValue) {
        ProParameterValueSet(parameter.Place(), &request->value);
    }
}

void Run(Operation operation) {
    SaveParamsSettings();
    const TopModel top = CurrentTopModel();
    const std::string scope = kParamsDialog.Selected("TypeRadio");
    Request request;
    if (!ReadRequest(operation, &request)) return;
    ComponentArray components = CollectByScope(top, scope);
    if (!components && operation == Operation::Add) {
        ShowPlainError(WIDE("ProArray Alloc error"));
        return;
    }
    const auto apply = [&](ProMdl model, const WideText&) { Apply(&request, model); };
    if (ForEachTarget(top, scope, std::move(components), kParamsDialog, "InputKeyWords", apply)) {
        RefreshCurrentTree();
    }
}

}  // namespace

void OnAddParameter(char*, char*, ProAppData) {
    Run(Operation::Add);
}

void OnUpdateParameter(char*, char*, ProAppData) {
    Run(Operation::Update);
}

void OnDeleteParameter(char*, char*, ProAppData) {
    Run(Operation::Delete);
}
