// Features and components at the door.
#include "hostapi/host/feature.h"

#include "hostapi/host/assembly.h"
#include "simhost/door/door.h"

using namespace simhost;

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

ProError ProAsmcompMdlGet(ProAsmcomp* component, ProMdl* model) {
    return Op<"ProAsmcompMdlGet">.Call(
        [&] {
            const Feature& feature = TheHost().session.RequireFeature(component);
            // Some kinds of features stand in an assembly without being components.
            if (feature.file.empty() && !feature.model) Refuse(PRO_TK_BAD_INPUTS);
            if (!feature.model) Refuse(PRO_TK_E_NOT_FOUND);
            *model = feature.model->handle;
        },
        ARG(component), OUT(model));
}
