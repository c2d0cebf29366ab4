// Edges of solids, and the geometry of items, at the door.
#include "hostapi/host/edge.h"

#include <algorithm>

#include "simhost/door/door.h"
#include "simhost/model/edge_handles.h"
#include "simhost/model/shape.h"

using namespace simhost;

namespace {

// A record as it is handed out, in one piece.
struct CurveRecord {
    ProGeomitemdata about;
    ProCurvedata curve;
};
struct SurfaceRecord {
    ProGeomitemdata about;
    ProSurfacedata box;
};

void PutPoint(Vec3 from, Pro3dPnt to) {
    to[0] = from.x;
    to[1] = from.y;
    to[2] = from.z;
}

ProGeomitemdata* LendCurve(const EdgeOfModel& edge, const char* origin) {
    CurveRecord record{};
    record.curve.type = CurveType(edge);
    for (const ShapeEdge& each : edge.part->shape().edges) {
        if (each.id != edge.id) continue;
        record.curve.radius = each.radius;
        PutPoint(each.from, record.curve.from);
        PutPoint(each.to, record.curve.to);
    }
    auto* lent = TheHost().arrays.Lend(record, origin);
    lent->about.obj_type = PRO_EDGE;
    lent->about.data.p_curve_data = &lent->curve;
    return &lent->about;
}

ProGeomitemdata* LendSurface(Model& part, int id, const char* origin) {
    const auto& surfaces = part.Surfaces();
    const auto found = std::find_if(surfaces.begin(), surfaces.end(),
                                    [id](const auto& surface) { return surface->id == id; });
    if (found == surfaces.end()) Refuse(PRO_TK_BAD_INPUTS);
    auto* lent = TheHost().arrays.Lend(SurfaceRecord{{}, (*found)->box}, origin);
    lent->about.obj_type = PRO_SURFACE;
    lent->about.data.p_surface_data = &lent->box;
    return &lent->about;
}

EdgeOfModel RequireEdge(ProEdge handle) {
    if (!handle) Refuse(PRO_TK_BAD_INPUTS);
    const auto edge = FindEdge(TheHost().session, handle);
    if (!edge) Complain(PRO_TK_BAD_INPUTS, "not a live edge");
    return *edge;
}

}  // namespace

ProError ProGeomitemToEdge(ProGeomitem* item, ProEdge* edge) {
    return Op<"ProGeomitemToEdge">.Call(
        [&] {
            if (!item->owner || item->type != PRO_EDGE) Refuse(PRO_TK_BAD_INPUTS);
            const ProEdge found = EdgeHandle(TheHost().session.Require(item->owner), item->id);
            if (!found) Refuse(PRO_TK_BAD_INPUTS);
            *edge = found;
        },
        GIVEN(item), OUT(edge));
}

ProError ProEdgeTypeGet(ProEdge edge, ProEnttype* type) {
    return Op<"ProEdgeTypeGet">.Call([&] { *type = CurveType(RequireEdge(edge)); }, ARG(edge),
                                     OUT(type));
}

ProError ProGeomitemdataGet(ProGeomitem* item, ProGeomitemdata** data) {
    Operation& op = Op<"ProGeomitemdataGet">;
    return op.Call(
        [&] {
            if (!item->owner) Refuse(PRO_TK_BAD_INPUTS);
            Model& owner = TheHost().session.Require(item->owner);
            if (item->type == PRO_SURFACE) {
                *data = LendSurface(owner, item->id, op.name());
                return;
            }
            const ProEdge edge =
                item->type == PRO_EDGE ? EdgeHandle(owner, item->id) : ProEdge(nullptr);
            if (!edge) Refuse(PRO_TK_BAD_INPUTS);
            *data = LendCurve(RequireEdge(edge), op.name());
        },
        GIVEN(item), OUT(data));
}
