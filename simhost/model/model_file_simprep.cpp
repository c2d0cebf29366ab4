// The simplified representations in the file of an assembly: a name, what is done with whatever no
// item leads to (it is excluded unless the file says otherwise), and the ways to the items, each
// the ids of components from the top down.
//
//     [[simprep]]
//     name = "SHAFTS"
//     default = "include"
//     include = [[40], [41, 2]]
//     exclude = [[40, 7]]
#include <map>

#include "simhost/core/text.h"
#include "simhost/model/model_file_sections.h"

namespace simhost {

using namespace model_text;

namespace {

void ReadName(const toml::node& node, const char* key, Simprep* simprep) {
    ReadValue(node, key, &simprep->name);
    if (!simprep->name.empty() && simprep->name.size() <= PRO_NAME_SIZE) return;
    Fail(node.source(), Quoted(key) + " must have 1 to 32 characters");
}

void ReadDefault(const toml::node& node, const char* key, Simprep* simprep) {
    const std::string word = Text(node, key);
    if (word != "include" && word != "exclude") {
        Fail(node.source(), Quoted(key) + " is include or exclude, not " + Quoted(word));
    }
    simprep->defaultAction = word == "include" ? kSimprepInclude : kSimprepExclude;
}

void ReadPaths(const toml::node& node, const char* key, int action, Simprep* simprep) {
    const auto fail = [&](const toml::node& at) {
        Fail(at.source(), Quoted(key) + " must be a list of lists of component ids");
    };
    const toml::array* paths = node.as_array();
    if (!paths) fail(node);
    for (const toml::node& each : *paths) {
        const toml::array* ids = each.as_array();
        if (!ids || ids->empty() || ids->size() > PRO_MAX_ASSEM_LEVEL) fail(each);
        Simprep::Item item{{}, action};
        for (const toml::node& id : *ids) item.path.push_back(Integer(id, key, 1));
        simprep->items.push_back(std::move(item));
    }
}

// The paths with this action; of two for one path the later counts.
std::vector<std::vector<int>> PathsOf(const Simprep& simprep, int action) {
    std::map<std::vector<int>, int> actions;
    for (const Simprep::Item& item : simprep.items) actions[item.path] = item.action;
    std::vector<std::vector<int>> paths;
    for (const auto& [path, done] : actions) {
        if (done == action) paths.push_back(path);
    }
    return paths;
}

template <int Action>
std::string PathsText(const Simprep& simprep) {
    std::string all;
    for (const std::vector<int>& path : PathsOf(simprep, Action)) {
        std::string ids;
        for (const int id : path) ids += (ids.empty() ? "" : ", ") + std::to_string(id);
        all += (all.empty() ? "[" : ", [") + ids + "]";
    }
    return "[" + all + "]";
}

template <int Action>
constexpr Field<Simprep> PathsField(const char* key) {
    return {key,
            [](const toml::node& node, const char* name, Simprep* simprep) {
                ReadPaths(node, name, Action, simprep);
            },
            PathsText<Action>,
            [](const Simprep& simprep) { return PathsOf(simprep, Action).empty(); }};
}

constexpr Field<Simprep> kSimprepFields[] = {
    Required(Field<Simprep>{"name", ReadName,
                            [](const Simprep& one) { return TextText(Utf8(one.name)); },
                            [](const Simprep&) { return false; }}),
    {"default", ReadDefault, [](const Simprep&) { return TextText("include"); },
     [](const Simprep& one) { return one.defaultAction == kSimprepExclude; }},
    PathsField<kSimprepInclude>("include"),
    PathsField<kSimprepExclude>("exclude"),
};

void ReadSimpreps(const toml::table& root, const char* key, Model* model) {
    EachTable(root, key, [&](const toml::table& table) {
        Simprep simprep;
        ReadRecord(table, kSimprepFields, &simprep);
        if (model->FindSimprep(simprep.name)) {
            Fail(table.get("name")->source(),
                 "the representation " + Quoted(Utf8(simprep.name)) + " is there twice");
        }
        simprep.id = int(model->assemblyData.simpreps.size()) + 1;
        model->assemblyData.simpreps.push_back(std::move(simprep));
    });
}

void AddSimpreps(std::string* text, const char* key, const Model& model) {
    for (const Simprep& simprep : model.assemblyData.simpreps) {
        *text += std::string("\n[[") + key + "]]\n";
        AddFields(text, kSimprepFields, simprep);
    }
}

}  // namespace

constinit const Section kSimprepSection{"simprep", PRO_MDL_ASSEMBLY, ReadSimpreps, AddSimpreps};

}  // namespace simhost
