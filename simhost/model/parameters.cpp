// Parameters: names, values, and who may change them.
#include "simhost/model/parameters.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "simhost/core/text.h"
#include "simhost/model/model.h"

namespace simhost {

namespace {

struct ParameterTypeWord {
    ProParamvalueType type;
    const char* word;
};
constexpr ParameterTypeWord kParameterTypes[] = {
    {PRO_PARAM_DOUBLE, "real"},
    {PRO_PARAM_STRING, "text"},
    {PRO_PARAM_INTEGER, "integer"},
    {PRO_PARAM_BOOLEAN, "boolean"},
};

Parameter Named(WideView name, ProParamvalueType type) {
    Parameter parameter;
    parameter.name = name;
    parameter.type = type;
    return parameter;
}

}  // namespace

Parameter RealParameter(WideView name, double value) {
    Parameter parameter = Named(name, PRO_PARAM_DOUBLE);
    parameter.number = value;
    return parameter;
}

Parameter TextParameter(WideView name, WideView value) {
    Parameter parameter = Named(name, PRO_PARAM_STRING);
    parameter.text = value;
    return parameter;
}

Parameter WholeParameter(WideView name, int value) {
    Parameter parameter = Named(name, PRO_PARAM_INTEGER);
    parameter.whole = value;
    return parameter;
}

Parameter FlagParameter(WideView name, bool value) {
    Parameter parameter = Named(name, PRO_PARAM_BOOLEAN);
    parameter.whole = value ? 1 : 0;
    return parameter;
}

const Parameter* Parameters::Find(WideView name) const {
    const auto found = at_.find(Lower(name));
    return found == at_.end() ? nullptr : &all_[found->second];
}

Parameter* Parameters::Find(WideView name) {
    return const_cast<Parameter*>(std::as_const(*this).Find(name));
}

Parameter& Parameters::Set(Parameter parameter) {
    if (Parameter* there = Find(parameter.name)) return *there = std::move(parameter);
    at_.emplace(Lower(parameter.name), all_.size());
    all_.push_back(std::move(parameter));
    return all_.back();
}

void Parameters::Remove(WideView name) {
    const auto found = at_.find(Lower(name));
    if (found == at_.end()) return;
    const std::size_t gone = found->second;
    at_.erase(found);
    all_.erase(all_.begin() + std::ptrdiff_t(gone));
    for (std::size_t i = gone; i < all_.size(); ++i) at_[Lower(all_[i].name)] = i;
}

bool IsParameterName(WideView name) {
    const auto letter = [](WideChar c) {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c >= 0x80;
    };
    if (name.empty() || name.size() >= PRO_NAME_SIZE || !letter(name.front())) return false;
    return std::all_of(name.begin(), name.end(),
                       [&](WideChar c) { return letter(c) || (c >= '0' && c <= '9') || c == '_'; });
}

std::string ValueText(const Parameter& parameter) {
    switch (parameter.type) {
        case PRO_PARAM_DOUBLE: return fmt::format("{}", parameter.number);
        case PRO_PARAM_INTEGER: return fmt::format("{}", parameter.whole);
        case PRO_PARAM_BOOLEAN: return parameter.whole ? "YES" : "NO";
        default: return Utf8(parameter.text);
    }
}

ProParamvalue ValueOf(const Parameter& parameter) {
    ProParamvalue value{};
    value.type = parameter.type;
    switch (parameter.type) {
        case PRO_PARAM_DOUBLE: value.value.d_val = parameter.number; break;
        case PRO_PARAM_INTEGER: value.value.i_val = parameter.whole; break;
        case PRO_PARAM_BOOLEAN: value.value.l_val = short(parameter.whole); break;
        default: CopyCut(parameter.text, value.value.s_val, PRO_LINE_SIZE);
    }
    return value;
}

void TakeValue(const ProParamvalue& value, Parameter* parameter) {
    parameter->type = value.type;
    switch (value.type) {
        case PRO_PARAM_DOUBLE: parameter->number = value.value.d_val; break;
        case PRO_PARAM_INTEGER: parameter->whole = value.value.i_val; break;
        case PRO_PARAM_BOOLEAN: parameter->whole = value.value.l_val != 0 ? 1 : 0; break;
        default: {
            const WideChar* text = value.value.s_val;
            parameter->text.assign(text, std::find(text, text + PRO_LINE_SIZE, WideChar{}));
        }
    }
}

const char* ParameterTypeName(ProParamvalueType type) {
    for (const ParameterTypeWord& row : kParameterTypes) {
        if (row.type == type) return row.word;
    }
    return "unknown";
}

bool ParseParameterType(std::string_view word, ProParamvalueType* type) {
    for (const ParameterTypeWord& row : kParameterTypes) {
        if (row.word != word) continue;
        *type = row.type;
        return true;
    }
    return false;
}

const Parameter* ShownParameter(const Model& model, WideView name) {
    const Parameter* own = model.parameters.Find(name);
    if (own || !model.family.generic) return own;
    return ShownParameter(*model.family.generic, name);
}

const char* WhyFixed(const Model& model, WideView name) {
    const Parameter* parameter = ShownParameter(model, name);
    if (!parameter) return nullptr;
    if (parameter->locked) return "it is locked";
    if (Decides(model.relations, name)) return "a relation decides it";
    const bool inherited = !model.parameters.Find(name);
    if (inherited && !model.family.generic->family.HasColumn(name)) return "its generic decides it";
    return nullptr;
}

}  // namespace simhost
