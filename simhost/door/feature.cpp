// Features and components at the door.
#include "hostapi/host/feature.h"

#include "hostapi/host/assembly.h"
#include "simhost/door/describe.h"
#include "simhost/host.h"

using namespace simhost;

ProError ProFeatureTypeGet(ProFeature* feature, ProFeattype* type) {
    static Operation op("ProFeatureTypeGet");
    return op.Call(
        [&] {
            Need(type, "the place for the type");
            *type = TheHost().session.RequireFeature(feature).type;
            return PRO_TK_NO_ERROR;
        },
        "feature", feature, "type", Out(type));
}

ProError ProFeatureStatusGet(ProFeature* feature, ProFeatStatus* status) {
    static Operation op("ProFeatureStatusGet");
    return op.Call(
        [&] {
            Need(status, "the place for the status");
            *status = TheHost().session.RequireFeature(feature).status;
            return PRO_TK_NO_ERROR;
        },
        "feature", feature, "status", Out(status));
}

ProError ProFeatureStatusflagsGet(ProFeature* feature, int* flags) {
    static Operation op("ProFeatureStatusflagsGet");
    return op.Call(
        [&] {
            Need(flags, "the place for the flags");
            *flags = TheHost().session.RequireFeature(feature).flags;
            return PRO_TK_NO_ERROR;
        },
        "feature", feature, "flags", Out(flags));
}

ProError ProFeatureVisibilityGet(ProFeature* feature, ProBoolean* visible) {
    static Operation op("ProFeatureVisibilityGet");
    return op.Call(
        [&] {
            Need(visible, "the place for the visibility");
            const bool shown = TheHost().session.RequireFeature(feature).visible;
            *visible = shown ? PRO_B_TRUE : PRO_B_FALSE;
            return PRO_TK_NO_ERROR;
        },
        "feature", feature, "visible", Out(visible));
}

ProError ProAsmcompMdlGet(ProAsmcomp* component, ProMdl* model) {
    static Operation op("ProAsmcompMdlGet");
    return op.Call(
        [&] {
            Need(model, "the place for the model");
            const Feature& feature = TheHost().session.RequireFeature(component);
            // Some kinds of features stand in an assembly without being components.
            if (feature.file.empty() && !feature.model) Refuse(PRO_TK_BAD_INPUTS);
            if (!feature.model) Refuse(PRO_TK_E_NOT_FOUND);
            *model = feature.model->handle;
            return PRO_TK_NO_ERROR;
        },
        "component", component, "model", Out(model));
}
