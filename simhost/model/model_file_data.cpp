// A model's data in its file, for reading and writing. What stands where:
//
//     [[parameter]]
//     name = "代号"
//     value = "VX-01"      # a text, a whole number, a real number (with a point), true or false
//     unit = "mm"          # only of real numbers; left out: a number without a unit
//     locked = true        # only where the designer has locked it
//
//     [relations]
//     initial = ["MASS = 2 * x"]              # left out: the model has no such set
//     after_regeneration = ["AREA = a * b"]
//
//     [family]
//     columns = ["数量"]                      # a generic: names of parameters
//     generic = "bolt.prt"                    # an instance: its generic
#include <climits>

#include "simhost/core/text.h"
#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

namespace {

// A real number keeps its point, because the kind of the value is the kind of the parameter.
std::string RealText(double value) {
    std::string text = NumberText(value);
    if (text.find_first_of(".e") == std::string::npos) text += ".0";
    return text;
}

void ReadName(const toml::node& node, const char* key, Parameter* parameter) {
    ReadValue(node, key, &parameter->name);
    if (IsParameterName(parameter->name)) return;
    Fail(node.source(), "no parameter can have the name " + Quoted(Utf8(parameter->name)));
}

Parameter ParameterFrom(const toml::node& node, const char* key, WideView name) {
    if (node.is_boolean()) return FlagParameter(name, node.as_boolean()->get());
    if (node.is_integer()) return WholeParameter(name, Integer(node, key, INT_MIN));
    if (node.is_floating_point()) return RealParameter(name, NumberOf(node, key));
    const WideText text = Wide(Text(node, key));
    if (text.size() >= PRO_LINE_SIZE) {
        Fail(node.source(), Quoted(key) + " must not have more than 80 characters");
    }
    return TextParameter(name, text);
}

void ReadUnit(const toml::node& node, const char* key, Parameter* parameter) {
    ReadValue(node, key, &parameter->unit);
    if (!FindUnit(parameter->unit)) {
        Fail(node.source(), "there is no unit " + Quoted(Utf8(parameter->unit)));
    }
    if (parameter->type != PRO_PARAM_DOUBLE) {
        Fail(node.source(), Quoted(key) + " is only for real numbers");
    }
}

void ReadValueOf(const toml::node& node, const char* key, Parameter* parameter) {
    *parameter = ParameterFrom(node, key, parameter->name);
}

std::string ValueInFile(const Parameter& parameter) {
    switch (parameter.type) {
        case PRO_PARAM_DOUBLE: return RealText(parameter.number);
        case PRO_PARAM_INTEGER: return std::to_string(parameter.whole);
        case PRO_PARAM_BOOLEAN: return parameter.whole ? "true" : "false";
        default: return TextText(Utf8(parameter.text));
    }
}

constexpr Field<Parameter> kParameterFields[] = {
    Required(Field<Parameter>{"name", ReadName,
                              [](const Parameter& one) { return TextText(Utf8(one.name)); },
                              [](const Parameter&) { return false; }}),
    Required(Field<Parameter>{"value", ReadValueOf, ValueInFile,
                              [](const Parameter&) { return false; }}),
    {"unit", ReadUnit, [](const Parameter& one) { return TextText(Utf8(one.unit)); },
     [](const Parameter& one) { return one.unit.empty(); }},
    Of<&Parameter::locked>("locked"),
};

void ReadParameters(const toml::table& root, const char* key, Model* model) {
    EachTable(root, key, [&](const toml::table& table) {
        Parameter parameter;
        ReadRecord(table, kParameterFields, &parameter);
        if (model->parameters.Find(parameter.name)) {
            Fail(table.get("name")->source(),
                 "the parameter " + Quoted(Utf8(parameter.name)) + " is there twice");
        }
        model->parameters.Set(std::move(parameter));
    });
}

void AddParameters(std::string* text, const char* key, const Model& model) {
    for (const Parameter& parameter : model.parameters.all()) {
        *text += std::string("\n[[") + key + "]]\n";
        AddFields(text, kParameterFields, parameter);
    }
}

constexpr Field<Relations> kRelationsFields[] = {
    Of<&Relations::initial>("initial"),
    Of<&Relations::afterRegeneration>("after_regeneration"),
};

constexpr Field<FamilyTable> kFamilyFields[] = {
    Of<&FamilyTable::columns>("columns"),
    Link<&FamilyTable::genericFile, &FamilyTable::generic>("generic"),
};

}  // namespace

constinit const Section kParameterSection{"parameter", PRO_MDL_UNUSED, ReadParameters,
                                          AddParameters};
constinit const Section kRelationsSection =
    SectionOf<kRelationsFields, &Model::relations>("relations");
constinit const Section kFamilySection = SectionOf<kFamilyFields, &Model::family>("family");

}  // namespace simhost
