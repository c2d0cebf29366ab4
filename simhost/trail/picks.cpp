// Finds components and items by the paths of scripts.
#include "simhost/trail/picks.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <set>

#include "simhost/core/text.h"
#include "simhost/host.h"
#include "simhost/model/annotations.h"
#include "simhost/model/csys.h"
#include "simhost/trail/lexer.h"
#include "simhost/ui/near_name.h"

namespace simhost {
namespace {

struct ItemKind {
    const char* word;
    ProType type;
};
constexpr ItemKind kItemKinds[] = {
    {"surface", PRO_SURFACE},
    {"feature", PRO_FEATURE},
    {"edge", PRO_EDGE},
    {"csys", PRO_CSYS},
    {"quilt", PRO_QUILT},
    {"curve", PRO_CURVE},
    {"composite", PRO_COMP_CURVE},
    {"body", PRO_BODY},
    {"dimension", PRO_DIMENSION},
    {"note", kNote},
};

std::optional<ProType> KindOfWord(const std::string& word) {
    for (const ItemKind& kind : kItemKinds) {
        if (Lower(word) == kind.word) return kind.type;
    }
    return std::nullopt;
}

std::string KindWord(ProType type) {
    for (const ItemKind& kind : kItemKinds) {
        if (kind.type == type) return kind.word;
    }
    return fmt::format("type {}", static_cast<int>(type));
}

std::optional<int> Number(const std::string& text) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data(), end, number);
    if (text.empty() || error != std::errc() || parsed != end) return std::nullopt;
    return number;
}

std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> pieces;
    std::size_t from = 0;
    for (std::size_t to = 0; to != std::string::npos; from = to + 1) {
        to = text.find(separator, from);
        pieces.emplace_back(Trimmed(text.substr(from, to == std::string::npos ? to : to - from)));
    }
    return pieces;
}

std::string FileOf(const Feature& component) {
    return component.model ? component.model->FileName() : Lower(component.file);
}

// The current model, or the assembly that it manufactures.
Model* Top() {
    Model* model = TheHost().session.CurrentModel();
    return model && model->manufacturingData.assembly ? model->manufacturingData.assembly : model;
}

bool IsCalled(const Feature& component, const std::string& name) {
    const std::string file = FileOf(component);
    const std::string wanted = Lower(name);
    return wanted == file || wanted == file.substr(0, file.rfind('.'));
}

// The component of this name ("GEAR:2": the second) in an assembly.
const Feature* FindComponent(const Model& model, const std::string& step, std::string* problem) {
    std::string name = step;
    int occurrence = 1;
    if (const std::size_t colon = step.rfind(':'); colon != std::string::npos) {
        if (const auto number = Number(step.substr(colon + 1))) {
            occurrence = *number;
            name = step.substr(0, colon);
        }
    }
    int seen = 0;
    std::vector<std::string> names;
    for (const Feature& feature : model.features()) {
        if (feature.file.empty() && !feature.model) continue;
        names.push_back(FileOf(feature));
        if (IsCalled(feature, name) && ++seen == occurrence) return &feature;
    }
    if (seen > 0) {
        *problem = fmt::format("{} holds {} only {} times", model.FileName(), name, seen);
    } else {
        *problem = fmt::format("{} holds no component {}{}", model.FileName(), name,
                               DidYouMean(name, names));
    }
    return nullptr;
}

// "12", or with a kind "edge#12", of a model.
std::optional<ProModelitem> FindItem(Model& model, const std::string& kind, const std::string& id,
                                     std::string* problem) {
    const auto number = Number(id);
    const ProType type =
        kind.empty() ? PRO_TYPE_UNUSED : KindOfWord(kind).value_or(PRO_TYPE_UNUSED);
    if (!number) {
        *problem = fmt::format("\"{}\" after # is no id", id);
        return std::nullopt;
    }
    const bool surface = model.HasSurface(*number);
    const bool feature = model.FindFeature(*number) != nullptr;
    const bool plain = type == PRO_TYPE_UNUSED;
    if (kind.empty() && (surface || feature)) {
        return ProModelitem{surface ? PRO_SURFACE : PRO_FEATURE, *number, model.handle};
    }
    if (plain || (type == PRO_SURFACE && !surface) || (type == PRO_FEATURE && !feature) ||
        (type == PRO_CSYS && !FindCsys(model, *number)) ||
        (type == PRO_DIMENSION && !AnnotationsOf(model).FindDimension(*number)) ||
        (type == kNote && !AnnotationsOf(model).FindNote(*number))) {
        *problem = fmt::format("{} has no {} {}", model.FileName(),
                               kind.empty() ? "surface or feature" : kind, *number);
        return std::nullopt;
    }
    return ProModelitem{type, *number, model.handle};
}

}  // namespace

