// The geometry of surfaces, and the paths to components, at the door.
#include "hostapi/host/geometry.h"

#include <algorithm>

#include "hostapi/host/component_path.h"
#include "simhost/door/door.h"
#include "simhost/model/frames.h"

using namespace simhost;

namespace {

// Follows a path from its top; `placement` becomes that of its end in the top's coordinates, in mm.
Model& Follow(const ProAsmcomppath* path, Placement* placement) {
    Model* model = &TheHost().session.RequireSolid(path->owner);
    if (path->table_num < 0 || path->table_num > PRO_MAX_ASSEM_LEVEL) {
        Complain(PRO_TK_BAD_INPUTS, "a path of an impossible length");
    }
    for (int i = 0; i < path->table_num; ++i) {
        const Feature* feature = model->FindFeature(path->comp_id_tab[i]);
        if (!feature || !feature->model) Refuse(PRO_TK_E_NOT_FOUND);
        *placement = Compose(*placement, PlaceInMm(feature->placement, *model));
        model = feature->model;
    }
    return *model;
}

// For points in units of `from` that become points in units of `to` (both in mm).
void Fill(const Placement& inMm, double from, double to, ProMatrix matrix) {
    const auto fill = [&](std::size_t row, Vec3 v, double unit) {
        matrix[row][0] = Converted(v.x, unit, to);
        matrix[row][1] = Converted(v.y, unit, to);
        matrix[row][2] = Converted(v.z, unit, to);
        matrix[row][3] = row < 3 ? 0 : 1;
    };
    for (std::size_t row = 0; row < 3; ++row) fill(row, inMm.axes[row], from);
    fill(3, inMm.origin, 1);
}

// A surface's data as it is handed out, in one piece.
struct SurfaceDataRecord {
    ProGeomitemdata about;
    ProSurfacedata box;
};

}  // namespace

ProError ProSurfaceDataGet(ProSurface surface, ProGeomitemdata** data) {
    return Op<"ProSurfaceDataGet">.Call(
        [&] {
            Surface* found = TheHost().session.FindSurface(surface);
            if (!surface) Refuse(PRO_TK_BAD_INPUTS);
            if (!found) Complain(PRO_TK_BAD_INPUTS, "not a surface");
            auto* record =
                TheHost().arrays.Lend(SurfaceDataRecord{{}, found->box}, "ProSurfaceDataGet");
            record->about.obj_type = PRO_SURFACE;
            record->about.data.p_surface_data = &record->box;
            *data = &record->about;
        },
        ARG(surface), OUT(data));
}

ProError ProGeomitemdataFree(ProGeomitemdata** data) {
    return Op<"ProGeomitemdataFree">.Call([&] {
        Need(data, "the place of the record");
        TheHost().arrays.TakeBackRecord(*data);
        *data = nullptr;
    });
}

ProError ProPntTrfEval(ProVector point, ProMatrix transform, ProVector result) {
    return Op<"ProPntTrfEval">.Call(
        [&] {
            if (TheHost().arrays.WasTakenBack(point)) {
                Complain(PRO_TK_BAD_INPUTS, "a point of a record that is freed already");
            }
            ProVector sum = {};
            for (std::size_t column = 0; column < 3; ++column) {
                sum[column] = transform[3][column];
                for (std::size_t row = 0; row < 3; ++row) {
                    sum[column] += point[row] * transform[row][column];
                }
            }
            std::copy_n(sum, 3, result);
        },
        GIVEN(point), GIVEN(transform), OUT_POINT(result));
}

ProError ProAsmcomppathInit(ProSolid assembly, ProIdTable ids, int count, ProAsmcomppath* path) {
    return Op<"ProAsmcomppathInit">.Call(
        [&] {
            TheHost().session.RequireSolid(assembly);
            if (count < 0 || count > PRO_MAX_ASSEM_LEVEL) {
                Complain(PRO_TK_BAD_INPUTS, "a path of an impossible length");
            }
            *path = {};
            path->owner = assembly;
            std::copy_n(ids, count, path->comp_id_tab);
            path->table_num = count;
        },
        ARG(assembly), LIST(ids, count), OUT(path));
}

ProError ProAsmcomppathMdlGet(ProAsmcomppath* path, ProMdl* model) {
    return Op<"ProAsmcomppathMdlGet">.Call(
        [&] {
            Placement ignored;
            *model = Follow(path, &ignored).handle;
        },
        GIVEN(path), OUT(model));
}

ProError ProAsmcomppathTrfGet(ProAsmcomppath* path, ProBoolean bottomUp, ProMatrix transform) {
    return Op<"ProAsmcomppathTrfGet">.Call(
        [&] {
            Placement placement;
            const double below = LengthUnit(Follow(path, &placement));
            const double top = LengthUnit(TheHost().session.RequireSolid(path->owner));
            if (bottomUp) {
                Fill(placement, below, top, transform);
            } else {
                Fill(Inverse(placement), top, below, transform);
            }
        },
        GIVEN(path), ARG(bottomUp), OUT(transform));
}
