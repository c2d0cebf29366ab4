// What commands ask of models and components.
#include "frame/services/models.h"

#include "frame/services/fixed_text.h"

TopModel CurrentModel() {
    TopModel current;
    if (ProMdlCurrentGet(&current.model) != PRO_TK_NO_ERROR) return {};
    if (ProMdlTypeGet(current.model, &current.type) != PRO_TK_NO_ERROR) return {};
    return current;
}

TopModel TopModelOf(TopModel current) {
    if (current.type == PRO_MDL_MFG) {
        ProAssembly assembly = nullptr;
        ProMfgAssemGet(static_cast<ProMfg>(current.model), &assembly);
        current.model = assembly;
    }
    return current;
}

TopModel CurrentTopModel() {
    return TopModelOf(CurrentModel());
}

ProMdlType TypeOf(ProMdl model) {
    ProMdlType type = PRO_MDL_UNUSED;
    ProMdlTypeGet(model, &type);
    return type;
}

WideText ModelName(ProMdl model) {
    ProName name = {};
    ProMdlNameGet(model, name);
    return TextIn(name);
}

bool IsShown(ProFeature* feature) {
    ProFeatStatus status = PRO_FEAT_ACTIVE;
    ProBoolean visible = PRO_B_FALSE;
    ProFeatureStatusGet(feature, &status);
    ProFeatureVisibilityGet(feature, &visible);
    return visible == PRO_B_TRUE && status == PRO_FEAT_ACTIVE;
}
