// Handles of edges: the same edge has the same handle for as long as its model is in memory.
#pragma once

#include "hostapi/host/edge.h"
#include "simhost/model/model.h"

namespace simhost {

struct EdgeOfModel {
    Model* part = nullptr;
    int id = 0;
};

// The edge of this id; null: the model has none.
ProEdge EdgeHandle(Model& model, int id);
// What the handle is of; nothing where the edge or its model is gone, or it is no such handle.
std::optional<EdgeOfModel> FindEdge(const Session& session, const void* handle);

// The kind of an edge's curve. Hosts call circles 3 or 10; which of them this one says is a knob
// for tests.
ProEnttype CurveType(const EdgeOfModel& edge);
extern ProEnttype circlesAre;

std::string DescribeEdge(const Session& session, const void* handle);  // "edge 21 of plate.prt"

}  // namespace simhost
