// The current model, and the assembly of a manufacturing model in its place.
#include "frame/services/models.h"

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
