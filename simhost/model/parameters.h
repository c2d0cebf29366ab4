// Parameters of models, as a designer sees them in the host's parameter table.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hostapi/host/parameter.h"

namespace simhost {

class Model;

struct Parameter {
    WideText name;  // as it was given
    ProParamvalueType type = PRO_PARAM_STRING;
    double number = 0;    // PRO_PARAM_DOUBLE
    WideText unit;        // PRO_PARAM_DOUBLE: "mm"; empty: a number without a unit
    int whole = 0;        // PRO_PARAM_INTEGER; PRO_PARAM_BOOLEAN as 0 and 1
    WideText text;        // PRO_PARAM_STRING
    bool locked = false;  // the designer has locked it against changes
};

Parameter RealParameter(WideView name, double value);
Parameter TextParameter(WideView name, WideView value);
Parameter WholeParameter(WideView name, int value);
Parameter FlagParameter(WideView name, bool value);

// A model's own parameters in the order of their making, each name once.
class Parameters {
public:
    const std::vector<Parameter>& all() const { return all_; }
    bool empty() const { return all_.empty(); }
    Parameter* Find(WideView name);
    const Parameter* Find(WideView name) const;
    Parameter& Set(Parameter parameter);  // adds it, or replaces the one of its name
    void Remove(WideView name);

private:
    std::vector<Parameter> all_;
    std::unordered_map<WideText, std::size_t> at_;  // where each is, by its name in small letters
};

// What the host takes as a name: a letter or a sign of another script first, then also digits and
// underscores.
bool IsParameterName(WideView name);

// The value as a designer reads it: 12.5, M8, 4, YES. And as a record of the door, and back.
std::string ValueText(const Parameter& parameter);
ProParamvalue ValueOf(const Parameter& parameter);
void TakeValue(const ProParamvalue& value, Parameter* parameter);

// "real", "text", "integer", "boolean", and back; false for any other word.
const char* ParameterTypeName(ProParamvalueType type);
bool ParseParameterType(std::string_view word, ProParamvalueType* type);

// What a model shows under this name: its own parameter or, for an instance of a family table, that
// of its generic. Null if there is none.
const Parameter* ShownParameter(const Model& model, WideView name);

// Why the host lets nobody change this parameter of the model; null if it can be changed.
const char* WhyFixed(const Model& model, WideView name);

}  // namespace simhost
