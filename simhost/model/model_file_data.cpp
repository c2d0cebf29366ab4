// A model's data in its file, for reading and writing. What stands where:
//
//     [[parameter]]
//     name = "代号"
//     value = "VX-01"      # a text, a whole number, a real number (with a point), true or false
//     locked = true        # only where the designer has locked it
//
//     [relations]
//     initial = ["MASS = 2 * x"]              # left out: the model has no such set
//     after_regeneration = ["AREA = a * b"]
//
//     [family]
//     columns = ["数量"]                      # a generic: names of parameters
//     generic = "bolt.prt"                    # an instance: its generic
//
//     [sheets]
//     sizes = ["A3", "A4"]                    # drawings: one for each sheet
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

// A list of texts; nothing if it is not there.
std::optional<std::vector<WideText>> Texts(const toml::table& table, const char* key) {
    const toml::node* node = table.get(key);
    if (!node) return std::nullopt;
    if (!node->is_array()) Fail(node->source(), Quoted(key) + " must be a list of texts");
    std::vector<WideText> texts;
    for (const toml::node& one : *node->as_array()) texts.push_back(Wide(Text(one, key)));
    return texts;
}

void AddTexts(std::string* text, const char* key, const std::vector<WideText>& texts) {
    std::string list;
    for (const WideText& one : texts) list += (list.empty() ? "" : ", ") + TextText(Utf8(one));
    Line(text, key, "[" + list + "]");
}

void ReadRelations(const toml::table& table, Model* model) {
    Allow(table, {"initial", "after_regeneration"});
    model->relations.initial = Texts(table, "initial");
    if (auto lines = Texts(table, "after_regeneration")) {
        model->relations.afterRegeneration = std::move(*lines);
    }
}

void AddRelations(std::string* text, const Relations& relations) {
    if (!relations.initial && relations.afterRegeneration.empty()) return;
    *text += "\n[relations]\n";
    if (relations.initial) AddTexts(text, "initial", *relations.initial);
    if (!relations.afterRegeneration.empty()) {
        AddTexts(text, "after_regeneration", relations.afterRegeneration);
    }
}

void ReadFamily(const toml::table& table, Model* model) {
    Allow(table, {"columns", "generic"});
    if (auto columns = Texts(table, "columns")) model->family.columns = std::move(*columns);
    model->family.genericFile = Text(table, "generic");
}

void AddFamily(std::string* text, const FamilyTable& family) {
    const std::string generic = family.generic ? family.generic->FileName() : family.genericFile;
    if (family.columns.empty() && generic.empty()) return;
    *text += "\n[family]\n";
    if (!family.columns.empty()) AddTexts(text, "columns", family.columns);
    if (!generic.empty()) Line(text, "generic", TextText(generic));
}

void ReadSheets(const toml::table& table, Model* model) {
    Allow(table, {"sizes"});
    if (auto sizes = Texts(table, "sizes")) model->sheets.sizes = std::move(*sizes);
}

}  // namespace

Keys ModelDataKeys() {
    return {"parameter", "relations", "family", "sheets"};
}

void ReadModelData(const toml::table& root, Model* model) {
    EachTable(root, "parameter", [&](const toml::table& one) { ReadParameter(one, model); });
    if (const toml::table* table = Table(root, "relations")) ReadRelations(*table, model);
    if (const toml::table* table = Table(root, "family")) ReadFamily(*table, model);
    OnlyIn(*model, PRO_MDL_DRAWING, root.get("sheets"), "sheets");
    if (const toml::table* table = Table(root, "sheets")) ReadSheets(*table, model);
}

void AddModelData(std::string* text, const Model& model) {
    for (const Parameter& one : model.parameters.all()) AddParameter(text, one);
    AddRelations(text, model.relations);
    AddFamily(text, model.family);
    if (!model.sheets.sizes.empty()) {
        *text += "\n[sheets]\n";
        AddTexts(text, "sizes", model.sheets.sizes);
    }
}

}  // namespace simhost
