// A model's data in its file:
//
//     [[parameter]]
//     name = "代号"
//     value = "VX-01"      # a text, a whole number, a real number (with a point), true or false
//     locked = true        # only where the designer has locked it
#include "simhost/model/model_file_data.h"

#include <climits>

#include "simhost/core/text.h"

namespace simhost {

using namespace model_text;

namespace {

// A real number keeps its point, because the kind of the value is the kind of the parameter.
std::string RealText(double value) {
    std::string text = NumberText(value);
    if (text.find_first_of(".e") == std::string::npos) text += ".0";
    return text;
}

Parameter ReadValue(const toml::node& node, WideView name) {
    if (node.is_boolean()) return FlagParameter(name, node.as_boolean()->get());
    if (node.is_integer()) return WholeParameter(name, Integer(node, "value", INT_MIN));
    if (node.is_floating_point()) return RealParameter(name, NumberOf(node, "value"));
    const WideText text = Wide(Text(node, "value"));
    if (text.size() >= PRO_LINE_SIZE) {
        Fail(node.source(), "\"value\" must not have more than 80 characters");
    }
    return TextParameter(name, text);
}

void ReadParameter(const toml::table& table, Model* model) {
    Allow(table, {"name", "value", "locked"});
    const toml::node& nameNode = Require(table, "name");
    const WideText name = Wide(Text(nameNode, "name"));
    if (!IsParameterName(name)) {
        Fail(nameNode.source(), "no parameter can have the name " + Quoted(Utf8(name)));
    }
    if (model->parameters.Find(name)) {
        Fail(nameNode.source(), "the parameter " + Quoted(Utf8(name)) + " is there twice");
    }
    Parameter parameter = ReadValue(Require(table, "value"), name);
    parameter.locked = Flag(table, "locked", false);
    model->parameters.Set(std::move(parameter));
}

void AddParameter(std::string* text, const Parameter& parameter) {
    *text += "\n[[parameter]]\n";
    Line(text, "name", TextText(Utf8(parameter.name)));
    switch (parameter.type) {
        case PRO_PARAM_DOUBLE: Line(text, "value", RealText(parameter.number)); break;
        case PRO_PARAM_INTEGER: Line(text, "value", std::to_string(parameter.whole)); break;
        case PRO_PARAM_BOOLEAN: Line(text, "value", parameter.whole ? "true" : "false"); break;
        default: Line(text, "value", TextText(Utf8(parameter.text)));
    }
    if (parameter.locked) Line(text, "locked", "true");
}

}  // namespace

Keys ModelDataKeys() {
    return {"parameter"};
}

void ReadModelData(const toml::table& root, Model* model) {
    EachTable(root, "parameter", [&](const toml::table& one) { ReadParameter(one, model); });
}

void AddModelData(std::string* text, const Model& model) {
    for (const Parameter& one : model.parameters.all()) AddParameter(text, one);
}

}  // namespace simhost