std::vector<std::string> SplitPicks(const std::string& text) {
    std::vector<std::string> paths = Split(text, ',');
    std::erase(paths, "");
    return paths;
}

std::vector<std::pair<std::string, const Feature*>> ComponentSteps(const Model& model) {
    std::map<std::string, std::set<std::string>> filesOfName;
    for (const Feature& feature : model.features()) {
        const std::string file = FileOf(feature);
        if (!file.empty()) filesOfName[file.substr(0, file.rfind('.'))].insert(file);
    }
    std::map<std::string, int> seen;
    std::vector<std::pair<std::string, const Feature*>> steps;
    for (const Feature& feature : model.features()) {
        const std::string file = FileOf(feature);
        if (file.empty()) continue;
        const std::string name = file.substr(0, file.rfind('.'));
        std::string step = filesOfName[name].size() == 1 ? name : file;
        const int occurrence = ++seen[step];
        if (occurrence > 1) step += fmt::format(":{}", occurrence);
        steps.emplace_back(std::move(step), &feature);
    }
    return steps;
}

Model* ModelAt(const std::string& path) {
    Model* model = Top();
    if (!model || path.empty()) return model;
    for (const std::string& step : Split(path, '/')) {
        std::string ignored;
        if (step.empty() || step == ".") continue;
        const Feature* found = FindComponent(*model, step, &ignored);
        if (!found || !found->model) return nullptr;
        model = found->model;
    }
    return model;
}

std::optional<Selection> Pick(const std::string& path, std::string* problem) {
    Model* top = Top();
    if (!top) {
        *problem = "no model is open";
        return std::nullopt;
    }
    std::vector<int> ids;
    Model* model = top;
    std::optional<ProModelitem> item;
    const std::vector<std::string> steps = Split(path, '/');
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const std::size_t hash = steps[i].rfind('#');
        std::string component = steps[i].substr(0, hash);
        std::string kind;
        if (hash != std::string::npos && KindOfWord(component)) std::swap(kind, component);
        const bool top_itself = component.empty() || component == ".";
        if (!top_itself) {
            const Feature* found = FindComponent(*model, component, problem);
            if (!found) return std::nullopt;
            if (!found->model) {
                *problem = fmt::format("{} is not in memory", FileOf(*found));
                return std::nullopt;
            }
            ids.push_back(found->id);
            model = found->model;
        }
        if (hash == std::string::npos) continue;
        if (i + 1 < steps.size()) {
            *problem = "nothing can follow an id";
            return std::nullopt;
        }
        item = FindItem(*model, kind, steps[i].substr(hash + 1), problem);
        if (!item) return std::nullopt;
    }
    if (!item) {
        item.emplace();
        Session::Follow(*top, ids, &*item);
    }
    return Selection{*item, top, ids};
}

std::vector<Selection> PickAll(const std::string& paths, std::string* problem) {
    std::vector<Selection> picked;
    for (const std::string& path : SplitPicks(paths)) {
        std::optional<Selection> one = Pick(path, problem);
        if (!one) return {};
        picked.push_back(std::move(*one));
    }
    return picked;
}

const PathNames::Steps& PathNames::StepsOf(const Model* model) {
    const auto [found, isNew] = steps_.try_emplace(model);
    if (isNew && model) {
        for (auto& [step, feature] : ComponentSteps(*model)) {
            found->second[feature->id] = {std::move(step), feature->model};
        }
    }
    return found->second;
}

std::string PathNames::Of(const Model* top, const std::vector<int>& ids) {
    if (ids.empty()) return ".";
    std::string path;
    const Model* model = top;
    for (const int id : ids) {
        if (!path.empty()) path += '/';
        const Steps& steps = StepsOf(model);
        const auto found = steps.find(id);
        path += found == steps.end() ? std::to_string(id) : found->second.first;
        model = found == steps.end() ? nullptr : found->second.second;
    }
    return path;
}

std::string PathNames::Of(const Selection& selection) {
    std::string path = Of(selection.top, selection.path);
    if (selection.item.id < 0) return path;
    const std::string item = KindWord(selection.item.type) + fmt::format("#{}", selection.item.id);
    return selection.path.empty() ? item : path + "/" + item;
}

}  // namespace simhost
