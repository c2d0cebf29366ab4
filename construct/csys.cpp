// VxBox and the default assembly: coordinate systems found and chosen.
#include "construct/csys.h"

namespace {

ProError Collect(ProCsys csys, ProError, ProAppData place) {
    return AppendTo(place, &csys);
}

ProError CollectAndSkip(ProCsys csys, ProAppData place) {
    AppendTo(place, &csys);
    return PRO_TK_CONTINUE;
}

// The filter lets nothing come here.
ProError Ignore(ProCsys, ProError, ProAppData) {
    return PRO_TK_NO_ERROR;
}

// The feature of a coordinate system has the number before its own. One that cannot be asked counts
// as one that has parents.
bool HasNoParents(ProMdl solid, ProCsys csys) {
    int id = 0;
    if (ProCsysIdGet(csys, &id) != PRO_TK_NO_ERROR) return false;
    ProFeature feature = {};
    if (ProFeatureInit(static_cast<ProSolid>(solid), id - 1, &feature) != PRO_TK_NO_ERROR) {
        return false;
    }
    int* list = nullptr;
    int count = 0;
    const ProError status = ProFeatureParentsGet(&feature, &list, &count);
    HostArray<int> parents;
    parents.Adopt(list);
    return status == PRO_TK_NO_ERROR && count == 0;
}

}  // namespace

void CollectByAction(ProMdl solid, CsysArray* found) {
    if (!*found) return;
    ProSolidCsysVisit(static_cast<ProSolid>(solid), Guarded<Collect>, nullptr, found->Place());
}

void CollectByFilter(ProMdl solid, CsysArray* found) {
    if (!*found) return;
    ProSolidCsysVisit(static_cast<ProSolid>(solid), Guarded<Ignore>, Guarded<CollectAndSkip>,
                      found->Place());
}

ProCsys Chosen(ProMdl solid, const CsysArray& from, CsysChoice choice) {
    const int size = from.Size();
    if (size == 0) return nullptr;
    const bool asks = choice == CsysChoice::WithoutParents && size > 1;
    for (int i = 0; asks && i < size; ++i) {
        if (HasNoParents(solid, from.data()[i])) return from.data()[i];
    }
    return from.data()[0];
}

ProSelection SelectionOf(ProMdl solid, ProCsys csys, ProAsmcomppath* path) {
    HostRecord<ProGeomitem> item;
    ProCsysToGeomitem(static_cast<ProSolid>(solid), csys, item.Place());
    ProSelection selection = nullptr;
    if (item.IsFilled()) ProSelectionAlloc(path, item.Place(), &selection);
    return selection;
}
