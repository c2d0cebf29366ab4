// How parts look: taking the appearances of single surfaces away.
#include "display/appearance.h"

#include "frame/services.h"

namespace {

ProError CollectSurface(ProSurface surface, ProError, ProAppData surfaces) noexcept {
    AppendTo(surfaces, &surface);
    return PRO_TK_NO_ERROR;
}

}  // namespace

void ClearSurfaceOverrides(ProMdl part) {
    NameForHost name = {};
    ProMdlNameGet(part, name);
    const Prohandle object = prodb_get_object_ptr(name, HostText("PRT"));
    const auto solid = static_cast<ProSolid>(part);
    HostArray<ProSurface> surfaces;
    if (surfaces.Allocate() != PRO_TK_NO_ERROR) return;
    if (ProSolidSurfaceVisit(solid, CollectSurface, nullptr, surfaces.Place()) != PRO_TK_NO_ERROR) {
        return;
    }
    const int size = surfaces.Size();
    for (int i = 0; i < size; ++i) {
        HostRecord<ProGeomitem> item;
        ProSurfaceToGeomitem(solid, surfaces.data()[i], item.Place());
        if (!object || !item.IsFilled()) continue;
        prodb_unset_surface_props(object, PRODB_SURFACE, item.Place()->id, 0);
    }
}
