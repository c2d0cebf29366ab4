// Looking at the door, and assemblies in one line.
#include "tests/support/observed.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>

namespace workbench {

using namespace simhost;

std::vector<int> ObservedBench::UseAll(Model& assembly, std::initializer_list<Model*> models) {
    std::vector<int> ids;
    for (Model* model : models) ids.push_back(Use(assembly, *model).id);
    return ids;
}

int ObservedBench::UseMissing(Model& assembly, const std::string& file) {
    Feature feature;
    feature.type = PRO_FEAT_COMPONENT;
    feature.file = file;
    return assembly.AddFeature(feature).id;
}

Feature& ObservedBench::FeatureOf(Model& assembly, int id) {
    Feature* feature = assembly.FindFeature(id);
    if (!feature) throw std::runtime_error("no feature " + std::to_string(id));
    return *feature;
}

void ObservedBench::Record() {
    host().journal.Clear();
    host().journal.Start();
}

Names ObservedBench::Recorded() {
    host().journal.Stop();
    return host().journal.Names();
}

Names ObservedBench::Lines(const std::string& operation) {
    const bool anyEnd = !operation.empty() && operation.back() == '*';
    const std::string beginning =
        anyEnd ? operation.substr(0, operation.size() - 1) : operation + '(';
    Names found;
    for (const std::string& line : TheHost().journal.lines()) {
        const std::string call = line.substr(line.find_first_not_of(' '));
        if (call.compare(0, beginning.size(), beginning) == 0) found.push_back(call);
    }
    return found;
}

void SortByHandle(std::vector<Model*>* models) {
    std::sort(models->begin(), models->end(), [](const Model* a, const Model* b) {
        return reinterpret_cast<std::uintptr_t>(a->handle) <
               reinterpret_cast<std::uintptr_t>(b->handle);
    });
}

Names ByHandle(std::vector<Model*> models) {
    SortByHandle(&models);
    Names names;
    for (const Model* model : models) names.push_back(model->FileName());
    return names;
}

Names Joined(std::initializer_list<Names> pieces) {
    Names all;
    for (const Names& piece : pieces) all.insert(all.end(), piece.begin(), piece.end());
    return all;
}

}  // namespace workbench
