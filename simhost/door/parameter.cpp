// Parameters at the door.
#include "hostapi/host/parameter.h"

#include <algorithm>

#include "simhost/core/text.h"
#include "simhost/door/door.h"
#include "simhost/model/parameters.h"

using namespace simhost;

namespace {

// A real host reads past an array that has no end.
template <std::size_t Size>
WideText RequireText(const WideChar (&text)[Size], const char* what) {
    const auto* end = std::find(text, text + Size, WideChar{});
    if (end == text + Size) {
        Complain(PRO_TK_BAD_INPUTS, std::string(what) + " has no end within its record");
    }
    return {text, end};
}

WideText RequireName(const WideChar* name) {
    Need(name, "the parameter's name");
    const WideText text = name;
    if (text.size() >= PRO_NAME_SIZE) {
        Complain(PRO_TK_BAD_INPUTS, "the parameter's name is longer than a name");
    }
    return text;
}

Model& RequireOwnerOfParameters(const ProModelitem* item) {
    Need(item, "the parameter's owner");
    Model& model = TheHost().session.Require(item->owner);
    if (int(item->type) != int(model.type)) {
        Complain(PRO_TK_BAD_INPUTS, "an item that is no model owns no parameters here");
    }
    return model;
}

void RequireValue(const ProParamvalue* value) {
    Need(value, "the parameter's value");
    switch (value->type) {
        case PRO_PARAM_STRING: RequireText(value->value.s_val, "the text of the value"); return;
        case PRO_PARAM_BOOLEAN:
            if (value->value.l_val == 0 || value->value.l_val == 1) return;
            Complain(PRO_TK_BAD_INPUTS, "a boolean is neither 0 nor 1");
        case PRO_PARAM_DOUBLE:
        case PRO_PARAM_INTEGER: return;
        default: Complain(PRO_TK_BAD_INPUTS, "a parameter's value of no type");
    }
}

// What a handle names, in a model that is still there.
struct Named {
    Model& model;
    WideText name;
};
Named RequireParameter(const ProParameter* parameter) {
    Need(parameter, "the parameter");
    Model& model = RequireOwnerOfParameters(&parameter->owner);
    return {model, RequireText(parameter->id, "the parameter's name")};
}

const Parameter& Wanted(const Named& named) {
    const Parameter* found = ShownParameter(named.model, named.name);
    if (!found) Refuse(PRO_TK_E_NOT_FOUND);
    return *found;
}

void Fill(ProParameter* parameter, const Model& model, WideView name) {
    *parameter = {};
    parameter->type = ProType(model.type);
    CopyCut(name, parameter->id, PRO_NAME_SIZE);
    parameter->owner = {ProType(model.type), -1, model.handle};
}

}  // namespace

ProError ProParameterCreate(ProModelitem* owner, ProName name, ProParamvalue* value,
                            ProParameter* parameter) {
    return Op<"ProParameterCreate">.Call(
        [&] {
            Model& model = RequireOwnerOfParameters(owner);
            const WideText wanted = RequireName(name);
            RequireValue(value);
            if (wanted.empty()) Refuse(PRO_TK_BAD_INPUTS);
            if (!IsParameterName(wanted)) Refuse(PRO_TK_INVALID_NAME);
            if (ShownParameter(model, wanted)) Refuse(PRO_TK_E_FOUND);
            Parameter made;
            made.name = wanted;
            TakeValue(*value, &made);
            model.parameters.Set(made);
            model.modified = true;
            Fill(parameter, model, wanted);
        },
        ARG(owner), ARG(name), ARG(value), OUT(parameter));
}

ProError ProParameterInit(ProModelitem* owner, ProName name, ProParameter* parameter) {
    return Op<"ProParameterInit">.Call(
        [&] {
            const Named named{RequireOwnerOfParameters(owner), RequireName(name)};
            Fill(parameter, named.model, Wanted(named).name);
        },
        ARG(owner), ARG(name), OUT(parameter));
}

ProError ProParameterValueGet(ProParameter* parameter, ProParamvalue* value) {
    return Op<"ProParameterValueGet">.Call(
        [&] { *value = ValueOf(Wanted(RequireParameter(parameter))); }, ARG(parameter), OUT(value));
}

ProError ProParameterValueSet(ProParameter* parameter, ProParamvalue* value) {
    return Op<"ProParameterValueSet">.Call(
        [&] {
            const Named named = RequireParameter(parameter);
            RequireValue(value);
            Parameter changed = Wanted(named);
            if (changed.type != value->type) Refuse(PRO_TK_INVALID_TYPE);
            if (WhyFixed(named.model, named.name)) Refuse(PRO_TK_GENERAL_ERROR);
            TakeValue(*value, &changed);
            named.model.parameters.Set(changed);
            named.model.modified = true;
        },
        ARG(parameter), ARG(value));
}

ProError ProParameterDelete(ProParameter* parameter) {
    return Op<"ProParameterDelete">.Call(
        [&] {
            const Named named = RequireParameter(parameter);
            Wanted(named);
            if (WhyFixed(named.model, named.name)) Refuse(PRO_TK_GENERAL_ERROR);
            named.model.parameters.Remove(named.name);
            named.model.modified = true;
        },
        ARG(parameter));
}
