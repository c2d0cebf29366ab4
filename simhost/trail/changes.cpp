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
    for (const auto& [id, props] : model.partData.surfaceAppearances) {
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

std::size_t RepresentationsOf(const Model& model) {
    std::string all = std::to_string(model.assemblyData.activeSimprep);
    for (const Simprep& each : model.assemblyData.simpreps) {
        all += fmt::format("\n{} {}", Utf8(each.name), each.items.size());
    }
    return std::hash<std::string>()(all);
}

std::string HiddenOf(const Model& model) {
    std::string hidden;
    for (const Feature& feature : model.features()) hidden += feature.hidden ? 'h' : 's';
    return hidden;
}

// How many features have changed over to this letter.
int ChangedTo(char letter, const std::string& before, const std::string& now) {
    int count = 0;
    for (std::size_t i = 0; i < now.size() && i < before.size(); ++i) {
        count += before[i] != letter && now[i] == letter;
    }
    return count;
}

}  // namespace

Changes::States Changes::Look() {
    States states;
    for (const Model* model : TheHost().session.All()) {
        states[model->handle] = {model->FileName(),         Colours(*model),
                                 ParametersOf(*model),      RelationsOf(*model),
                                 RepresentationsOf(*model), HiddenOf(*model)};
    }
    return states;
}

std::string Changes::Tell() {
    States now = Look();
    int colours = 0, parameters = 0, relations = 0, names = 0, created = 0, erased = 0;
    int representations = 0, hidden = 0, shown = 0;
    for (const auto& [model, state] : now) {
        const auto old = before_.find(model);
        if (old == before_.end()) {
            ++created;
            continue;
        }
        colours += old->second.colours != state.colours;
        parameters += old->second.parameters != state.parameters;
        relations += old->second.relations != state.relations;
        representations += old->second.representations != state.representations;
        hidden += ChangedTo('h', old->second.hidden, state.hidden);
        shown += ChangedTo('s', old->second.hidden, state.hidden);
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
        {hidden, "1 component is hidden", "{} components are hidden", "隐藏 {} 个元件"},
        {shown, "1 component is shown", "{} components are shown", "显示 {} 个元件"},
        {representations, "representations of 1 model", "representations of {} models",
         "{} 个模型的简化表示"},
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
