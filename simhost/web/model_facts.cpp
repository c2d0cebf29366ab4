// What there is to know of one model of the tree: parameters, relations, units, material.
#include <fmt/format.h>

#include <string>

#include "simhost/host.h"
#include "simhost/trail/picks.h"
#include "simhost/trail/words.h"
#include "simhost/web/answers.h"
#include "simhost/web/json_text.h"

namespace simhost {
namespace {

Json ParametersOf(const Model& model) {
    Json all = Json::array();
    for (const Parameter& one : model.parameters.all()) {
        all.push_back({{"name", Text(one.name)},
                       {"type", ParameterTypeName(one.type)},
                       {"value", ValueText(one)},
                       {"unit", Text(one.unit)}});
    }
    return all;
}

}  // namespace

// Without a path it is about the current model. Null: nothing of that path is in memory, as after
// another window was taken.
Reply ModelFacts(const Seat&, const Query& query) {
    const Model* model = ModelAt(query.Text("path"));
    if (!model) return {200, Reply().type, "null", {}};
    Json relations = Json::array();
    if (model->relations.initial) {
        for (const WideText& line : *model->relations.initial) relations.push_back(Text(line));
    }
    const Json facts = {
        {"file", model->FileName()},          {"title", model->title},
        {"version", model->version},          {"changed", model->modified},
        {"size", SizeText(*model)},           {"material", Text(model->partData.material)},
        {"parameters", ParametersOf(*model)}, {"relations", std::move(relations)}};
    return {200, Reply().type, Dump(facts), {}};
}

}  // namespace simhost
