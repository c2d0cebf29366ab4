// Features at the door.
#include "hostapi/host/feature.h"

#include "simhost/door/door.h"

using namespace simhost;

ProError ProFeatureInit(ProSolid solid, int id, ProFeature* feature) {
    return Op<"ProFeatureInit">.Call(
        [&] {
            Model& model = TheHost().session.RequireSolid(solid);
            if (!model.FindFeature(id)) Refuse(PRO_TK_E_NOT_FOUND);
            *feature = {PRO_FEATURE, id, model.handle};
        },
        ARG(solid), ARG(id), OUT(feature));
}

ProError ProFeatureParentsGet(ProFeature* feature, int** parents, int* count) {
    Operation& op = Op<"ProFeatureParentsGet">;
    return op.Call(
        [&] {
            const std::vector<int>& found = TheHost().session.RequireFeature(feature).parents;
            *parents = found.empty() ? nullptr : TheHost().arrays.Make(found, op.name());
            *count = int(found.size());
        },
        ARG(feature), OUT_LIST(parents, count), OUT(count));
}

ProError ProFeatureTypeGet(ProFeature* feature, ProFeattype* type) {
    return Op<"ProFeatureTypeGet">.Call(
        [&] { *type = TheHost().session.RequireFeature(feature).type; }, ARG(feature), OUT(type));
}

ProError ProFeatureStatusGet(ProFeature* feature, ProFeatStatus* status) {
    return Op<"ProFeatureStatusGet">.Call(
        [&] {
            Session& session = TheHost().session;
            const Feature& found = session.RequireFeature(feature);
            const bool active = found.status == PRO_FEAT_ACTIVE;
            const bool out = active && session.exclusions.Has(
                                           session, session.Require(feature->owner), feature->id);
            *status = out ? PRO_FEAT_SIMPREP_SUPPRESSED : found.status;
        },
        ARG(feature), OUT(status));
}

ProError ProFeatureStatusflagsGet(ProFeature* feature, int* flags) {
    return Op<"ProFeatureStatusflagsGet">.Call(
        [&] { *flags = TheHost().session.RequireFeature(feature).flags; }, ARG(feature),
        OUT(flags));
}

ProError ProFeatureVisibilityGet(ProFeature* feature, ProBoolean* visible) {
    return Op<"ProFeatureVisibilityGet">.Call(
        [&] {
            const bool shown = TheHost().session.RequireFeature(feature).visible;
            *visible = shown ? PRO_B_TRUE : PRO_B_FALSE;
        },
        ARG(feature), OUT(visible));
}
