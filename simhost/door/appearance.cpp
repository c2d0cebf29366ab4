// Appearances at the door.
#include "hostapi/host/appearance.h"

#include <string>

#include "simhost/core/text.h"
#include "simhost/door/door.h"

using namespace simhost;

namespace {

// The model of an object; a stale object is a complaint.
Model& RequireObject(Prohandle object) {
    if (!object) Refuse(PRO_TK_BAD_INPUTS);
    Model* model = TheHost().session.FindObject(object);
    if (!model) Complain(PRO_TK_BAD_INPUTS, "not an object");
    return *model;
}

void RequireItem(Model& model, int itemType, int id) {
    if (itemType == PRODB_WHOLE_OBJECT && id == -1) return;
    if (itemType == PRODB_SURFACE && model.HasSurface(id)) return;
    Complain(PRO_TK_BAD_INPUTS, model.FileName() + " has no such item: type " +
                                    std::to_string(itemType) + ", id " + std::to_string(id));
}

void RequireRange(const ProdbSurfaceProps& props) {
    const double* first = &props.ambient;
    for (std::size_t i = 0; i < sizeof props / sizeof(double); ++i) {
        if (!(first[i] >= 0.0 && first[i] <= 1.0)) {
            Complain(PRO_TK_BAD_INPUTS, "a value of an appearance is not between 0 and 1");
        }
    }
}

}  // namespace

Prohandle prodb_get_object_ptr(WideChar* name, char* kind) {
    return Op<"prodb_get_object_ptr">.CallOr(
        [](int) -> Prohandle { return nullptr; },
        [&]() -> Prohandle {
            const std::string word = kind;
            if (word != "PRT" && word != "ASM") {
                Complain(PRO_TK_BAD_INPUTS, "the kind is not PRT or ASM");
            }
            const ProMdlType type = word == "PRT" ? PRO_MDL_PART : PRO_MDL_ASSEMBLY;
            const Model* model = TheHost().session.FindByName(name, type);
            if (!model) Refuse(PRO_TK_E_NOT_FOUND);
            return Session::ObjectOf(*model);
        },
        GIVEN(name), GIVEN(kind));
}

int prodb_get_surface_props(Prohandle object, int itemType, int id, int unused,
                            ProdbSurfaceProps* props) {
    return Op<"prodb_get_surface_props">.Call(
        [&] {
            Model& model = RequireObject(object);
            RequireItem(model, itemType, id);
            const auto own = model.partData.surfaceAppearances.find(id);
            if (itemType == PRODB_SURFACE && own != model.partData.surfaceAppearances.end()) {
                *props = own->second;
            } else {
                *props = model.appearance.value_or(DefaultAppearance());
            }
        },
        ARG(object), ARG(itemType), ARG(id), ARG(unused), OUT(props));
}

int prodb_set_surface_props(Prohandle object, int itemType, int id, int unused,
                            ProdbSurfaceProps* props) {
    return Op<"prodb_set_surface_props">.Call(
        [&] {
            Model& model = RequireObject(object);
            RequireItem(model, itemType, id);
            RequireRange(*props);
            if (itemType == PRODB_SURFACE) {
                model.partData.surfaceAppearances[id] = *props;
            } else {
                model.appearance = *props;
            }
            model.modified = true;
        },
        ARG(object), ARG(itemType), ARG(id), ARG(unused), GIVEN(props));
}

int prodb_unset_surface_props(Prohandle object, int itemType, int id, int unused) {
    return Op<"prodb_unset_surface_props">.Call(
        [&] {
            Model& model = RequireObject(object);
            RequireItem(model, itemType, id);
            if (itemType == PRODB_SURFACE) {
                model.partData.surfaceAppearances.erase(id);
            } else {
                model.appearance.reset();
            }
            model.modified = true;
        },
        ARG(object), ARG(itemType), ARG(id), ARG(unused));
}
