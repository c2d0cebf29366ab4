// Edges at the door by their model and id.
#include "simhost/model/edge_handles.h"

#include <fmt/format.h>

#include <algorithm>
#include <deque>

#include "simhost/model/session.h"
#include "simhost/model/shape.h"

namespace simhost {

namespace {

struct Known {
    ProMdl model;
    int id;
    void* handle = nullptr;
};

// For all sessions of the process: a model's handle tells whether the model is there.
struct Registry {
    std::map<std::pair<ProMdl, int>, Known> byEdge;
    HandleTable<Known> handles{HandleKind::Edge};
};
Registry& TheRegistry() {
    static auto* registry = new Registry;
    return *registry;
}

const ShapeEdge* EdgeIn(const Model& model, int id) {
    if (model.type != PRO_MDL_PART) return nullptr;
    const auto& edges = model.shape().edges;
    const auto found =
        std::find_if(edges.begin(), edges.end(), [id](const auto& edge) { return edge.id == id; });
    return found == edges.end() ? nullptr : &*found;
}

}  // namespace

ProEnttype circlesAre = PRO_ENT_CIRCLE;

ProEdge EdgeHandle(Model& model, int id) {
    if (!EdgeIn(model, id)) return nullptr;
    Registry& registry = TheRegistry();
    const auto [found, isNew] = registry.byEdge.try_emplace({model.handle, id});
    Known& known = found->second;
    if (isNew) {
        known.model = model.handle;
        known.id = id;
        known.handle = registry.handles.Add(&known);
    }
    return static_cast<ProEdge>(known.handle);
}

std::optional<EdgeOfModel> FindEdge(const Session& session, const void* handle) {
    const Known* known = TheRegistry().handles.Find(handle);
    Model* model = known ? session.Find(known->model) : nullptr;
    if (!model || !EdgeIn(*model, known->id)) return std::nullopt;
    return EdgeOfModel{model, known->id};
}

ProEnttype CurveType(const EdgeOfModel& edge) {
    return EdgeIn(*edge.part, edge.id)->kind == EdgeKind::Line ? PRO_ENT_LINE : circlesAre;
}

std::string DescribeEdge(const Session& session, const void* handle) {
    const auto edge = FindEdge(session, handle);
    if (!edge) return "dangling edge";
    return fmt::format("edge {} of {}", edge->id, edge->part->FileName());
}

}  // namespace simhost
