// Compares hashes, so that nothing of a large session has to be copied.
#include "simhost/trail/changes.h"

#include <fmt/format.h>

#include <functional>
#include <vector>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/trail/words.h"
#include "simhost/user/language.h"

namespace simhost {
namespace {

std::string LookOf(const ProdbSurfaceProps& props) {
    return fmt::format("{} {};", ColourWords(props), props.transparency);
}

std::size_t Colours(const Model& model) {
    std::string all = model.appearance ? LookOf(*model.appearance) : "none;";
    for (const auto& [id, props] : model.surfaceAppearances) {
        all += fmt::format("{} {}", id, LookOf(props));
    }
    return std::hash<std::string>()(all);
}

std::size_t ParametersOf(const Model& model) {
    std::string all;
    for (const Parameter& one : model.parameters.all()) {
        all += fmt::format("{} {} {}\n", Utf8(one.name), int(one.type), ValueText(one));
    }
    return std::hash<std::string>()(all);
}

std::size_t RelationsOf(const Model& model) {
    std::string all;
    if (model.relations.initial) {
        for (const WideText& line : *model.relations.initial) all += Utf8(line) + "\n";
    }
    for (const WideText& line : model.relations.afterRegeneration) all += "after " + Utf8(line);
    return std::hash<std::string>()(all);
}

}  // namespace

Changes::States Changes::Look() {
    States states;
    for (const Model* model : TheHost().session.All()) {
        states[model->handle] = {model->FileName(), Colours(*model), ParametersOf(*model),
                                 RelationsOf(*model)};
    }
    return states;
}

std::string Changes::Tell() {
    States now = Look();
    int colours = 0, parameters = 0, relations = 0, names = 0, created = 0, erased = 0;
    for (const auto& [model, state] : now) {
        const auto old = before_.find(model);
        if (old == before_.end()) {
            ++created;
            continue;
        }
        colours += old->second.colours != state.colours;
        parameters += old->second.parameters != state.parameters;
        relations += old->second.relations != state.relations;
        names += old->second.file != state.file;
    }
    for (const auto& [model, state] : before_) erased += now.count(model) == 0;
    before_ = std::move(now);
    const struct {
        int count;
        const char *one, *several, *chinese;
    } rows[] = {
        {colours, "colours of 1 model", "colours of {} models", "{} 个模型的颜色"},
        {parameters, "parameters of 1 model", "parameters of {} models", "{} 个模型的参数"},
        {relations, "relations of 1 model", "relations of {} models", "{} 个模型的关系"},
        {names, "the name of 1 model", "names of {} models", "{} 个模型的名称"},
        {created, "1 model came into memory", "{} models came into memory", "新载入 {} 个模型"},
        {erased, "1 model left memory", "{} models left memory", "移除 {} 个模型"},
    };
    std::string line;
    for (const auto& row : rows) {
        if (row.count == 0) continue;
        line += line.empty() ? Either("changed: ", "已改变：") : Either(", ", "，");
        const char* english = row.count == 1 ? row.one : row.several;
        line += fmt::format(fmt::runtime(Either(english, row.chinese)), row.count);
    }
    return line;
}

}  // namespace simhost
