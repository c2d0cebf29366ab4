// New solids, visits to features, surfaces and coordinate systems at the door, and regeneration.
#include "hostapi/host/solid.h"

#include "hostapi/host/csys.h"
#include "simhost/door/door.h"
#include "simhost/model/regeneration.h"

using namespace simhost;

namespace {

// The rule of all visits: the filter may pass over an item, the action may end the visit.
template <class Filter, class Action>
ProError VisitOne(Filter&& filter, Action&& action, bool* goOn, bool* any = nullptr) {
    const ProError wanted = filter();
    if (wanted == PRO_TK_CONTINUE) return PRO_TK_NO_ERROR;
    if (wanted != PRO_TK_NO_ERROR) {
        *goOn = false;
        return wanted;
    }
    if (any) *any = true;
    const ProError status = action(wanted);
    if (status == PRO_TK_NO_ERROR || status == PRO_TK_CONTINUE) return PRO_TK_NO_ERROR;
    *goOn = false;
    return status;
}

const Feature& RequireCsys(ProCsys handle) {
    if (!handle) Refuse(PRO_TK_BAD_INPUTS);
    const Csys* found = TheHost().session.csyses.Find(handle);
    if (!found) Complain(PRO_TK_BAD_INPUTS, "not a coordinate system, or one that is gone");
    return *found->model->FindFeature(found->feature);
}

}  // namespace

ProError ProSolidCreate(WideChar* name, ProType type, ProSolid* solid) {
    return Op<"ProSolidCreate">.Call(
        [&] {
            if (type != PRO_PART && type != PRO_ASSEMBLY) Refuse(PRO_TK_BAD_INPUTS);
            const Model& made = TheHost().session.CreateSolid(name, ProMdlType(type));
            *solid = static_cast<ProSolid>(made.handle);
        },
        GIVEN(name), ARG(type), OUT(solid));
}

ProError ProSolidFeatVisit(ProSolid solid, ProFeatureVisitAction action,
                           ProFeatureFilterAction filter, ProAppData data) {
    return Op<"ProSolidFeatVisit">.Call(
        [&] {
            if (!action) Complain(PRO_TK_BAD_INPUTS, "the visit has no action");
            Model& model = TheHost().session.RequireSolid(solid);
            bool goOn = true;
            // By index: an action may add features.
            for (std::size_t i = 0; i < model.features().size() && goOn; ++i) {
                ProFeature item{PRO_FEATURE, model.features()[i].id, model.handle};
                const ProError status =
                    VisitOne([&] { return filter ? filter(&item, data) : PRO_TK_NO_ERROR; },
                             [&](ProError wanted) { return action(&item, wanted, data); }, &goOn);
                if (!goOn) return status;
            }
            return PRO_TK_NO_ERROR;
        },
        ARG(solid));
}

ProError ProSolidSurfaceVisit(ProSolid part, ProSurfaceVisitAction action,
                              ProSurfaceFilterAction filter, ProAppData data) {
    return Op<"ProSolidSurfaceVisit">.Call(
        [&] {
            if (!action) Complain(PRO_TK_BAD_INPUTS, "the visit has no action");
            Model& model = TheHost().session.RequireSolid(part);
            bool any = false;
            bool goOn = true;
            // As it was at the beginning: an action may change the part.
            std::vector<ProSurface> surfaces;
            for (const auto& each : model.Surfaces()) surfaces.push_back(each->handle);
            for (const ProSurface surface : surfaces) {
                const ProError status = VisitOne(
                    [&] { return filter ? filter(surface, data) : PRO_TK_NO_ERROR; },
                    [&](ProError wanted) { return action(surface, wanted, data); }, &goOn, &any);
                if (!goOn) return status;
            }
            return any ? PRO_TK_NO_ERROR : PRO_TK_E_NOT_FOUND;
        },
        ARG(part));
}

ProError ProSolidCsysVisit(ProSolid solid, ProCsysVisitAction action, ProCsysFilterAction filter,
                           ProAppData data) {
    return Op<"ProSolidCsysVisit">.Call(
        [&] {
            if (!action && !filter) Complain(PRO_TK_BAD_INPUTS, "the visit has no action");
            Session& session = TheHost().session;
            Model& model = session.RequireSolid(solid);
            bool any = false;
            bool goOn = true;
            for (std::size_t i = 0; i < model.features().size() && goOn; ++i) {
                if (model.features()[i].type != PRO_FEAT_CSYS) continue;
                const ProCsys csys = session.csyses.Of(model, model.features()[i]);
                const ProError status =
                    VisitOne([&] { return filter ? filter(csys, data) : PRO_TK_NO_ERROR; },
                             [&](ProError wanted) {
                                 if (!action)
                                     Complain(PRO_TK_BAD_INPUTS, "the visit has no action");
                                 return action(csys, wanted, data);
                             },
                             &goOn, &any);
                if (!goOn) return status;
            }
            return any ? PRO_TK_NO_ERROR : PRO_TK_E_NOT_FOUND;
        },
        ARG(solid), ARG(action), ARG(filter));
}

ProError ProCsysIdGet(ProCsys csys, int* id) {
    return Op<"ProCsysIdGet">.Call([&] { *id = CsysIdOf(RequireCsys(csys)); }, ARG(csys), OUT(id));
}

ProError ProCsysToGeomitem(ProSolid solid, ProCsys csys, ProGeomitem* item) {
    return Op<"ProCsysToGeomitem">.Call(
        [&] {
            const Model& model = TheHost().session.RequireSolid(solid);
            const Feature& feature = RequireCsys(csys);
            if (TheHost().session.csyses.Find(csys)->model != &model) {
                Complain(PRO_TK_BAD_INPUTS, "not a coordinate system of " + model.FileName());
            }
            *item = {PRO_CSYS, CsysIdOf(feature), model.handle};
        },
        ARG(solid), ARG(csys), OUT(item));
}

ProError ProSolidRegenerate(ProSolid solid, int flags) {
    return Op<"ProSolidRegenerate">.Call(
        [&] {
            Session& session = TheHost().session;
            Model& model = session.Require(solid);
            if (model.type != PRO_MDL_MFG) session.RequireSolid(solid);
            Regenerate(model);
        },
        ARG(solid), ARG(flags));
}

ProError ProSurfaceToGeomitem(ProSolid part, ProSurface surface, ProGeomitem* item) {
    return Op<"ProSurfaceToGeomitem">.Call(
        [&] {
            const Model& model = TheHost().session.RequireSolid(part);
            if (!surface) Refuse(PRO_TK_BAD_INPUTS);
            const Surface* found = TheHost().session.FindSurface(surface);
            if (!found || found->part != &model) {
                Complain(PRO_TK_BAD_INPUTS, "not a surface of " + model.FileName());
            }
            *item = {PRO_SURFACE, found->id, model.handle};
        },
        ARG(part), ARG(surface), OUT(item));
}
